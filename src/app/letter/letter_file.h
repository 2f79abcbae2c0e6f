#pragma once

#include <string>

#include "base/result.h"

namespace zelvo {

/// The bytes of a letter. A file that is not there or no rich text is an error that says so.
Result<std::string> readLetterFile(const std::string& path);

}  // namespace zelvo
