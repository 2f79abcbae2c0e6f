#include "app/town/table_filler.h"

#include "base/files.h"
#include "data/catalogue.h"
#include "data/connection.h"

namespace zelvo {

namespace {

constexpr std::size_t kToldEvery = 100'000;

}  // namespace

Result<void> TableFiller::pour(std::string_view table, const std::vector<std::string_view>& columns, std::size_t count,
                               const std::function<void(std::size_t, std::vector<Value>&)>& writeRow) {
  const Table* description = findTable(table);
  if (!description)
    return Error{Trouble::NotFound, "The catalogue knows no table " + std::string(table) + "."};
  const std::string path = joinPath(folder_, description->file);
  if (auto made = createDatabase(path, *description); !made)
    return made;
  auto connection = Connection::open(connectionText(path));
  if (!connection)
    return connection.error();
  std::size_t record = 0;
  auto stored = bulkInsert(**connection, *description, columns, [&](std::vector<Value>& row) {
    if (record == count)
      return false;
    writeRow(record++, row);
    if (record % kToldEvery == 0)
      progress_ << description->file << ": " << record << " of " << count << std::endl;
    return true;
  });
  if (stored)
    progress_ << description->file << ": " << count << " records" << std::endl;
  return stored;
}

}  // namespace zelvo
