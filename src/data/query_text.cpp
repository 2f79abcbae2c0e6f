#include "data/query_text.h"

#include "base/text.h"

namespace zelvo {

namespace {

std::string quotedText(std::string_view text) {
  return "'" + replaceAll(text, "'", "''") + "'";
}

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || (c >= '0' && c <= '9');
}

// Where a word stands by itself, outside texts, names and dates; npos when nowhere.
std::size_t findWord(std::string_view query, std::string_view word, std::size_t from) {
  char until = 0;  // what ends the text, name or date that the walk is in
  for (std::size_t at = 0; at + word.size() <= query.size(); ++at) {
    const char c = query[at];
    if (until != 0) {
      until = c == until ? '\0' : until;
    } else if (c == '\'' || c == '#') {
      until = c;
    } else if (c == '[') {
      until = ']';
    } else if (at >= from && alike(query.substr(at, word.size()), word) && (at == 0 || !isLetter(query[at - 1])) &&
               (at + word.size() == query.size() || !isLetter(query[at + word.size()]))) {
      return at;
    }
  }
  return std::string_view::npos;
}

}  // namespace

QueryParts queryParts(std::string_view query) {
  QueryParts parts;
  const std::size_t where = findWord(query, "where", 0);
  const std::size_t order = findWord(query, "order", where == std::string_view::npos ? 0 : where);
  if (where != std::string_view::npos)
    parts.condition = trim(query.substr(where + 5, order == std::string_view::npos ? order : order - where - 5));
  if (order != std::string_view::npos)
    if (const std::size_t by = findWord(query, "by", order); by != std::string_view::npos)
      parts.order = trim(query.substr(by + 2));
  return parts;
}

std::string columnIs(std::string_view column, std::string_view text) {
  return "[" + std::string(column) + "] = " + quotedText(text);
}

std::string columnLike(std::string_view column, std::string_view pattern) {
  return "[" + std::string(column) + "] like " + quotedText(pattern);
}

}  // namespace zelvo
