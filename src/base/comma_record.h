#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zelvo {

// Values that stand together on a line of a settings file, separated by commas. A value that holds a comma, a double
// quote or a line break, or has blanks at an end, stands in double quotes, its own quotes doubled.

/// The values as one line, without a line break at its end.
std::string writeCommaRecord(const std::vector<std::string>& values);

/// Takes the next `count` values of a text, over line ends where values run on, from `position`, which is moved behind
/// them. Quoted values are taken whole, others trimmed; an empty line is one empty value. Fewer are given when the text
/// ends first.
std::vector<std::string> readCommaValues(std::string_view text, std::size_t& position, std::size_t count);

}  // namespace zelvo
