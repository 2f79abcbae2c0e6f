#include "data/dialect/parser.h"

#include <array>
#include <utility>

#include "base/text.h"
#include "data/dialect/lexer.h"

namespace zelvo::dialect {

namespace {

/// Parentheses within parentheses: the office's own queries have three at most.
constexpr int mostNested = 100;

constexpr std::array keywords = {"select", "from", "where", "order", "by", "and", "or", "not", "like", "is", "null"};

/// Reads a query from left to right. The first thing that is wrong is kept, and from then on every step answers false.
class Parser {
 public:
  Parser(std::string_view query, std::vector<Token> tokens) : query_(query), tokens_(std::move(tokens)) {}

  Result<Select> select() {
    Select query;
    query.text = query_;
    if (needWord("select") && needSymbol("*") && needWord("from") && name(query.table, "the name of a table") &&
        where(query) && order(query) && end())
      return query;
    return *trouble_;
  }

  Result<Condition> condition() {
    Condition condition{std::string(query_), {}};
    if (anyOf(condition.test) && end())
      return condition;
    return *trouble_;
  }

 private:
  bool where(Select& query) { return !takeWord("where") || anyOf(query.where.emplace()); }

  bool order(Select& query) {
    if (!takeWord("order"))
      return true;
    if (!needWord("by"))
      return false;
    do {
      OrderTerm& term = query.order.emplace_back();
      if (!name(term.column, "the name of a column"))
        return false;
      term.descending = takeWord("desc");
      if (!term.descending)
        takeWord("asc");
    } while (takeSymbol(","));
    return true;
  }

  bool end() {
    takeSymbol(";");
    return token().kind == TokenKind::End || refuse("the query should end here");
  }

  bool anyOf(Test& test) { return joined(test, Join::Or, "or", &Parser::allOf); }
  bool allOf(Test& test) { return joined(test, Join::And, "and", &Parser::one); }

  /// One part or several with the word between them; a part that stands alone is no group.
  bool joined(Test& test, Join join, std::string_view word, bool (Parser::*part)(Test&)) {
    Group group{join, {}};
    do {
      if (!(this->*part)(group.parts.emplace_back()))
        return false;
    } while (takeWord(word));
    if (group.parts.size() == 1)
      test = Test(std::move(group.parts.front()));
    else
      test.is = std::move(group);
    return true;
  }

  bool one(Test& test) {
    if (isSymbol("("))
      return nested(&Parser::inParentheses, test);
    if (isWord("not"))
      return nested(&Parser::turnedRound, test);
    return predicate(test);
  }

  bool nested(bool (Parser::*inner)(Test&), Test& test) {
    if (depth_ == mostNested)
      return refuse("more than " + std::to_string(mostNested) + " parentheses stand within each other");
    ++depth_;
    ++next_;
    const bool read = (this->*inner)(test);
    --depth_;
    return read;
  }

  bool inParentheses(Test& test) { return anyOf(test) && needSymbol(")"); }

  bool turnedRound(Test& test) {
    Test inner;
    if (!one(inner))
      return false;
    test = negated(std::move(inner));
    return true;
  }

  static Test negated(Test&& inner) {
    Group group{Join::Not, {}};
    group.parts.push_back(std::move(inner));
    return Test{std::move(group)};
  }

  bool predicate(Test& test) {
    Name column;
    if (!name(column, "the name of a column"))
      return false;
    if (takeWord("is"))
      return nullTest(std::move(column), test);
    if (isWord("like") || isWord("not"))
      return likeTest(std::move(column), test);
    return comparison(std::move(column), test);
  }

  bool nullTest(Name column, Test& test) {
    const bool turned = takeWord("not");
    if (!needWord("null"))
      return false;
    test.is = NullTest{std::move(column)};
    if (turned)
      test = negated(std::move(test));
    return true;
  }

  bool likeTest(Name column, Test& test) {
    const bool turned = takeWord("not");
    if (!needWord("like"))
      return false;
    if (token().kind != TokenKind::Value || !token().value.isText())
      return refuse("a text in ' should follow like");
    test.is = Like{std::move(column), take().value.text()};
    if (turned)
      test = negated(std::move(test));
    return true;
  }

  bool comparison(Name column, Test& test) {
    static constexpr std::array<std::pair<std::string_view, Relation>, 6> relations = {
        {{"=", Relation::Equal},
         {"<>", Relation::NotEqual},
         {"<", Relation::Less},
         {">", Relation::Greater},
         {"<=", Relation::LessOrEqual},
         {">=", Relation::GreaterOrEqual}}};
    for (const auto& [symbol, relation] : relations) {
      if (!takeSymbol(symbol))
        continue;
      Comparison compared{std::move(column), relation, {}};
      const bool read = value(compared.value);
      test.is = std::move(compared);
      return read;
    }
    return refuse("=, <>, <, >, like or is should follow the name of a column");
  }

  bool value(Value& value) {
    if (takeWord("null"))
      return true;
    const bool minus = takeSymbol("-");
    const bool sign = minus || takeSymbol("+");
    if (token().kind != TokenKind::Value || (sign && !token().value.isNumber()))
      return refuse("a text in ', a number or a date in # should stand here");
    value = take().value;
    if (minus)
      value = Value(-value.number());
    return true;
  }

  bool name(Name& name, std::string_view what) {
    const bool bare = token().kind == TokenKind::Word && !isKeyword(token().text);
    if (!bare && token().kind != TokenKind::Name)
      return refuse(std::string(what) + " should stand here");
    name = {token().text, token().at};
    ++next_;
    return true;
  }

  static bool isKeyword(std::string_view word) {
    for (const std::string_view keyword : keywords)
      if (alike(word, keyword))
        return true;
    return false;
  }

  // The token at hand.
  const Token& token() const { return tokens_[next_]; }
  Token& take() { return tokens_[next_++]; }
  bool isWord(std::string_view word) const { return token().kind == TokenKind::Word && alike(token().text, word); }
  bool isSymbol(std::string_view symbol) const { return token().kind == TokenKind::Symbol && token().text == symbol; }
  bool takeWord(std::string_view word) { return takeIf(isWord(word)); }
  bool takeSymbol(std::string_view symbol) { return takeIf(isSymbol(symbol)); }
  bool takeIf(bool wanted) {
    next_ += wanted ? 1 : 0;
    return wanted;
  }
  bool needWord(std::string_view word) { return takeWord(word) || refuse(std::string(word) + " should stand here"); }
  bool needSymbol(std::string_view symbol) {
    return takeSymbol(symbol) || refuse(std::string(symbol) + " should stand here");
  }

  bool refuse(std::string_view what) {
    if (!trouble_)
      trouble_ = troubleAt(query_, token().at, what);
    return false;
  }

  std::string_view query_;
  std::vector<Token> tokens_;
  std::size_t next_ = 0;
  int depth_ = 0;
  std::optional<Error> trouble_;
};

}  // namespace

Result<Select> parseSelect(std::string_view text) {
  auto tokens = tokensOf(text);
  return tokens ? Parser(text, std::move(*tokens)).select() : tokens.error();
}

Result<Condition> parseCondition(std::string_view text) {
  auto tokens = tokensOf(text);
  return tokens ? Parser(text, std::move(*tokens)).condition() : tokens.error();
}

}  // namespace zelvo::dialect
