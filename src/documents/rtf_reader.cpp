#include "documents/rtf_reader.h"

#include <algorithm>

#include "base/text.h"

namespace zelvo {

namespace {

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isLineEnd(char c) {
  return c == '\r' || c == '\n';
}

std::optional<int> hexDigit(char c) {
  if (isDigit(c))
    return c - '0';
  if (c >= 'a' && c <= 'f')
    return c - 'a' + 10;
  if (c >= 'A' && c <= 'F')
    return c - 'A' + 10;
  return std::nullopt;
}

// Ten digits are more than any word of the format needs; a longer number stops at the largest one.
int numberOf(std::string_view digits, bool negative) {
  long long number = 0;
  for (char digit : digits)
    number = std::min(number * 10 + (digit - '0'), 2147483647LL);
  return static_cast<int>(negative ? -number : number);
}

}  // namespace

bool RtfReader::next(RtfToken& token) {
  if (position_ >= file_.size())
    return false;
  token = RtfToken{};
  token.begin = position_;
  const char c = file_[position_];
  if (c == '{' || c == '}') {
    token.kind = c == '{' ? RtfTokenKind::Open : RtfTokenKind::Close;
    ++position_;
  } else if (c == '\\') {
    readControl(token);
  } else {
    const bool lineEnd = isLineEnd(c);
    token.kind = lineEnd ? RtfTokenKind::LineEnd : RtfTokenKind::Text;
    const std::size_t end =
        lineEnd ? file_.find_first_not_of("\r\n", position_) : file_.find_first_of("{}\\\r\n", position_);
    position_ = std::min(end, file_.size());
    token.word = file_.substr(token.begin, position_ - token.begin);
  }
  token.raw = file_.substr(token.begin, position_ - token.begin);
  return true;
}

void RtfReader::readControl(RtfToken& token) {
  ++position_;
  if (isLetter(at(position_)))
    return readWord(token);
  if (at(position_) == '\'')
    return readHex(token);
  token.kind = RtfTokenKind::Symbol;
  const std::size_t begin = position_;
  if (position_ < file_.size())
    ++position_;
  if (at(begin) == '\r' && at(position_) == '\n')
    ++position_;
  token.word = file_.substr(begin, position_ - begin);
}

void RtfReader::readWord(RtfToken& token) {
  token.kind = RtfTokenKind::Word;
  const std::size_t begin = position_;
  while (isLetter(at(position_)))
    ++position_;
  token.word = file_.substr(begin, position_ - begin);
  const bool negative = at(position_) == '-' && isDigit(at(position_ + 1));
  const std::size_t digits = position_ + (negative ? 1 : 0);
  if (isDigit(at(digits))) {
    position_ = digits;
    while (isDigit(at(position_)))
      ++position_;
    token.parameter = numberOf(file_.substr(digits, position_ - digits), negative);
  }
  if (at(position_) == ' ')
    ++position_;
  if (token.word == "bin")
    readBinary(token);
}

void RtfReader::readBinary(RtfToken& token) {
  token.kind = RtfTokenKind::Binary;
  const auto count = static_cast<std::size_t>(std::max(0, token.parameterOr(0)));
  token.word = file_.substr(position_, count);
  position_ += token.word.size();
}

void RtfReader::readHex(RtfToken& token) {
  const auto high = hexDigit(at(position_ + 1));
  const auto low = hexDigit(at(position_ + 2));
  token.word = file_.substr(position_, 1);
  ++position_;
  token.kind = RtfTokenKind::Symbol;
  if (!high || !low)
    return;
  token.kind = RtfTokenKind::Hex;
  token.parameter = *high * 16 + *low;
  position_ += 2;
}

bool isRichText(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF"))
    bytes.remove_prefix(3);
  return trimLeft(bytes).starts_with("{\\rtf");
}

}  // namespace zelvo
