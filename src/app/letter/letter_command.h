#pragma once

#include <optional>
#include <span>
#include <string>

#include "base/date.h"
#include "base/result.h"
#include "documents/merge.h"

namespace zelvo {

inline constexpr std::string_view kLetterUsage =
    "Usage: zelvo-letter text FILE.rtf\n"
    "       zelvo-letter merge FILE.rtf OUT.rtf [OPTION...] [SLOT=VALUE...]\n"
    "       zelvo-letter pdf FILE.rtf OUT.pdf\n"
    "Reads, fills and lays out letters as the program does, without the program:\n"
    "  text   prints the text of a letter\n"
    "  merge  fills the codes of a letter with the values given\n"
    "  pdf    lays a letter out on its pages, as it would be printed\n"
    "Options of merge:\n"
    "  --now \"mm/dd/yyyy hh:mm\"  the date and time of the letter; without it, the computer's clock\n"
    "  --program-folder DIR       the folder whose memos and pics hold the pictures; without it, this folder\n"
    "A SLOT is nm, ad, zp, ln, mi, id, ms, me, mh, counter, or a number from 1 to 25. In a VALUE \\n is a line break\n"
    "and \\\\ a backslash.\n";

enum class LetterTask { Help, Text, Merge, Pdf };

/// What the command line of zelvo-letter asks for.
struct LetterCommand {
  LetterTask task = LetterTask::Help;
  std::string file, out;
  MergeContext values;
  std::optional<DateTime> now;      ///< nothing: the computer's clock
  std::string programFolder = ".";  ///< where the pictures are
};

/// The arguments without the program's name. What is wrong with them is told in the error.
Result<LetterCommand> letterCommand(std::span<const char* const> arguments);

}  // namespace zelvo
