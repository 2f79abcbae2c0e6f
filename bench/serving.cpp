#include <iostream>
#include <limits>

#include "base/files.h"
#include "data/engine.h"
#include "data/recordset.h"
#include "data/server_folder.h"
#include "data_server/test_server.h"
#include "measures.h"

namespace zelvo::bench {

namespace {

Result<void> copyRows(const std::string& from, const std::string& to, const Table& table) {
  const auto source = Connection::open(connectionText(from));
  const auto target = source ? Connection::open(connectionText(to)) : source.error();
  if (!target)
    return target.error();
  const auto rows = (*source)->engine().everyRow(table);
  if (!rows)
    return rows.error();
  std::vector<std::string_view> columns;
  for (const Column& column : table.columns)
    columns.push_back(column.name);
  Result<void> read;
  auto stored = bulkInsert(**target, table, columns, [&](std::vector<Value>& row) {
    const auto more = (*rows)->next(row);
    read = more ? Result<void>() : more.error();
    return more.valueOr(false);
  });
  return stored ? read : stored;
}

}  // namespace

Result<std::string> serve(Arguments arguments) {
  const std::string &folder = arguments[0], &database = arguments[1];
  const TestServer& server = TestServer::instance();
  if (!server.lacking().empty())
    return Error{Trouble::NotFound, server.lacking()};
  if (auto written = writeLines(joinPath(folder, "server.txt"), {server.line()}); !written)
    return written.error();
  const Table& permits = *findTable("BLDGPERM");
  if (auto copied = copyRows(database, joinPath(folder, permits.file), permits); !copied)
    return copied.error();
  const auto place = serverPlace(folder);
  if (!place)
    return place.error();
  server.elsewhere("vacuum analyze \"" + place->schema + "\".\"" + std::string(permits.name) + "\"");
  std::cout << server.line() << "\n" << place->schema << std::endl;
  std::cin.ignore(std::numeric_limits<std::streamsize>::max());
  return std::string("ended");
}

}  // namespace zelvo::bench
