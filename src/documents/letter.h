#pragma once

#include <string>
#include <string_view>

#include "documents/merge.h"
#include "documents/print_delivery.h"
#include "form/desk.h"

namespace zelvo {

/// A letter on its way to paper: the template of the forms folder, merged, kept as "\tmp.rtf" in the program folder,
/// and printed.
class LetterPrinter {
 public:
  explicit LetterPrinter(Desk& desk) : desk_(desk) {}

  MergeContext context;

  /// Merges "\bldgperm.rtf" of the forms folder and brings it to the user under the session's print options: printed,
  /// or shown or opened for changes before that. A copy of what is printed goes to `copy`, when the options ask for
  /// one. A template that is missing or no rich text is an error that names the file and the folder it is looked for
  /// in; nothing is printed then.
  Result<void> print(std::string_view templateName, std::string_view title, const KeepCopy& copy = {});
  /// The rich text of a template, not merged.
  Result<std::string> read(std::string_view templateName) const;
  /// Fills the codes of a rich text that is no template of the forms folder.
  Result<std::string> fill(std::string_view rtf) const;
  /// The same of a rich text that is merged, through "\tmp.rtf".
  Result<void> printText(std::string_view rtf, std::string_view title, const KeepCopy& copy = {});
  /// Opens it in the editor, to be filled by hand and printed from there; a copy is kept whenever it is printed.
  Result<void> openText(std::string_view rtf, std::string_view title, const KeepCopy& copy);
  /// The merged document, written to "\tmp.rtf" and not printed; its path.
  Result<std::string> merge(std::string_view templateName);

 private:
  Result<std::string> keep(std::string_view rtf) const;

  Desk& desk_;
};

}  // namespace zelvo
