#pragma once

#include <string>
#include <string_view>

#include "base/result.h"
#include "documents/page_layout.h"

namespace zelvo {

class PaperFaces;

/// The pages as a PDF, ready to be saved or sent to a printer. The fonts go with it and its text can be searched.
/// Whoever prints many letters hands the faces down that they were measured in. More pages than are printed at once
/// are an error.
Result<std::string> pdfOf(const PagedDocument& document, std::string_view title, const PaperFaces& faces);
Result<std::string> pdfOf(const PagedDocument& document, std::string_view title);

}  // namespace zelvo
