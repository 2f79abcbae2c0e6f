#pragma once

#include <string_view>

#include "documents/document.h"

namespace zelvo {

/// Reads a rich-text letter into the model that is laid out. A broken file is read as far as it goes; what the model
/// does not know (drawings, revisions) is left out, hidden text too.
Document readDocument(std::string_view rtf);

}  // namespace zelvo
