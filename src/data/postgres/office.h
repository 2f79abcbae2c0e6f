#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "data/postgres/postgres_engine.h"
#include "data/postgres/schema.h"

namespace zelvo::postgres {

/// All tables of an office on a server as one store, for moving them as a whole. Its transaction keeps every computer,
/// and every other program, from changing any of them and from making new ones.
class Office : public PostgresEngine {
 public:
  /// An office that is there already must have its folder's word for it; a new one is in nobody's folder yet.
  enum class Kind { Settled, New };
  /// Connects. Errors name the file `path`.
  static Result<std::unique_ptr<Office>> open(std::string_view path, ServerPlace place, Kind kind);

  const std::string& schema() { return server().schema(); }
  /// The tables that are there, in the layouts that they have; within a transaction nobody makes others.
  Result<std::vector<const Table*>> tablesThere();
  Result<const Table*> tableThere(const Table& table) { return postgres::tableThere(server(), table); }
  /// Makes a table, and the schema where it is missing, as part of the transaction. Trouble::Duplicate when the table
  /// is there.
  Result<void> make(const Table& table) { return makeTableWithin(server(), table); }
  Result<bool> hasRows(const Table& table);
  Result<void> inItsPlace() const override;

 protected:
  Result<void> takeForWriting() override;

 private:
  Office(std::unique_ptr<Server> server, Kind kind);

  Kind kind_;
};

}  // namespace zelvo::postgres
