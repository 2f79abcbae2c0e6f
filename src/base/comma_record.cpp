#include "base/comma_record.h"

#include <algorithm>

#include "base/text.h"

namespace zelvo {

namespace {

/// Blanks at an end would be trimmed when the value is read, so they ask for quotes as well.
bool needsQuotes(std::string_view value) {
  return value.find_first_of(",\"\r\n") != std::string_view::npos || trim(value).size() != value.size();
}

std::string written(const std::string& value) {
  return needsQuotes(value) ? "\"" + replaceAll(value, "\"", "\"\"") + "\"" : value;
}

/// Reads values one after the other from a place in a text.
class ValueReader {
 public:
  ValueReader(std::string_view text, std::size_t& position) : text_(text), position_(position) {}

  /// A comma at the very end of the text promises one more value, an empty one.
  bool more() const { return position_ < text_.size() || afterComma_; }

  std::string next() {
    skipBlanks();
    const bool quoted = position_ < text_.size() && text_[position_] == '"';
    std::string value = quoted ? quotedValue() : "";
    const std::size_t end = std::min(text_.find_first_of(",\n", position_), text_.size());
    if (!quoted)
      value = trim(text_.substr(position_, end - position_));
    afterComma_ = end < text_.size() && text_[end] == ',';
    position_ = std::min(end + 1, text_.size());
    return value;
  }

 private:
  void skipBlanks() {
    while (position_ < text_.size() && (text_[position_] == ' ' || text_[position_] == '\t'))
      ++position_;
  }

  /// A quoted value runs to its closing quote, over line ends too; one that is never closed runs to the end of the
  /// text.
  std::string quotedValue() {
    std::string value;
    ++position_;
    for (; position_ < text_.size(); ++position_) {
      if (text_[position_] == '"' && !doubledQuote()) {
        ++position_;
        return value;
      }
      value.push_back(text_[position_]);
    }
    return value;
  }

  /// Whether a second quote follows; it stands for one, and the reader moves on to it.
  bool doubledQuote() {
    if (text_.substr(position_ + 1, 1) != "\"")
      return false;
    ++position_;
    return true;
  }

  std::string_view text_;
  std::size_t& position_;
  bool afterComma_ = false;
};

}  // namespace

std::string writeCommaRecord(const std::vector<std::string>& values) {
  std::vector<std::string> texts;
  std::transform(values.begin(), values.end(), std::back_inserter(texts), written);
  return join(texts, ",");
}

std::vector<std::string> readCommaValues(std::string_view text, std::size_t& position, std::size_t count) {
  std::vector<std::string> values;
  ValueReader reader(text, position);
  while (values.size() < count && reader.more())
    values.push_back(reader.next());
  return values;
}

}  // namespace zelvo
