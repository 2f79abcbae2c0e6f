#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/result.h"
#include "data/engine.h"

namespace zelvo {

/// A database file of the office, held: nobody else stores anything in it.
struct HeldFile {
  std::string name;  ///< as it is written in its folder
  const Table* table;
  std::unique_ptr<Engine> engine;
};

/// What of a folder's "*.mdb" files belongs to the office.
struct OfficeFiles {
  std::vector<std::string> ours;  ///< in the order of the catalogue
  std::vector<std::string> others;
};
OfficeFiles officeFilesIn(std::string_view folder);

/// Opens a database file with its table and begins its transaction.
Result<HeldFile> holdFile(std::string_view folder, const std::string& name);

/// The folder into which a move sets aside what the office worked with before.
std::string setAsideFolder(std::string_view dataFolder, std::string_view stamp);
/// What was renamed in a folder is on the disk, where its system lets us make sure.
void flushFolder(const std::string& folder);

}  // namespace zelvo
