#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "console/conversation.h"
#include "form/screen.h"

namespace zelvo {

/// "NAME: 2 rows, 5 columns", then one line a row, its cells separated by " | ".
void sayRows(std::string_view name, std::size_t rows, std::size_t columns,
             const std::function<std::string(std::size_t row, std::size_t column)>& cell, Conversation& talk);

/// What a control shows, empty or not: "Text1(18) = Smith, John", or the rows of a list.
void showControl(const Control& control, Conversation& talk);

/// Every control of the screen that the user sees and that is not empty, in the order of the Tab key.
void showScreen(const Screen& screen, Conversation& talk);

}  // namespace zelvo
