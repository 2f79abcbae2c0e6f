#pragma once

#include <string>
#include <string_view>

#include "base/result.h"
#include "documents/page_layout.h"

class QPainter;

namespace zelvo {

/// Paints a laid-out page. One unit of the painter is one twip, its origin the upper left corner of the paper.
void paintPage(QPainter& painter, const Page& page);

/// The pages as a PDF, ready to be saved or sent to a printer. The fonts go with it and its text can be searched.
Result<std::string> pdfOf(const PagedDocument& document, std::string_view title);

}  // namespace zelvo
