#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/recordset.h"
#include "form/control.h"

namespace zelvo {

/// Boxes of a record page that show a column under names of their own, because the catalogue gives that column no box.
/// Most are seldom filled: what a box shows untouched is never written again, and a box that a new record leaves blank
/// leaves its column to the store.
class OwnBoxes {
 public:
  /// The box is shown, stored and sought by its column, whose width limits it. One of a date takes dates typed short.
  void add(TextBox& box, std::string_view table, std::string_view column);
  /// The kind of record itself copies this one, whose text begins behind so many characters of the column's.
  void know(Control& control, std::string_view table, std::string_view column, std::size_t from = 0);

  void show(const Recordset& record);
  void store(Recordset& record) const;
  /// Blanks the boxes, for a new record.
  void clear();
  /// The boxes show what a record is to begin with: all of it is stored.
  void beginCopy();
  /// A box that holds no date and should; null when there is none.
  TextBox* unreadable() const;
  /// The boxes of amounts of money.
  std::vector<TextBox*> amounts() const;
  /// Their pieces of a search, each ending in " AND ".
  std::string clauses() const;

  struct Box {
    Control* control;
    TextBox* copied;  ///< null where the kind of record copies
    const Column* column;
    std::size_t from;
    std::string shown;
  };
  const std::vector<Box>& all() const { return boxes_; }
  const Box* of(const Control& control) const;
  const Box* of(const Column& column) const;

 private:
  std::vector<Box> boxes_;
};

}  // namespace zelvo
