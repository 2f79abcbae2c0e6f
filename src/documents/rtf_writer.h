#pragma once

#include <string>
#include <string_view>

#include "documents/document.h"

namespace zelvo {

/// A character as rich-text source of plain 7-bit letters: "\n" as a line break inside the paragraph; control
/// characters vanish. `standIns` is the \uc in force where it is written.
void appendRtfCharacter(std::string& rtf, char32_t character, int standIns = 1);
/// A text as rich-text source; any kind of line end becomes a line break inside the paragraph.
std::string rtfText(std::string_view text, int standIns = 1);
/// The bytes of a picture as the digits that stand for them in a letter.
void appendRtfHex(std::string& rtf, std::string_view bytes);
/// A picture as a group of its own.
std::string rtfPicture(const Picture& picture);

/// "Page 2 of 7", for the foot of every page.
inline constexpr std::string_view kRtfPageNumber =
    "Page {\\field{\\*\\fldinst PAGE}{\\fldrslt 1}} of {\\field{\\*\\fldinst NUMPAGES}{\\fldrslt 1}}";

/// The characters of a text with every kind of line end as one "\n", without control characters other than tabs.
std::u32string letterCharacters(std::string_view text);

}  // namespace zelvo
