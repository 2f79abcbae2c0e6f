#pragma once

#include <string>
#include <string_view>

namespace zelvo {

/// "[PERMIT] = '25-134'": the condition that a column holds a text. The text may be anything that somebody typed: its
/// quotes are doubled, so that it stays one text of the query.
std::string columnIs(std::string_view column, std::string_view text);
/// "[OWNNAME1] like '%smith%'", with a pattern that is whole.
std::string columnLike(std::string_view column, std::string_view pattern);

/// The parts of "Select * from TABLE where CONDITION order by ORDER" as they were written; a part that is not there is
/// empty.
struct QueryParts {
  std::string condition;  ///< behind "where"
  std::string order;      ///< behind "order by"
};
QueryParts queryParts(std::string_view query);

}  // namespace zelvo
