#pragma once

#include <string>
#include <string_view>

#include "documents/rtf_decoder.h"

namespace zelvo {

/// A rich text as a group that can stand inside another letter: its text with bold, italic, underline and size, and its
/// fonts where the letter has them under the same name. The group leaks nothing into the letter around it, and its last
/// paragraph runs on in the letter's.
std::string rtfInsert(std::string_view richText, const RtfFonts& letterFonts);

}  // namespace zelvo
