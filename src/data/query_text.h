#pragma once

#include <string>
#include <string_view>

namespace zelvo {

/// "[PERMIT] = '25-134'": the condition that a column holds a text. The text may be anything that somebody typed: its
/// quotes are doubled, so that it stays one text of the query.
std::string columnIs(std::string_view column, std::string_view text);

}  // namespace zelvo
