#pragma once

#include <string>
#include <string_view>

#include "base/result.h"
#include "documents/page_layout.h"

class QPainter;

namespace zelvo {

class PaperFaces;

/// Paints a laid-out page. One unit of the painter is one twip, its origin the upper left corner of the paper.
void paintPage(QPainter& painter, const Page& page);

/// The pages as a PDF, ready to be saved or sent to a printer. The fonts go with it and its text can be searched.
/// Whoever prints many letters hands the faces down that they were measured in.
Result<std::string> pdfOf(const PagedDocument& document, std::string_view title, const PaperFaces& faces);
Result<std::string> pdfOf(const PagedDocument& document, std::string_view title);

}  // namespace zelvo
