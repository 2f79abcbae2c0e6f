#pragma once

#include <QString>
#include <string_view>

namespace zelvo {

/// A text of the program as the windows take it.
inline QString qtText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace zelvo
