#include "form/control.h"

#include "base/number.h"
#include "base/text.h"
#include "form/screen.h"

namespace zelvo {

namespace {

Error cannotTake(const Control& control, std::string_view value, std::string_view wanted) {
  return {Trouble::BadInput,
          control.id() + " cannot take \"" + std::string(value) + "\": " + std::string(wanted) + "."};
}

Result<bool> readTick(const Control& control, std::string_view value) {
  if (value == "1" || value == "0")
    return value == "1";
  return cannotTake(control, value, "it is ticked with 1 and cleared with 0");
}

// A number from 1 up to `count`, as the user counts; none when the text is no such number.
std::optional<std::size_t> ordinal(std::string_view text, std::size_t count) {
  const std::string digits(trim(text));
  if (digits.empty() || digits.size() > 9 || digits.find_first_not_of("0123456789") != std::string::npos)
    return std::nullopt;
  const std::size_t number = std::stoul(digits);
  if (number < 1 || number > count)
    return std::nullopt;
  return number - 1;
}

}  // namespace

Control::Control(Screen& screen, std::string_view name, int index) : screen_(screen), name_(name), index_(index) {
  screen.add(*this);
}

std::string Control::id() const {
  return index_ == kAlone ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

Result<void> Control::enter(std::string_view value) {
  if (locked)
    return cannotTake(*this, value, "it only shows what is stored");
  return take(value);
}

Result<void> Control::take(std::string_view value) {
  return cannotTake(*this, value, "nothing can be typed into it");
}

Label::Label(Screen& screen, std::string_view name, std::string_view text, int index)
    : Control(screen, name, index), caption(text) {}

std::string TextBox::shown() const {
  return password ? std::string(length(text), '*') : text;
}

Result<void> TextBox::take(std::string_view value) {
  if (!manyLines && value.find_first_of("\r\n") != std::string_view::npos)
    return cannotTake(*this, value, "it holds one line");
  text = value;
  return {};
}

bool TextBox::tidyDate() {
  if (!holdsDate || trim(text).empty())
    return true;
  const auto date = typedDate(text, screen().today());
  if (date)
    text = datePicture(*date, "mm/dd/yyyy");
  return date.has_value();
}

Button::Button(Screen& screen, std::string_view name, std::string_view text, int index)
    : Control(screen, name, index), caption(text) {}

CheckBox::CheckBox(Screen& screen, std::string_view name, std::string_view text, int index)
    : Control(screen, name, index), caption(text) {}

Result<void> CheckBox::take(std::string_view value) {
  const auto tick = readTick(*this, value);
  if (!tick)
    return tick.error();
  checked = *tick;
  return {};
}

Option::Option(Screen& screen, std::string_view name, std::string_view text, std::string_view groupName, int index)
    : Control(screen, name, index), caption(text), group(groupName) {}

// Choosing one of a group takes the mark from the others; none can be cleared by itself.
Result<void> Option::take(std::string_view value) {
  const auto tick = readTick(*this, value);
  if (!tick)
    return tick.error();
  if (!*tick)
    return cannotTake(*this, value, "choose another one of its group instead");
  for (Control* control : screen().controls())
    if (auto* option = dynamic_cast<Option*>(control); option && option->group == group)
      option->chosen = option == this;
  return {};
}

Result<void> Combo::take(std::string_view value) {
  for (const std::string& item : items)
    if (alike(item, value)) {
      text = item;
      return {};
    }
  if (!freeText && !value.empty())
    return cannotTake(*this, value, "it is not in its list");
  text = value;
  return {};
}

std::string DatePicker::shown() const {
  return date ? datePicture(*date, "mm/dd/yyyy") : "";
}

Result<void> DatePicker::take(std::string_view value) {
  if (trim(value).empty()) {
    date.reset();
    return {};
  }
  const auto read = typedDate(value, screen().today());
  if (!read)
    return cannotTake(*this, value, kDateWays);
  date = read;
  return {};
}

std::string MemoryRows::cell(std::size_t row, std::size_t column) const {
  return row < rows.size() && column < rows[row].size() ? rows[row][column] : "";
}

std::string ListView::shown() const {
  if (count() == 0)
    return "";
  return std::to_string(count()) + " rows, " + std::to_string(columns.size()) + " columns";
}

std::optional<std::size_t> ListView::findRow(std::string_view numberOrText) const {
  if (const auto row = ordinal(numberOrText, count()))
    return row;
  for (std::size_t row = 0; row < count(); ++row)
    if (alike(trim(rows->cell(row, 0)), trim(numberOrText)))
      return row;
  return std::nullopt;
}

Tabs::Tabs(Screen& screen, std::string_view name, std::vector<std::string> captions)
    : Control(screen, name), pages(std::move(captions)) {}

Result<void> Tabs::take(std::string_view value) {
  for (std::size_t page = 0; page < pages.size(); ++page)
    if (alike(replaceAll(pages[page], "&", ""), replaceAll(value, "&", ""))) {
      current = page;
      return {};
    }
  const auto page = ordinal(value, pages.size());
  if (!page)
    return cannotTake(*this, value, "it has no such page");
  current = *page;
  return {};
}

Menu::Menu(Screen& screen, std::string_view name, std::string_view text, bool bar)
    : Control(screen, name), caption(text), onBar(bar) {}

MenuEntry::MenuEntry(Screen& screen, Menu& owner, std::string_view name, std::string_view text)
    : Control(screen, name), menu(owner), caption(text) {}

}  // namespace zelvo
