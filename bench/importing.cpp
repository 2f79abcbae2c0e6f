#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>

#include "base/open_file.h"
#include "data/connection.h"
#include "measures.h"

namespace zelvo::bench {

namespace {

constexpr char fieldEnd = '\x1F', recordEnd = '\x1E';

/// The records of a text, a field for each column.
class Records {
 public:
  Records(std::string_view text, std::span<const Column> columns) : text_(text), columns_(columns) {}

  bool next(std::vector<Value>& row) {
    if (text_.empty())
      return false;
    std::string_view record = cut(text_, recordEnd);
    row.clear();
    for (const Column& column : columns_)
      row.push_back(valueOf(column, cut(record, fieldEnd)));
    ++count_;
    return true;
  }
  std::size_t count() const { return count_; }

 private:
  static std::string_view cut(std::string_view& text, char end) {
    const std::string_view part = text.substr(0, text.find(end));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return part;
  }

  static Value valueOf(const Column& column, std::string_view field) {
    if (field.empty())
      return {};
    const auto moment = column.type == ColumnType::Date ? parseIso(field) : std::nullopt;
    return moment ? Value(*moment) : Value(field);
  }

  std::string_view text_;
  std::span<const Column> columns_;
  std::size_t count_ = 0;
};

Result<std::size_t> importText(std::string_view text, const std::string& path) {
  const Table& permits = *findTable("BLDGPERM");
  if (auto made = createDatabase(path, permits); !made)
    return made.error();
  const auto connection = Connection::open(connectionText(path));
  if (!connection)
    return connection.error();
  std::vector<std::string_view> columns;
  for (const Column& column : permits.columns)
    columns.push_back(column.name);
  Records records(text, permits.columns);
  auto stored = bulkInsert(**connection, permits, columns, [&](auto& row) { return records.next(row); });
  if (!stored)
    return stored.error();
  return records.count();
}

}  // namespace

Result<std::string> importPermits(Arguments arguments) {
  const OpenFile file(arguments[0], O_RDONLY);
  struct stat state {};
  if (!file.isOpen() || ::fstat(file.handle(), &state) != 0)
    return Error{Trouble::NotFound, "The file " + arguments[0] + " cannot be read."};
  const auto size = static_cast<std::size_t>(state.st_size);
  void* bytes = ::mmap(nullptr, std::max<std::size_t>(size, 1), PROT_READ, MAP_PRIVATE, file.handle(), 0);
  if (bytes == MAP_FAILED)
    return Error{Trouble::Failed, "The file " + arguments[0] + " cannot be read."};
  const auto stored = importText({static_cast<const char*>(bytes), size}, arguments[1]);
  ::munmap(bytes, std::max<std::size_t>(size, 1));
  if (!stored)
    return stored.error();
  return std::to_string(*stored) + " permits stored";
}

}  // namespace zelvo::bench
