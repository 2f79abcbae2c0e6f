#pragma once

#include <map>
#include <string>

#include "data/recordset.h"
#include "form/screen.h"

namespace zelvo {

/// What the boxes of a screen showed when a record was loaded, by box. A column whose box still shows the same is not
/// written again, so that saving never changes what nobody touched (a cost with more digits than its box takes).
using ShownBoxes = std::map<int, std::string>;

/// Copies the boxes of the current record to the screen, as the columns of its table say; gives what each box shows.
/// The section box shows section and suffix with a "." between them.
ShownBoxes recordToScreen(const Recordset& records, Screen& screen);

/// A column of the current record as its box shows it, and what a box holds into the row that is being added or
/// changed: cut to the column's width, a blank amount as 0, a blank date as none.
std::string shownText(const Recordset& records, const Column& column);
void storeText(Recordset& records, const Column& column, std::string_view text);

/// Writes the parcel of the current record, of whatever kind, into the boxes of a screen.
void showParcel(const Recordset& records, Screen& screen);

/// Copies the screen's boxes into the row that is being added or changed. The key column is not copied: code sets it.
/// A section with a "." is parted into section and suffix; one without leaves the suffix as it was.
void screenToRecord(const Screen& screen, Recordset& records, const ShownBoxes& before);

/// Limits what is typed into each box to the width of its column; amounts may be written with "$" and commas, and are
/// not.
void limitBoxes(const Table& table, Screen& screen);

/// "$12,500" as the plain number that the store reads, 12500; what is no amount of money stays as it was typed.
std::string plainAmount(std::string_view typed);

/// The trimmed text of a box Text1(n).
std::string boxText(const Screen& screen, int box);
void setBoxText(Screen& screen, int box, std::string_view text);

}  // namespace zelvo
