#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/engine.h"
#include "data/recordset.h"
#include "data/row_pages.h"

namespace zelvo {

/// What a recordset holds: the keys of its rows, where it stands, the row as it was read and the row as it is typed.
struct Recordset::Inside {
  Inside(std::shared_ptr<Connection> opened, std::string text, Keyset keyset);

  Engine& engine() const { return connection->engine(); }
  std::ptrdiff_t end() const { return static_cast<std::ptrdiff_t>(keys.size()); }
  bool onRow() const { return place >= 0 && place < end(); }
  /// Of the current row; noRow when none is.
  RowId key() const { return onRow() ? keys[static_cast<std::size_t>(place)] : noRow; }
  static constexpr RowId noRow = -1;

  /// Moves, dropping what was typed and not stored.
  void leaveTo(std::ptrdiff_t position);
  void dropTyped();
  /// Where the row stands; the end when it is not among the keys. Looks at `from` and what follows it.
  std::ptrdiff_t placeOf(RowId row, std::ptrdiff_t from = 0) const;

  std::size_t columnOf(std::string_view field) const;
  /// The current row as it was read; throws StoreError where none is, as while a row is added.
  const Row& read();

  Result<void> storeAdded();
  Result<void> storeChanged();

  /// A change made in a transaction that is still open, so that it can be taken back when that is given up.
  struct Change {
    enum class Kind { Added, Changed, Removed } kind;
    RowId key;
    std::ptrdiff_t place;  ///< where it stood before the change
    Row before;            ///< as it was read
    Row typed;
  };
  void note(Change change);
  /// To be called before anything else is done: takes the noted changes back when their transaction was given up.
  void settle();
  void takeBack();
  void takeBackKey(const Change& change);
  void typeAgain(RowId row, Row values);

  std::shared_ptr<Connection> connection;
  std::string query;
  const Table& table;
  std::vector<RowId> keys;
  std::ptrdiff_t place = 0;    ///< -1 before the first row, end() behind the last
  std::optional<Row> current;  ///< the row as it was read since the last move
  std::optional<Row> typed;
  bool adding = false;
  RowPages pages;

  std::shared_ptr<const Outcome> transaction;  ///< of the noted changes
  std::vector<Change> changes;
  bool stayed = false;  ///< nothing was moved or typed since the last noted change
};

}  // namespace zelvo
