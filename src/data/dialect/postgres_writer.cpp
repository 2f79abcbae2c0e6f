#include "data/dialect/postgres_writer.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "data/dialect/like_pattern.h"

namespace zelvo::dialect::postgres {

namespace {

using Element = LikePattern::Element;
using Kind = LikePattern::Element::Kind;

/// Up to here every whole number is exact.
constexpr double largestWhole = 9007199254740992.0;

bool isPlainLetterOrDigit(char32_t letter) {
  return (letter >= U'0' && letter <= U'9') || (letter >= U'a' && letter <= U'z') || letter >= 0x80;
}

// No text on the server holds a zero character.
void appendLetter(std::string& text, char32_t letter) {
  if (letter == 0)
    return;
  if (!isPlainLetterOrDigit(letter))
    text += '\\';
  appendCharacter(text, letter);
}

void appendLiked(std::string& text, char32_t letter) {
  if (letter == U'%' || letter == U'_' || letter == U'\\')
    text += '\\';
  if (letter != 0)
    appendCharacter(text, letter);
}

/// A class of one character is as good as the character.
bool isLetter(const Element& element) {
  return element.kind == Kind::Letter ||
         (element.kind == Kind::Class && !element.negated && element.ranges.size() == 1 &&
          element.ranges.front().first == element.ranges.front().second);
}

char32_t letterOf(const Element& element) {
  return element.kind == Kind::Letter ? element.letter : element.ranges.front().first;
}

std::string classText(const Element& element) {
  std::string inside;
  for (const auto& [first, last] : element.ranges) {
    if (first > last || last == 0)
      continue;
    appendLetter(inside, std::max<char32_t>(first, 1));
    inside += '-';
    appendLetter(inside, last);
  }
  if (inside.empty())
    return element.negated ? "." : "$.";  // any character; none, as nothing follows the end
  return (element.negated ? "[^" : "[") + inside + "]";
}

std::string expressionOf(const std::vector<Element>& elements) {
  std::string text = "^";
  for (const Element& element : elements) {
    if (isLetter(element))
      appendLetter(text, letterOf(element));
    else if (element.kind == Kind::Class)
      text += classText(element);
    else
      text += element.kind == Kind::Run ? ".*" : ".";
  }
  return text + "$";
}

std::string likeTextOf(const std::vector<Element>& elements) {
  std::string text;
  for (const Element& element : elements) {
    if (isLetter(element))
      appendLiked(text, letterOf(element));
    else
      text += element.kind == Kind::Run ? '%' : '_';
  }
  return text;
}

class PostgresWriter : public StatementWriter {
 public:
  using StatementWriter::StatementWriter;

 protected:
  std::string rowId() const override { return quotedName(rowIdOf(table())); }

  // A whole number is bound as one, or an index of whole numbers would be of no use.
  std::string mark(const Value& value, std::size_t parameter) const override {
    const std::string at = "$" + std::to_string(parameter);
    if (value.isDate())
      return at + "::timestamp";
    if (!value.isNumber())
      return at + "::text";
    const double number = value.number();
    return at + (std::nearbyint(number) == number && std::abs(number) <= largestWhole ? "::bigint" : "::float8");
  }

  // What is empty comes first, as it does in the office's files.
  std::string orderTerm(const Column& column, const Select&, bool descending) const override {
    return quotedName(column.name) + (descending ? " desc nulls last" : " nulls first");
  }

  // The column's own collation knows no like. The server's usual one is the quickest, and plain letters are all that it
  // is sure to know. The pattern has no accents any more.
  void writeLike(const Column& column, const std::string& pattern) override {
    const LikePattern read(pattern);
    const auto& elements = read.elements();
    const bool plain = std::all_of(elements.begin(), elements.end(), [](const Element& e) { return e.letter < 0x80; });
    const bool classes = std::any_of(elements.begin(), elements.end(), [](const Element& element) {
      return element.kind == Kind::Class && !isLetter(element);
    });
    add("(" + likened(column) + ") collate " + (plain && !classes ? "\"default\"" : "\"und-x-icu\""));
    add(classes ? " ~* " : " ilike ");
    bind(classes ? expressionOf(elements) : likeTextOf(elements));
  }

  void compareTexts(const Column& column, Relation relation, const std::string& text) override {
    plainly(quotedName(column.name), relation, text);
  }

 private:
  /// The text that a like is held against, without its accents. Most texts have plain letters alone, as many as they
  /// have bytes. Of the others the accents are taken apart from their letters and left out; letters with a stroke do
  /// not come apart.
  static std::string likened(const Column& column) {
    const std::string text = shown(column);
    if (!holdsText(column))
      return text;
    return "case when octet_length(" + text + ") = char_length(" + text + ") then " + text +
           " else translate(regexp_replace(normalize(" + text +
           ", NFD) collate \"C\", U&'[\\0300-\\036F]', '', 'g'), 'ØøĐđŁłĦħŦŧı', 'OoDdLlHhTti') end";
  }
  static std::string shown(const Column& column) {
    const std::string name = quotedName(column.name);
    if (column.type == ColumnType::Date)
      return "zshown(" + name + ")";
    return holdsText(column) ? name : name + "::numeric::text";
  }
};

Result<BoundStatement> asArray(Result<BoundStatement> statement) {
  if (statement)
    statement->sql = "select array(" + statement->sql + ")";
  return statement;
}

}  // namespace

std::string rowIdOf(const Table& table) {
  const auto counter = std::find_if(table.columns.begin(), table.columns.end(),
                                    [](const Column& column) { return column.type == ColumnType::Counter; });
  return counter == table.columns.end() ? "zrow" : std::string(counter->name);
}

Result<BoundStatement> writeKeyset(const Select& query, const Table& table) {
  return asArray(PostgresWriter(query.text, table).keyset(query));
}

Result<BoundStatement> writeKeysetOf(const Condition& condition, const Table& table) {
  return asArray(PostgresWriter(condition.text, table).keysetOf(condition.test));
}

Result<BoundStatement> writeExists(const Condition& condition, const Table& table) {
  return PostgresWriter(condition.text, table).exists(condition.test);
}

}  // namespace zelvo::dialect::postgres
