#include "console/script_text.h"

#include <algorithm>

namespace zelvo {

std::string onOneLine(std::string_view text) {
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && text.substr(i + 1).starts_with('\n'))
      continue;
    if (text[i] == '\n' || text[i] == '\r')
      line += "\\n";
    else if (text[i] == '\\')
      line += "\\\\";
    else
      line += text[i];
  }
  return line;
}

std::string fromScript(std::string_view written) {
  std::string text;
  for (std::size_t i = 0; i < written.size(); ++i) {
    const std::string_view pair = written.substr(i, 2);
    const bool escaped = pair == "\\n" || pair == "\\\\";
    text += pair == "\\n" ? '\n' : written[i];
    i += escaped ? 1 : 0;
  }
  return text;
}

std::string_view takeWord(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
  const std::size_t end = std::min(rest.find_first_of(" \t"), rest.size());
  const std::string_view word = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return word;
}

}  // namespace zelvo
