#include "data/query_text.h"

#include "base/text.h"

namespace zelvo {

std::string columnIs(std::string_view column, std::string_view text) {
  return "[" + std::string(column) + "] = '" + replaceAll(text, "'", "''") + "'";
}

}  // namespace zelvo
