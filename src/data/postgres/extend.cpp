#include "data/postgres/extend.h"

#include "base/file_trouble.h"
#include "base/files.h"
#include "data/engine.h"
#include "data/postgres/schema.h"

namespace zelvo::postgres {

namespace {

Result<void> addColumns(Server& server, const Table& layout) {
  const auto there = tableThere(server, layout);
  if (!there)
    return there.error();
  if (!*there)
    return fileError(FileDeed::Write, server.path(), Trouble::NotFound, "the server does not hold its table",
                     "Open it once, then try again.");
  for (const Column& column : layout.columns)
    if (!(*there)->find(column.name))
      if (auto added = server.execute(columnAddition(layout, column)); !added)
        return added;
  return {};
}

}  // namespace

Result<void> extendOnServer(std::string_view path, const Table& layout) {
  auto place = serverPlace(folderOf(path));
  if (!place)
    return place.error();
  Server server(std::string(path), std::move(*place), usualPatience);
  if (auto connected = server.connect(); !connected)
    return connected;
  auto done = server.execute("begin; " + locking(server, layout));
  if (done)
    done = addColumns(server, layout);
  if (done)
    return server.execute("commit");
  if (!server.lost() && !server.idle())
    (void)server.execute("rollback").ok();
  return done;
}

}  // namespace zelvo::postgres
