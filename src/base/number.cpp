#include "base/number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/text.h"

namespace zelvo {

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isBlank(char c) {
  return c == ' ' || c == '\t';
}
bool isSign(char c) {
  return c == '+' || c == '-';
}
bool isExponentLetter(char c) {
  return c == 'e' || c == 'E' || c == 'd' || c == 'D';
}

/// A number at the head of a text, spelled without blanks as the library reads it ("-12.5e3").
struct Spelled {
  std::string number;
  std::size_t end = 0;  ///< behind the number's last character
};

/// Takes the number apart, passing over the blanks between its characters.
class NumberReader {
 public:
  explicit NumberReader(std::string_view text) : text_(text) {}

  Spelled read() {
    if (takeIf(isSign) && spelled_.number == "+")
      spelled_.number.clear();
    bool digits = takeDigits();
    if (takeIf([](char c) { return c == '.'; }))
      digits = takeDigits() || digits;
    if (!digits)
      return {};
    spelled_.end = position_;
    readExponent();
    return spelled_;
  }

 private:
  /// An exponent counts only with its digits: "12 east" is 12.
  void readExponent() {
    const std::string mantissa = spelled_.number;
    if (!takeIf(isExponentLetter))
      return;
    spelled_.number.back() = 'e';
    takeIf(isSign);
    if (takeDigits())
      spelled_.end = position_;
    else
      spelled_.number = mantissa;
  }

  bool takeDigits() {
    bool any = false;
    while (takeIf(isDigit))
      any = true;
    return any;
  }

  template <class Wanted>
  bool takeIf(Wanted wanted) {
    std::size_t next = position_;
    while (next < text_.size() && isBlank(text_[next]))
      ++next;
    if (next == text_.size() || !wanted(text_[next]))
      return false;
    spelled_.number.push_back(text_[next]);
    position_ = next + 1;
    return true;
  }

  std::string_view text_;
  std::size_t position_ = 0;
  Spelled spelled_;
};

/// What stands for a number that no double holds: nothing when it is too small, the end of the range when too large.
double outOfRange(std::string_view number) {
  const bool negative = number.front() == '-';
  const std::size_t exponent = number.find('e');
  const bool tiny = exponent == std::string_view::npos
                        ? number.substr(0, number.find('.')).find_first_of("123456789") == std::string_view::npos
                        : number[exponent + 1] == '-';
  if (tiny)
    return 0;
  return negative ? std::numeric_limits<double>::lowest() : std::numeric_limits<double>::max();
}

/// A number as the office writes it down: its significant digits, the first one standing `exponent` places left of the
/// units. Zero has no digits.
struct Decimal {
  bool negative = false;
  std::string digits;
  int exponent = 0;
};

constexpr int significantDigits = 15;

Decimal decimalOf(double number) {
  if (std::isnan(number) || number == 0)
    return {};
  if (std::isinf(number))
    number = std::copysign(std::numeric_limits<double>::max(), number);
  char buffer[40];
  const auto written = std::to_chars(buffer, buffer + sizeof buffer, std::abs(number), std::chars_format::scientific,
                                     significantDigits - 1);
  const std::string_view text(buffer, static_cast<std::size_t>(written.ptr - buffer));
  const std::size_t e = text.find('e');
  Decimal decimal{number < 0, std::string(1, text[0]).append(text.substr(2, e - 2)), 0};
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  const std::size_t exponentBegin = text[e + 1] == '+' ? e + 2 : e + 1;
  std::from_chars(text.data() + exponentBegin, text.data() + text.size(), decimal.exponent);
  return decimal;
}

/// The digits on both sides of the point, neither with needless zeros.
struct Sides {
  std::string whole;
  std::string fraction;
};

Sides sidesOf(const Decimal& decimal) {
  if (decimal.digits.empty())
    return {};
  if (decimal.exponent < 0)
    return {"", std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') + decimal.digits};
  const auto places = static_cast<std::size_t>(decimal.exponent) + 1;
  if (decimal.digits.size() <= places)
    return {decimal.digits + std::string(places - decimal.digits.size(), '0'), ""};
  return {decimal.digits.substr(0, places), decimal.digits.substr(places)};
}

std::string scientific(const Decimal& decimal) {
  std::string text = decimal.digits.substr(0, 1);
  if (decimal.digits.size() > 1)
    text.append(".").append(decimal.digits, 1);
  const std::string exponent = std::to_string(std::abs(decimal.exponent));
  return text.append(decimal.exponent < 0 ? "E-" : "E+").append(exponent.size() < 2 ? "0" : "").append(exponent);
}

std::string plain(const Decimal& decimal) {
  const Sides sides = sidesOf(decimal);
  const std::string whole = sides.whole.empty() ? "0" : sides.whole;
  return sides.fraction.empty() ? whole : whole + "." + sides.fraction;
}

/// Adds one to a whole number written in digits: "99" becomes "100", "" becomes "1".
void addOne(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return;
    }
    *digit = '0';
  }
  digits.insert(0, 1, '1');
}

/// Rounds to so many places behind the point, half away from zero, and fills up to them.
void roundTo(Sides& sides, std::size_t places) {
  const bool up = sides.fraction.size() > places && sides.fraction[places] >= '5';
  sides.fraction.resize(places, '0');
  if (!up)
    return;
  std::string all = sides.whole + sides.fraction;
  addOne(all);
  sides.whole = all.substr(0, all.size() - places);
  sides.fraction = all.substr(all.size() - places);
}

bool isPlace(char c) {
  return c == '#' || c == '0';
}

/// Writes a whole number's digits from the right to the left, with a comma between every three when they are grouped.
class DigitsFromRight {
 public:
  DigitsFromRight(std::string digits, bool grouped) : left_(std::move(digits)), grouped_(grouped) {}

  bool empty() const { return left_.empty(); }
  void literal(char c) { reversed_.push_back(c); }
  /// Writes the next digit, or a zero when there is none left.
  void digit() {
    if (grouped_ && written_ > 0 && written_ % 3 == 0)
      reversed_.push_back(',');
    reversed_.push_back(left_.empty() ? '0' : left_.back());
    left_.resize(left_.empty() ? 0 : left_.size() - 1);
    ++written_;
  }
  void allDigits() {
    while (!empty())
      digit();
  }
  std::string text() const { return {reversed_.rbegin(), reversed_.rend()}; }

 private:
  std::string left_;
  bool grouped_;
  std::string reversed_;
  int written_ = 0;
};

/// The picture's part left of the point. Its leftmost place takes all the digits that are left: no picture cuts a
/// number.
std::string wholePart(std::string whole, std::string_view picture) {
  const std::size_t leftmost = picture.find_first_of("#0");
  DigitsFromRight digits(std::move(whole), picture.find(',') != std::string_view::npos);
  if (leftmost == std::string_view::npos)
    digits.allDigits();
  for (std::size_t i = picture.size(); i-- > 0;) {
    if (picture[i] == '0' || (picture[i] == '#' && !digits.empty()))
      digits.digit();
    else if (!isPlace(picture[i]) && picture[i] != ',')
      digits.literal(picture[i]);
    if (i == leftmost)
      digits.allDigits();
  }
  return digits.text();
}

/// The picture's part right of the point; behind its last "0" zeros at the end are not shown.
std::string fractionPart(std::string_view digits, std::string_view picture) {
  const std::size_t forced = picture.rfind('0') + 1;
  const std::size_t last = digits.find_last_not_of('0') + 1;
  std::string text;
  std::size_t place = 0;
  for (std::size_t i = 0; i < picture.size(); ++i) {
    if (!isPlace(picture[i]))
      text.push_back(picture[i]);
    else if (place++; i < forced || place <= last)
      text.push_back(digits[place - 1]);
  }
  return text;
}

template <class Integer>
Integer rounded(double number) {
  if (std::isnan(number))
    return 0;
  const double low = std::numeric_limits<Integer>::min();
  const double high = std::numeric_limits<Integer>::max();
  return static_cast<Integer>(std::clamp(std::nearbyint(number), low, high));
}

}  // namespace

double Val(std::string_view text) {
  const std::string number = NumberReader(text).read().number;
  if (number.empty())
    return 0;
  double value = 0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
  if (read.ec == std::errc::result_out_of_range)
    return outOfRange(number);
  return value == 0 ? 0 : value;
}

bool isNumber(std::string_view text) {
  const std::string_view trimmed = trim(text);
  if (trimmed.find_first_of(" \t") != std::string_view::npos)
    return false;
  const Spelled spelled = NumberReader(trimmed).read();
  return !spelled.number.empty() && spelled.end == trimmed.size();
}

std::string numberText(double number) {
  const Decimal decimal = decimalOf(number);
  const bool far = decimal.exponent >= significantDigits || decimal.exponent < -significantDigits;
  return (decimal.negative ? "-" : "") + (far ? scientific(decimal) : plain(decimal));
}

std::string numberPicture(double number, std::string_view picture) {
  if (picture.find_first_of("#0") == std::string_view::npos)
    return numberText(number).append(picture);
  const std::size_t point = std::min(picture.find('.'), picture.size());
  const std::string_view fraction = picture.substr(std::min(point + 1, picture.size()));
  const Decimal decimal = decimalOf(number);
  Sides sides = sidesOf(decimal);
  roundTo(sides, static_cast<std::size_t>(std::count_if(fraction.begin(), fraction.end(), isPlace)));
  const bool zero = (sides.whole + sides.fraction).find_first_not_of('0') == std::string::npos;
  std::string text = decimal.negative && !zero ? "-" : "";
  text += wholePart(sides.whole, picture.substr(0, point));
  if (point < picture.size())
    text.append(".").append(fractionPart(sides.fraction, fraction));
  return text;
}

std::int16_t CInt(double number) {
  return rounded<std::int16_t>(number);
}
std::int32_t CLng(double number) {
  return rounded<std::int32_t>(number);
}

}  // namespace zelvo
