#include "ui/printing/printers.h"

#include <cups/cups.h>

#include <algorithm>

namespace zelvo {

namespace {

std::string optionOf(const cups_dest_t& printer, const char* name) {
  const char* value = cupsGetOption(name, printer.num_options, printer.options);
  return value ? value : "";
}

Printer printerOf(const cups_dest_t& known) {
  Printer printer;
  printer.name = known.name;
  if (known.instance)
    printer.name += std::string("/") + known.instance;
  printer.description = optionOf(known, "printer-info");
  printer.isDefault = known.is_default != 0;
  printer.accepting = optionOf(known, "printer-is-accepting-jobs") != "false";
  return printer;
}

// The options of a job, given back to the printing system at the end.
class JobOptions {
 public:
  JobOptions() = default;
  ~JobOptions() { cupsFreeOptions(count_, options_); }
  JobOptions(const JobOptions&) = delete;
  JobOptions& operator=(const JobOptions&) = delete;

  void set(const char* name, const std::string& value) {
    count_ = cupsAddOption(name, value.c_str(), count_, &options_);
  }
  int count() const { return count_; }
  cups_option_t* options() const { return options_; }

 private:
  int count_ = 0;
  cups_option_t* options_ = nullptr;
};

}  // namespace

std::vector<Printer> reachablePrinters() {
  cups_dest_t* known = nullptr;
  const int count = cupsGetDests2(CUPS_HTTP_DEFAULT, &known);
  std::vector<Printer> printers;
  for (int i = 0; i < count; ++i)
    printers.push_back(printerOf(known[i]));
  cupsFreeDests(count, known);
  std::stable_partition(printers.begin(), printers.end(), [](const Printer& printer) { return printer.isDefault; });
  return printers;
}

Result<int> sendToPrinter(const std::string& printer, const std::string& pdfPath, const PaperJob& job) {
  JobOptions options;
  options.set("copies", std::to_string(std::max(1, job.copies)));
  options.set("print-scaling", "none");  // the pages are made to measure
  if (!job.media.empty())
    options.set("media", job.media);
  const int number = cupsPrintFile2(CUPS_HTTP_DEFAULT, printer.c_str(), pdfPath.c_str(), job.title.c_str(),
                                    options.count(), options.options());
  if (number > 0)
    return number;
  return Error{Trouble::Failed, "The printer \"" + printer + "\" did not take \"" + job.title +
                                    "\": " + cupsLastErrorString() +
                                    ". Choose another printer, or put this one right and print again."};
}

}  // namespace zelvo
