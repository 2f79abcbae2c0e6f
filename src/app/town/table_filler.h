#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "data/value.h"

namespace zelvo {

/// How a column of a table comes from what is invented of a record.
template <class Facts>
struct TownCell {
  std::string_view column;
  Value (*of)(const Facts&);
};

/// Makes the databases of the town's data folder and fills them, telling of its progress.
class TableFiller {
 public:
  TableFiller(std::string folder, std::ostream& progress) : folder_(std::move(folder)), progress_(progress) {}

  /// Makes the table's database and fills it with `count` records, each of which `factsOf` invents by its number from
  /// 0.
  template <class Facts>
  Result<void> fill(std::string_view table, std::span<const TownCell<Facts>> cells, std::size_t count,
                    const std::function<Facts(std::size_t)>& factsOf) {
    std::vector<std::string_view> columns;
    for (const TownCell<Facts>& cell : cells)
      columns.push_back(cell.column);
    return pour(table, columns, count, [&](std::size_t record, std::vector<Value>& row) {
      const Facts facts = factsOf(record);
      row.clear();
      for (const TownCell<Facts>& cell : cells)
        row.push_back(cell.of(facts));
    });
  }

 private:
  Result<void> pour(std::string_view table, const std::vector<std::string_view>& columns, std::size_t count,
                    const std::function<void(std::size_t, std::vector<Value>&)>& writeRow);

  std::string folder_;
  std::ostream& progress_;
};

}  // namespace zelvo
