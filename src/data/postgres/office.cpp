#include "data/postgres/office.h"

#include "data/dialect/postgres_writer.h"
#include "data/postgres/schema.h"

namespace zelvo::postgres {

namespace {

std::vector<const Table*> everyTable() {
  std::vector<const Table*> tables;
  for (const Table& table : catalogue())
    tables.push_back(&table);
  return tables;
}

}  // namespace

Result<std::unique_ptr<Office>> Office::open(std::string_view path, ServerPlace place, Kind kind) {
  auto server = std::make_unique<Server>(std::string(path), std::move(place), usualPatience);
  if (auto connected = server->connect(); !connected)
    return connected.error();
  return std::unique_ptr<Office>(new Office(std::move(server), kind));
}

Office::Office(std::unique_ptr<Server> server, Kind kind)
    : PostgresEngine(std::move(server), everyTable()), kind_(kind) {}

// In the order of the catalogue, as everywhere in the office: permits before the parcels that they belong to.
Result<void> Office::takeForWriting() {
  std::string sql = "begin; ";
  for (const Table& table : catalogue())
    sql += locking(server(), table) + "; ";
  if (auto taken = server().execute(sql + lockingTheSchema(server())); !taken)
    return taken;
  const auto there = tablesThere();
  if (!there)
    return there.error();
  for (const Table* table : *there)
    if (auto locked = server().execute("lock table " + dialect::quotedName(table->name) + " in exclusive mode");
        !locked)
      return locked;
  return {};
}

Result<void> Office::inItsPlace() const {
  return kind_ == Kind::New ? Result<void>() : PostgresEngine::inItsPlace();
}

Result<std::vector<const Table*>> Office::tablesThere() {
  std::vector<const Table*> there;
  for (const Table& table : catalogue()) {
    const auto found = tableThere(table);
    if (!found)
      return found.error();
    if (*found)
      there.push_back(*found);
  }
  return there;
}

Result<bool> Office::hasRows(const Table& table) {
  const auto answer =
      server().ask(FileDeed::Read, "select exists(select 1 from " + dialect::quotedName(table.name) + ")");
  if (!answer)
    return answer.error();
  return answer->text(0, 0) == "t";
}

}  // namespace zelvo::postgres
