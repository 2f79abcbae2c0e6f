#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "data/recordset.h"

namespace zelvo {

/// What the office typed into the columns of a table lately, to be offered while somebody types the same again. It
/// looks at the records that were added last, and reads those once: however large the table, typing does not wait.
class TypedBefore {
 public:
  /// Whether a column is worth it: names, addresses, phones; not codes of a few letters, numbers or dates.
  static bool offers(const Column& column);

  /// Reads the records added last anew.
  void read(const Recordset& records);
  bool empty() const { return rows_.empty(); }
  /// At most a handful of texts of the column that begin so, in any case, what was typed most often in front, of two
  /// alike the later one. A text that is there already is not offered.
  /// Of a column whose texts begin behind a mark, `from` says how many characters that has.
  std::vector<std::string> beginning(const Table& table, std::string_view column, std::string_view typed,
                                     std::size_t from = 0);

 private:
  const std::vector<std::string>& textsOf(std::size_t column, std::size_t from);

  std::vector<std::vector<Value>> rows_;                    // the newest first
  std::map<std::size_t, std::vector<std::string>> ranked_;  // by column, once somebody types into it
};

/// Whether a text begins with what is typed, in any case.
bool beginsAlike(std::string_view text, std::string_view typed);

}  // namespace zelvo
