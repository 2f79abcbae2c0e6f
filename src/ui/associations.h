#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zelvo {

/// The program that the desktop opens such a file with, as a full path; nothing when there is none. The choice of the
/// user comes before that of the computer, and any program that says it can open the kind of file comes last.
std::optional<std::string> associatedProgram(std::string_view path);

}  // namespace zelvo
