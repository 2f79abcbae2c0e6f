#pragma once

#include <string>
#include <string_view>

#include "documents/merge.h"
#include "form/desk.h"

namespace zelvo {

/// A letter on its way to paper: the template of the forms folder, merged, kept as "\tmp.rtf" in the program folder,
/// and printed.
class LetterPrinter {
 public:
  explicit LetterPrinter(Desk& desk) : desk_(desk) {}

  MergeContext context;

  /// Merges "\bldgperm.rtf" of the forms folder and prints it under the session's print options. A template that is
  /// missing or no rich text is an error that names the file and the folder it is looked for in; nothing is printed
  /// then.
  Result<void> print(std::string_view templateName, std::string_view title);
  /// The merged document, written to "\tmp.rtf" and not printed; its path.
  Result<std::string> merge(std::string_view templateName);

 private:
  Desk& desk_;
};

}  // namespace zelvo
