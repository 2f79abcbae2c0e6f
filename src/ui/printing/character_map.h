#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zelvo {

/// A name of a glyph in a text of a PDF, and the character that it stands for.
using PdfCode = std::pair<unsigned, char32_t>;

/// Which character each glyph stands for, so that the text of a PDF can be searched and copied; a glyph that is named
/// in so many bytes.
std::string characterMap(const std::vector<PdfCode>& codes, int bytes);

}  // namespace zelvo
