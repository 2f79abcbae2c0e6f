#include "data/moving/office_files.h"

#include <algorithm>

#include "base/files.h"
#include "base/open_file.h"
#include "base/text.h"

namespace zelvo {

namespace {

/// The parcel table's second layout has a file name of its own; it is a blank, and never the office's registry.
const Table* officeTableOf(std::string_view file) {
  const Table* table = findTableOfFile(file);
  return table == &extendedParcelTable() ? nullptr : table;
}

}  // namespace

OfficeFiles officeFilesIn(std::string_view folder) {
  OfficeFiles found;
  found.others = listFiles(folder, "*.mdb");
  for (const Table& table : catalogue()) {
    const std::string name = fileNameOf(joinPath(folder, table.file));
    const auto at = std::find(found.others.begin(), found.others.end(), name);
    if (at == found.others.end() || officeTableOf(name) != &table)
      continue;
    found.ours.push_back(name);
    found.others.erase(at);
  }
  return found;
}

Result<HeldFile> holdFile(std::string_view folder, const std::string& name) {
  auto engine = openEngine(joinPath(folder, name));
  if (!engine)
    return engine.error();
  const auto table = (*engine)->table(officeTableOf(name)->name);
  if (!table)
    return table.error();
  if (auto held = (*engine)->begin(); !held)
    return held.error();
  return HeldFile{name, *table, std::move(*engine)};
}

std::string setAsideFolder(std::string_view dataFolder, std::string_view stamp) {
  return joinPath(dataFolder, "moved-" + std::string(stamp));
}

void flushFolder(const std::string& folder) {
  OpenFile opened(folder, O_RDONLY | O_DIRECTORY);
  if (opened.isOpen())
    (void)opened.flush();
}

}  // namespace zelvo
