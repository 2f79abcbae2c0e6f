#pragma once

#include <string>
#include <string_view>

#include "shell/setting_lines.h"

namespace zelvo {

// One line of a settings file, to and from the session.

/// Puts what the line says into the session; a line that only copies another file's says nothing.
void readLine(const SettingLine& setting, std::string_view line, Session& session);
/// The line that says what the session holds. It is one line whatever was typed: a line break within would shift all
/// values after it.
std::string writtenLine(const SettingLine& setting, const Session& session);
/// A text of a list as it goes on a line of its own.
std::string withoutLineBreaks(std::string_view text);

/// Fills the session with the lines that a new office begins with.
void readPresets(const SettingFile& file, Session& session);

}  // namespace zelvo
