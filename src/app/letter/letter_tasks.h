#pragma once

#include <string>

#include "app/letter/letter_command.h"

namespace zelvo {

/// The text of the letter, a line a paragraph.
Result<std::string> textOfLetter(const LetterCommand& command);
/// Fills the letter and writes it to the file asked for.
Result<void> mergeIntoFile(const LetterCommand& command);
/// Hands the work to the program zelvo-letter-pages that stands beside this one: measuring fonts needs the libraries of
/// the windows, which the rest of the work does without. Comes back only when that could not be started.
Error startPages(const LetterCommand& command);

}  // namespace zelvo
