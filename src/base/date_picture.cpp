#include <algorithm>

#include "base/date.h"
#include "base/date_names.h"
#include "base/text.h"

namespace zelvo {

namespace {

std::string padded(int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

std::string monthText(int month, std::size_t letters) {
  const std::string_view name = monthNames[static_cast<std::size_t>(month - 1)];
  return letters <= 2 ? padded(month, letters) : std::string(letters == 3 ? name.substr(0, 3) : name);
}

std::string dayText(Date date, std::size_t letters) {
  const std::string_view name = dayNames[static_cast<std::size_t>(weekday(date))];
  return letters <= 2 ? padded(date.day, letters) : std::string(letters == 3 ? name.substr(0, 3) : name);
}

/// Writes a moment in a picture, part by part from the left.
class PictureWriter {
 public:
  PictureWriter(const DateTime& moment, std::string_view picture)
      : moment_(moment), picture_(picture), folded_(lower(picture)), halves_(hasHalves()) {}

  std::string write() {
    while (position_ < picture_.size()) {
      if (!takeHalf())
        takePart();
    }
    return text_;
  }

 private:
  bool hasHalves() const {
    return folded_.find("ampm") != std::string::npos || folded_.find("am/pm") != std::string::npos;
  }

  /// AM or PM, which leaves the hour before it standing as the last part.
  bool takeHalf() {
    for (const std::string_view half : {"ampm", "am/pm"}) {
      if (folded_.compare(position_, half.size(), half) != 0)
        continue;
      text_ += moment_.second < 12 * 3600 ? "AM" : "PM";
      position_ += half.size();
      return true;
    }
    return false;
  }

  void takePart() {
    const char letter = folded_[position_];
    if (std::string_view("mdyhs").find(letter) == std::string_view::npos) {
      text_.push_back(picture_[position_++]);
      return;
    }
    const std::size_t end = std::min(folded_.find_first_not_of(letter, position_), folded_.size());
    text_ += part(letter, end - position_);
    afterHour_ = letter == 'h';
    position_ = end;
  }

  std::string part(char letter, std::size_t letters) const {
    const std::size_t two = std::min<std::size_t>(letters, 2);
    switch (letter) {
      case 'd':
        return dayText(moment_.date, letters);
      case 'y':
        return letters > 2 ? padded(moment_.date.year, 4) : padded(moment_.date.year % 100, 2);
      case 'h':
        return padded(hour(), two);
      case 's':
        return padded(moment_.second % 60, two);
      default:
        return afterHour_ ? padded(moment_.second / 60 % 60, two) : monthText(moment_.date.month, letters);
    }
  }

  int hour() const {
    const int full = moment_.second / 3600;
    return halves_ ? (full + 11) % 12 + 1 : full;
  }

  const DateTime& moment_;
  std::string_view picture_;
  std::string folded_;
  bool halves_;
  bool afterHour_ = false;
  std::size_t position_ = 0;
  std::string text_;
};

}  // namespace

std::string datePicture(const DateTime& moment, std::string_view picture) {
  return moment.date.valid() ? PictureWriter(moment, picture).write() : "";
}

std::string datePicture(Date date, std::string_view picture) {
  return datePicture(DateTime{date, 0}, picture);
}

std::string timeText(const DateTime& moment) {
  return datePicture(moment, "h:mm:ss AM/PM");
}

namespace {

/// Over the zeros that end there.
void putDigits(std::string& text, std::size_t end, std::size_t width, int number) {
  for (; width > 0; --width, number /= 10)
    text[--end] = static_cast<char>('0' + number % 10);
}

}  // namespace

// These two by hand: every date that is shown in a list or stored passes here, and to read a picture for each is seen.

std::string shortDate(Date date) {
  if (!date.valid())
    return "";
  std::string text = "00/00/0000";
  putDigits(text, 2, 2, date.month);
  putDigits(text, 5, 2, date.day);
  putDigits(text, 10, 4, date.year);
  if (date.day < 10)
    text.erase(3, 1);
  if (date.month < 10)
    text.erase(0, 1);
  return text;
}

std::string isoText(const DateTime& moment) {
  std::string text = moment.second == 0 ? "0000-00-00" : "0000-00-00 00:00:00";
  putDigits(text, 4, 4, moment.date.year);
  putDigits(text, 7, 2, moment.date.month);
  putDigits(text, 10, 2, moment.date.day);
  if (moment.second == 0)
    return text;
  putDigits(text, 13, 2, moment.second / 3600);
  putDigits(text, 16, 2, moment.second / 60 % 60);
  putDigits(text, 19, 2, moment.second % 60);
  return text;
}

}  // namespace zelvo
