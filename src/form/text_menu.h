#pragma once

#include <span>
#include <string_view>

#include "form/control.h"
#include "form/desk.h"

namespace zelvo {

// The menu that pops up over the text boxes of every screen.

struct TextMenuEntry {
  std::string_view name;     ///< "mcopy"
  std::string_view caption;  ///< "Copy"
};
/// Copy, paste, obtain from a file, save to a file.
std::span<const TextMenuEntry> textMenu();
bool isTextMenuEntry(std::string_view name);

/// Does what an entry says with the whole text of a box: copies it, puts the copied text behind it, puts the text of a
/// file in its place or saves it to a file. A box that takes no text now keeps what it has. The error says why nothing
/// was done; a picker that was cancelled is none.
Result<void> pickFromTextMenu(Desk& desk, TextBox& box, std::string_view entry);

}  // namespace zelvo
