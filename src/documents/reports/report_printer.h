#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "documents/letter.h"
#include "documents/reports/report.h"
#include "form/desk.h"

namespace zelvo {

/// Where a listing goes. In place of some, labels or letters are made for the owners that it lists: whoever lists does
/// that himself.
enum class ReportOutput { Printer, Preview, RichText, Spreadsheet, Labels, Letters };
/// Those that every listing can go to, as a user chooses from them, in their order.
std::vector<std::string> reportOutputs();

/// Brings a listing to where the user wants it: to the printer through "\tmp.rtf" of the program folder, or into a file
/// that the user names. A listing without rows is said to be empty and goes nowhere.
class ReportPrinter {
 public:
  ReportPrinter(Desk& desk, LetterPrinter& letters) : desk_(desk), letters_(letters) {}

  /// A file that is not named (the user cancelled) is no error. The heading is merged as a letter is; where the forms
  /// folder has none under its name, the office's report header stands in for it.
  Result<void> run(const ReportKind& kind, std::string_view title, ReportRows& rows, ReportOutput output);

 private:
  Result<void> print(const ReportKind& kind, std::string_view title, ReportRows& rows);
  Result<void> save(const ReportKind& kind, std::string_view title, ReportRows& rows, ReportOutput output);
  Result<std::string> heading(const ReportKind& kind);
  void tellEmpty();

  Desk& desk_;
  LetterPrinter& letters_;
};

}  // namespace zelvo
