#pragma once

#include <chrono>
#include <cstddef>
#include <list>
#include <optional>
#include <span>

#include "data/engine.h"

namespace zelvo {

/// The rows that were looked at last, in pages of 100, a few pages at a time. A page is read anew when it is older than
/// a moment, so that a screen does not go on showing what another computer changed long since.
class RowPages {
 public:
  RowPages(Engine& engine, const Table& table) : engine_(engine), table_(table) {}

  /// The row at a position of the keys; an empty row when it is not in the store any more. Throws StoreError. Good
  /// until the next call.
  const Row& row(std::span<const RowId> keys, std::size_t position);
  /// The same without a throw: null when the store cannot be read, which is then taken as told for a moment. A list
  /// asks for many cells, and would wait for a locked file with each of them.
  const Row* rowIfReadable(std::span<const RowId> keys, std::size_t position);
  /// The row changed, or is to be seen as it is in the store now.
  void forget(std::size_t position);
  void forgetAll() { pages_.clear(); }

 private:
  struct Page {
    std::size_t number;
    std::chrono::nanoseconds read;  ///< when
    std::vector<Row> rows;
  };
  Page& pageOf(std::span<const RowId> keys, std::size_t number);
  Page fetch(std::span<const RowId> keys, std::size_t number);

  Engine& engine_;
  const Table& table_;
  std::list<Page> pages_;                           ///< the one used last in front
  std::optional<std::chrono::nanoseconds> failed_;  ///< when the store could not be read for a list
};

}  // namespace zelvo
