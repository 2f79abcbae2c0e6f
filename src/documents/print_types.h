#pragma once

#include <optional>
#include <string_view>

#include "form/ports.h"

namespace zelvo {

// Printout types whose names begin with "ID ", such as "ID Card", go onto paper of their own, card or stickers, and
// have margins and a font size of their own. They lie in "\idtypes.txt" of the program folder, as the printer belongs
// to the computer: a line a type, with its name, its left, top, right and bottom margin in inches, and its font size.

/// Whether a type has margins of its own.
bool hasOwnMargins(std::string_view type);

/// The options with the margins and the font size under which the type was printed last; nothing when it never was.
std::optional<PrintOptions> optionsOfType(std::string_view programFolder, std::string_view type, PrintOptions options);

/// Keeps the margins and the font size of the options for the next time that their type is chosen.
Result<void> keepOptionsOfType(std::string_view programFolder, const PrintOptions& options);

}  // namespace zelvo
