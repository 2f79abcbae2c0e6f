#pragma once

#include <string_view>

#include "base/file_trouble.h"

namespace zelvo::sqlite {

/// What a result code of SQLite means for the office: which file, what was wrong, what to do. `detail` is SQLite's own
/// word, told only where we have no better one.
Error storeError(FileDeed deed, std::string_view path, int code, std::string_view detail);

}  // namespace zelvo::sqlite
