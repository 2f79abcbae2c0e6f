#pragma once

#include <span>
#include <string_view>

namespace zelvo {

/// A letter of the office, as it lies under forms/ in the program's sources.
struct Form {
  std::string_view name;  ///< "bldgperm.rtf"
  std::string_view richText;
};
/// All of them. The build makes this list out of the files.
std::span<const Form> forms();

}  // namespace zelvo
