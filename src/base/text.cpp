#include "base/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zelvo {

namespace {

constexpr std::string_view blanks = " \t\r\n";

/// Where the character after the first `count` begins.
std::size_t positionOf(std::string_view text, std::size_t count) {
  std::size_t position = 0;
  for (; count > 0 && position < text.size(); --count)
    nextCharacter(text, position);
  return position;
}

std::string blanksTo(std::string_view text, std::size_t width) {
  const std::size_t taken = length(text);
  return std::string(taken < width ? width - taken : 0, ' ');
}

}  // namespace

std::string_view trim(std::string_view text) {
  return trimLeft(trimRight(text));
}

std::string_view trimLeft(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  return first == std::string_view::npos ? text.substr(text.size()) : text.substr(first);
}

std::string_view trimRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

// Eight bytes at a time: a search asks it of every text of a table.
bool isAscii(std::string_view text) {
  constexpr std::uint64_t beyond = 0x8080808080808080;
  std::uint64_t seen = 0, eight = 0;
  const char* at = text.data();
  const char* end = at + text.size();
  if (text.size() < sizeof eight) {
    std::memcpy(&eight, at, text.size());
    return (eight & beyond) == 0;
  }
  for (; end - at > static_cast<std::ptrdiff_t>(sizeof eight); at += sizeof eight) {
    std::memcpy(&eight, at, sizeof eight);
    seen |= eight;
  }
  std::memcpy(&eight, end - sizeof eight, sizeof eight);  // the last ones, some of them a second time
  return ((seen | eight) & beyond) == 0;
}

std::size_t length(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t position = 0; position < text.size(); ++count)
    nextCharacter(text, position);
  return count;
}

std::string_view left(std::string_view text, std::size_t count) {
  return text.substr(0, positionOf(text, count));
}

std::string_view right(std::string_view text, std::size_t count) {
  const std::size_t all = length(text);
  return all <= count ? text : text.substr(positionOf(text, all - count));
}

std::string padRight(std::string_view text, std::size_t width) {
  return std::string(text) + blanksTo(text, width);
}

std::string padLeft(std::string_view text, std::size_t width) {
  return blanksTo(text, width).append(text);
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator, begin)) {
    parts.emplace_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  parts.emplace_back(text.substr(begin));
  return parts;
}

std::string join(const std::vector<std::string>& texts, std::string_view separator) {
  std::string joined;
  for (std::size_t i = 0; i < texts.size(); ++i)
    joined.append(i == 0 ? std::string_view() : separator).append(texts[i]);
  return joined;
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty())
    return std::string(text);
  std::string result;
  std::size_t begin = 0;
  for (std::size_t found = text.find(what); found != std::string_view::npos; found = text.find(what, begin)) {
    result.append(text.substr(begin, found - begin)).append(with);
    begin = found + what.size();
  }
  return result.append(text.substr(begin));
}

}  // namespace zelvo
