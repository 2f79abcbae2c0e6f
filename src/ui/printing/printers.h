#pragma once

#include <string>
#include <vector>

#include "base/result.h"

namespace zelvo {

/// A printer that this computer can reach.
struct Printer {
  std::string name;
  std::string description;
  bool isDefault = false;
  bool accepting = true;
};

/// How a file is to come out of a printer.
struct PaperJob {
  std::string title;
  int copies = 1;
  std::string media;  ///< "Letter", "Legal"; empty: the printer's own
};

/// All printers, the default one first. Empty when there is none, or nothing on this computer prints.
std::vector<Printer> reachablePrinters();

/// Hands a PDF file to a printer; gives the number of the job. A printer that takes no jobs, is unknown or refuses is
/// an error with the reason: nothing that was printed disappears silently.
Result<int> sendToPrinter(const std::string& printer, const std::string& pdfPath, const PaperJob& job);

}  // namespace zelvo
