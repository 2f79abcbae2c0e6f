#pragma once

#include <string_view>

#include "base/result.h"

namespace zelvo {

/// What was to be done with a file when the system refused.
enum class FileDeed { Read, Write, Copy, Delete, Rename, MakeFolder };

/// What the system's error number means for the office: which file, what was wrong, what to do.
Error fileError(FileDeed deed, std::string_view path, int systemError);

/// The same for troubles that only we know, in our own words: `why` ends without a full stop, `advice` with one.
Error fileError(FileDeed deed, std::string_view path, Trouble trouble, std::string_view why, std::string_view advice);

}  // namespace zelvo
