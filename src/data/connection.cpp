#include "data/connection.h"

#include "base/file_trouble.h"
#include "base/files.h"
#include "base/text.h"
#include "data/engine.h"
#include "data/moving/table_copy.h"
#include "data/postgres/postgres_engine.h"
#include "data/server_folder.h"
#include "data/sqlite/create.h"
#include "data/sqlite/sqlite_engine.h"

namespace zelvo {

namespace {

constexpr std::string_view source = "data source=";

/// The path of a connection text. A path may hold a ";", so all up to the last one is taken.
Result<std::string> pathOf(std::string_view connectionText) {
  const auto at = lower(connectionText).find(source);
  std::string_view path = at == std::string::npos ? std::string_view() : connectionText.substr(at + source.size());
  path = trim(path);
  if (path.ends_with(';'))
    path.remove_suffix(1);
  if (trim(path).empty())
    return Error{Trouble::BadInput, "The connection text \"" + std::string(connectionText) +
                                        "\" names no database. It must hold \"Data Source=\" and the path of a file."};
  return std::string(trim(path));
}

bool liesOnServer(std::string_view path) {
  return keepsOnServer(folderOf(path));
}

}  // namespace

Result<std::unique_ptr<Engine>> openEngine(std::string_view path, std::chrono::milliseconds patience) {
  return liesOnServer(path) ? postgres::openEngine(path, patience) : sqlite::openEngine(path, patience);
}

Result<std::shared_ptr<Connection>> Connection::open(std::string_view connectionText) {
  const auto path = pathOf(connectionText);
  if (!path)
    return path.error();
  auto engine = openEngine(*path);
  if (!engine)
    return engine.error();
  return std::shared_ptr<Connection>(new Connection(std::move(*engine)));
}

Connection::Connection(std::unique_ptr<Engine> engine) : engine_(std::move(engine)) {}
Connection::~Connection() = default;

const std::string& Connection::path() const {
  return engine_->path();
}

bool Connection::inItsPlace() const {
  return engine_->inItsPlace().ok();
}

Result<const Table*> Connection::table(std::string_view name) {
  return engine_->table(name);
}

Result<bool> Connection::exists(std::string_view name, std::string_view condition) {
  const auto found = engine_->table(name);
  if (!found)
    return found.error();
  return engine_->exists(**found, condition);
}

// ---- transactions

Result<Connection::Transaction> Connection::begin(const std::vector<std::string>& along) {
  std::vector<std::string> paths;
  for (const std::string& text : along) {
    auto path = pathOf(text);
    if (!path)
      return path.error();
    paths.push_back(std::move(*path));
  }
  if (auto begun = engine_->begin(paths); !begun)
    return begun.error();
  return Transaction(*this);
}

Connection::Transaction::Transaction(Transaction&& other) noexcept
    : connection_(std::exchange(other.connection_, nullptr)) {}

Connection::Transaction::~Transaction() {
  rollback();
}

Result<void> Connection::Transaction::commit() {
  if (!connection_)
    return Error{Trouble::Failed, "The changes were stored or given up before. Try them again as a whole."};
  return std::exchange(connection_, nullptr)->engine().commit();
}

void Connection::Transaction::rollback() {
  if (connection_)
    std::exchange(connection_, nullptr)->engine().rollback();
}

// ---- whole databases

Result<void> createDatabase(std::string_view path, const Table& table) {
  return liesOnServer(path) ? postgres::createOnServer(path, table) : sqlite::createFile(path, table);
}

namespace {

Result<void> copyOffServer(std::string_view from, std::string_view to) {
  const auto engine = openEngine(from);
  if (!engine)
    return engine.error();
  const auto table = (*engine)->table(findTableOfFile(fileNameOf(from))->name);
  if (!table)
    return table.error();
  return sqlite::createFile(to, **table, [&](Engine& file) { return copyRows(**engine, **table, file); });
}

}  // namespace

Result<void> copyDatabase(std::string_view from, std::string_view to) {
  if (liesOnServer(to))
    return fileError(FileDeed::Write, to, Trouble::BadInput, "the tables of its folder lie on a server",
                     "Choose another folder, or have them restored there.");
  return liesOnServer(from) ? copyOffServer(from, to) : sqlite::copyDatabaseFile(from, to);
}

Result<void> bulkInsert(Connection& connection, const Table& table, const std::vector<std::string_view>& columns,
                        const std::function<bool(std::vector<Value>&)>& nextRow) {
  std::vector<std::size_t> positions;
  for (const std::string_view column : columns) {
    positions.push_back(table.position(column));
    if (positions.back() == table.columns.size())
      return Error{Trouble::BadInput, "The rows cannot be stored in \"" + connection.path() + "\": the table " +
                                          std::string(table.name) + " has no column " + std::string(column) + "."};
  }
  return connection.engine().insertMany(table, positions, nextRow);
}

}  // namespace zelvo
