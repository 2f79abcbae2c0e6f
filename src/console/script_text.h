#pragma once

#include <string>
#include <string_view>

namespace zelvo {

// A text of the program may hold line breaks; a line of a script or of the console's output may not. So a line break is
// written \n there, and a backslash \\ so that the two can be told apart.

/// The text on one line. Every line end of the office's files (CR LF, LF, CR) becomes \n.
std::string onOneLine(std::string_view text);
/// The text that a script means: \n is a line break, \\ a backslash; any other backslash stands for itself.
std::string fromScript(std::string_view written);

/// Takes the next word, up to a blank or tab, from the front of a command. The one blank behind it goes too, and no
/// more: a value that is left keeps the blanks it was typed with.
std::string_view takeWord(std::string_view& rest);

}  // namespace zelvo
