#include "data/dialect/lexer.h"

#include <cctype>
#include <optional>

#include "base/number.h"
#include "base/text.h"

namespace zelvo::dialect {

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
/// Letters beyond ASCII too, so that a name with an accent is reported as the unknown name that it is.
bool isNameCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

class Lexer {
 public:
  explicit Lexer(std::string_view query) : query_(query) {}

  Result<std::vector<Token>> run() {
    while (skipBlanks() && !trouble_)
      next();
    if (trouble_)
      return *trouble_;
    tokens_.push_back({TokenKind::End, "", {}, query_.size()});
    return std::move(tokens_);
  }

 private:
  bool skipBlanks() {
    while (at_ < query_.size() && isBlank(query_[at_]))
      ++at_;
    return at_ < query_.size();
  }

  void next() {
    const char c = query_[at_];
    const bool pointOfNumber = c == '.' && at_ + 1 < query_.size() && isDigit(query_[at_ + 1]);
    if (c == '\'')
      takeText();
    else if (c == '#')
      takeDate();
    else if (c == '[')
      takeName();
    else if (isDigit(c) || pointOfNumber)
      takeNumber();
    else if (isNameCharacter(c))
      takeWord();
    else
      takeSymbol();
  }

  void add(TokenKind kind, std::string text, Value value, std::size_t end) {
    tokens_.push_back({kind, std::move(text), std::move(value), at_});
    at_ = end;
  }

  void takeText() {
    std::string text;
    for (std::size_t i = at_ + 1; i < query_.size(); ++i) {
      if (query_[i] == '\'') {
        if (i + 1 == query_.size() || query_[i + 1] != '\'')
          return add(TokenKind::Value, "", Value(std::move(text)), i + 1);
        ++i;
      }
      text.push_back(query_[i]);
    }
    refuse("a text begins with ' and is not ended by another one (a ' inside a text is doubled)");
  }

  void takeDate() {
    const std::size_t end = query_.find('#', at_ + 1);
    if (end == std::string_view::npos)
      return refuse("a date begins with # and is not ended by another one");
    const auto moment = parseDateTime(trim(query_.substr(at_ + 1, end - at_ - 1)));
    if (!moment)
      return refuse("what stands between # and # is no date of the form mm/dd/yyyy");
    add(TokenKind::Value, "", Value(*moment), end + 1);
  }

  void takeName() {
    const std::size_t end = query_.find(']', at_);
    if (end == std::string_view::npos)
      return refuse("a name begins with [ and is not ended by ]");
    const std::string_view name = trim(query_.substr(at_ + 1, end - at_ - 1));
    if (name.empty())
      return refuse("there is no name between [ and ]");
    add(TokenKind::Name, std::string(name), {}, end + 1);
  }

  void takeNumber() {
    std::size_t end = afterDigits(at_);
    if (end < query_.size() && query_[end] == '.')
      end = afterDigits(end + 1);
    end = afterExponent(end);
    add(TokenKind::Value, "", Value(Val(query_.substr(at_, end - at_))), end);
  }

  std::size_t afterDigits(std::size_t from) const {
    while (from < query_.size() && isDigit(query_[from]))
      ++from;
    return from;
  }

  /// An exponent needs its digits: "3and" is 3 and a keyword, and so is "3e".
  std::size_t afterExponent(std::size_t from) const {
    std::size_t digits = from + 1;
    if (from >= query_.size() || (query_[from] | 0x20) != 'e')
      return from;
    if (digits < query_.size() && (query_[digits] == '-' || query_[digits] == '+'))
      ++digits;
    return digits < query_.size() && isDigit(query_[digits]) ? afterDigits(digits) : from;
  }

  void takeWord() {
    std::size_t end = at_;
    while (end < query_.size() && isNameCharacter(query_[end]))
      ++end;
    add(TokenKind::Word, std::string(query_.substr(at_, end - at_)), {}, end);
  }

  void takeSymbol() {
    for (const std::string_view symbol : {"<>", "<=", ">=", "=", "<", ">", "(", ")", ",", "*", "-", "+", ";"})
      if (query_.substr(at_).starts_with(symbol))
        return add(TokenKind::Symbol, std::string(symbol), {}, at_ + symbol.size());
    refuse("this character has no meaning in a query");
  }

  void refuse(std::string_view what) { trouble_ = troubleAt(query_, at_, what); }

  std::string_view query_;
  std::size_t at_ = 0;
  std::vector<Token> tokens_;
  std::optional<Error> trouble_;
};

}  // namespace

Result<std::vector<Token>> tokensOf(std::string_view query) {
  return Lexer(query).run();
}

Error troubleAt(std::string_view query, std::size_t at, std::string_view what) {
  constexpr std::size_t nearby = 24;
  const std::string_view rest = query.substr(at);
  std::string place = "at its end";
  if (!trim(rest).empty())
    place = "at character " + std::to_string(length(query.substr(0, at)) + 1) + ", near \"" +
            std::string(left(rest, nearby)) + "\"";
  return {Trouble::BadInput,
          "This query cannot be carried out: " + std::string(what) + " (" + place + ").\n\n" + std::string(query)};
}

}  // namespace zelvo::dialect
