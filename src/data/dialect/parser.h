#pragma once

#include <string_view>

#include "base/result.h"
#include "data/dialect/syntax.h"

namespace zelvo::dialect {

// Reads the office's queries. Names are not looked up here: only whoever writes the statement for an engine knows the
// table. What cannot be read is Trouble::BadInput; the message names the place and holds the text of the query.

/// "Select * from BLDGPERM where [SEC] = '12' AND[BLK] = '3' order by [PERMIT]"
Result<Select> parseSelect(std::string_view text);
/// "[PERMIT] = '25-134'"
Result<Condition> parseCondition(std::string_view text);

}  // namespace zelvo::dialect
