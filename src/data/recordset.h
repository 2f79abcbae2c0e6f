#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "data/connection.h"
#include "data/value.h"

namespace zelvo {

/// The store failed while a row was read, or a field was read where no row is. Ends the operation at hand.
class StoreError : public std::runtime_error {
 public:
  explicit StoreError(const Error& error) : std::runtime_error(error.message), trouble(error.trouble) {}
  Trouble trouble;
};

/// The rows that a query of the office's dialect selects, in its order, with one row current. Opening reads the keys of
/// all rows at once (8 bytes a row) and leaves no statement open; full rows come in pages as they are looked at.
class Recordset {
 public:
  /// Stands on the first row, or at the end when there is none. Errors carry the text of the query.
  static Result<std::unique_ptr<Recordset>> open(std::shared_ptr<Connection> connection, std::string_view query);
  ~Recordset();

  const Table& table() const;
  std::size_t fieldCount() const;  ///< the columns that the table really has

  // Where it stands.
  bool Eof() const;
  bool Bof() const;
  std::size_t RecordCount() const;
  std::size_t AbsolutePosition() const;  ///< from 1; 0 when no row is current
  using Bookmark = std::int64_t;
  Bookmark bookmark() const;                ///< names the current row, good while the recordset lives; -1 when none is
  bool goTo(Bookmark bookmark);             ///< false, and nothing moved, when the row is not there
  bool goToPosition(std::size_t position);  ///< from 1

  // Moving leaves a row that was added or changed and not stored: it is dropped.
  void MoveFirst();
  void MoveLast();
  void MoveNext();      ///< past the last row stands at the end
  void MovePrevious();  ///< before the first row stands at the beginning
  /// Forward from the current row, the current one included, to a row that answers "[COL] = 'x'" (any condition of the
  /// dialect); else to the end.
  Result<bool> Find(std::string_view criterion);
  /// Reads the keys anew, as another computer may have added rows; stays on its row when that is still there.
  Result<void> Refresh();

  // The current row. Reading where no row is throws StoreError; an unknown field does too.
  Value get(std::string_view field) const;
  std::string text(std::string_view field) const { return get(field).text(); }
  /// A cell of any row, without moving: for lists. Rows come in pages of 100. Null for a row that is not there (any
  /// more).
  Value cell(std::size_t position, std::size_t column) const;  ///< position from 0
  /// The same for a list that is being painted, as the screens show it: nothing can be told there, so a store that
  /// cannot be read shows as an empty text, and is not asked again for a moment. Never throws StoreError.
  std::string shownCell(std::size_t position, std::size_t column) const;

  /// So many of the rows that were added last, the newest first, without moving; fewer when there are no more.
  std::vector<std::vector<Value>> newest(std::size_t count) const;

  /// Starts an empty row. It is stored by Update, or dropped by CancelUpdate or any move.
  void AddNew();
  /// Changes the current row, or the one begun by AddNew. Values fit the column: texts are cut to its length, a text
  /// for a date column is read as a date, for a number column as its lenient number. A text that is no date, an unknown
  /// field and the counter of a stored row throw StoreError; the row then stays as it was.
  void set(std::string_view field, const Value& value);
  /// Stores the row. Trouble::Duplicate when its key is in use; Trouble::Conflict when someone else changed the row
  /// since it was read (nothing is overwritten; currentInStore gives their values). After a failure the row stays as it
  /// was typed, and Update can be tried again. So it does when the transaction that the row was stored in is given up.
  Result<void> Update();
  void CancelUpdate();
  bool adding() const;
  /// Removes the current row; the one behind it is then current. Trouble::Conflict as with Update; throws StoreError
  /// where no row is current, as while one is added.
  Result<void> Delete();
  /// The row as it lies in the store now, in column order; for showing a conflict.
  Result<std::vector<Value>> currentInStore() const;

 private:
  struct Inside;
  explicit Recordset(std::unique_ptr<Inside> inside);
  std::unique_ptr<Inside> inside_;
};

}  // namespace zelvo
