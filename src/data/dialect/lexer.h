#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "data/value.h"

namespace zelvo::dialect {

enum class TokenKind {
  Word,    ///< a keyword or a bare name
  Name,    ///< a name in brackets
  Value,   ///< a text in quotes, a number, a date between #
  Symbol,  ///< ( ) , * ; and the relations
  End      ///< the end of the query; the last token always
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;    ///< of a word, a name or a symbol
  Value value;         ///< of a value
  std::size_t at = 0;  ///< the byte of the query where it begins
};

/// Cuts a query into its tokens; the last one is the end.
Result<std::vector<Token>> tokensOf(std::string_view query);

/// What is wrong with a query and where: the message names the place, the text that stands there, and the whole query.
Error troubleAt(std::string_view query, std::size_t at, std::string_view what);

}  // namespace zelvo::dialect
