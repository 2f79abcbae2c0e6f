#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "documents/page_layout.h"

namespace zelvo {

class PaperFaces;

/// The pages as a PDF written glyph for glyph, which takes a fraction of the time that painting them takes. Nothing for
/// pages with pictures, with texts that cannot be set so, or in fonts that cannot go along: those are to be painted.
std::optional<std::string> glyphPdf(const PagedDocument& document, std::string_view title, const PaperFaces& faces);

}  // namespace zelvo
