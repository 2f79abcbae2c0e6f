#pragma once

#include <string>

#include "documents/document.h"

namespace zelvo {

/// A document as a rich-text file of plain 7-bit letters, which word processors open to the same text and look.
/// readDocument() reads it back as it was; but a cell always has a paragraph, a section ends with one, runs of one
/// style become one, runs of nothing vanish, and a paragraph that holds text ends in the style of its last run.
std::string writeDocument(const Document& document);

}  // namespace zelvo
