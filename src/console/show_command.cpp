#include "console/show_command.h"

namespace zelvo {

namespace {

bool isSeen(const Control& control) {
  const auto* entry = dynamic_cast<const MenuEntry*>(&control);
  return control.visible && (!entry || entry->menu.visible);
}

}  // namespace

void sayRows(std::string_view name, std::size_t rows, std::size_t columns,
             const std::function<std::string(std::size_t row, std::size_t column)>& cell, Conversation& talk) {
  talk.say(std::string(name) + ": " + std::to_string(rows) + " rows, " + std::to_string(columns) + " columns");
  for (std::size_t row = 0; row < rows; ++row) {
    std::string line;
    for (std::size_t column = 0; column < columns; ++column)
      line += (column == 0 ? "" : " | ") + cell(row, column);
    talk.say(line);
  }
}

void showControl(const Control& control, Conversation& talk) {
  if (const auto* list = dynamic_cast<const ListView*>(&control)) {
    const auto cell = [list](std::size_t row, std::size_t column) { return list->rows->cell(row, column); };
    return sayRows(list->id(), list->count(), list->columns.size(), cell, talk);
  }
  talk.say(control.id() + " = " + control.shown());
}

void showScreen(const Screen& screen, Conversation& talk) {
  for (const Control* control : screen.controls())
    if (isSeen(*control) && !control->shown().empty())
      showControl(*control, talk);
}

}  // namespace zelvo
