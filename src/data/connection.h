#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "data/catalogue.h"
#include "data/value.h"

namespace zelvo {

class Engine;  // one of the stores behind the door

/// The small door to the store: a connection to one database, opened on its connection text. Nobody above knows which
/// engine stands behind it. Connections are not shared between screens.
class Connection {
 public:
  /// Opens the database that a connection text names ("PROVIDER=...;Data Source=<path>;"): the file, which must exist,
  /// or its table on the server that the folder names, which is made at need. Errors say what the file is when it is no
  /// database of ours, and what to do.
  static Result<std::shared_ptr<Connection>> open(std::string_view connectionText);
  ~Connection();

  const std::string& path() const;
  /// False once the office's records were moved to another store: what is read here is of yesterday, and nothing is
  /// stored any more.
  bool inItsPlace() const;
  /// The description of the table that the database holds; the parcel table in the layout it really has.
  Result<const Table*> table(std::string_view name);

  /// From begin to commit everything that is stored through this connection is stored whole or not at all, and no other
  /// computer writes to it meanwhile. A transaction that is given up (or destroyed) leaves nothing behind.
  class Transaction {
   public:
    Transaction(Transaction&&) noexcept;
    Transaction& operator=(Transaction&&) = delete;
    ~Transaction();
    Result<void> commit();
    void rollback();

   private:
    friend class Connection;
    explicit Transaction(Connection& connection) : connection_(&connection) {}
    Connection* connection_;
  };
  /// The tables of the databases `along`, by their connection texts, are reached through this connection until the
  /// transaction ends, and stored with it. They must be there, and in the same store.
  Result<Transaction> begin(const std::vector<std::string>& along = {});

  /// Whether a row answers the condition, in the office's dialect ("[PERMIT] = '25-134'"), by its index where there is
  /// one.
  Result<bool> exists(std::string_view table, std::string_view condition);

  Engine& engine() { return *engine_; }

 private:
  explicit Connection(std::unique_ptr<Engine> engine);
  std::unique_ptr<Engine> engine_;
};

/// Makes an empty database with the table and its indexes, in a file or on the server of the path's folder. Refuses to
/// touch one that is there.
Result<void> createDatabase(std::string_view path, const Table& table);

/// Copies a database as it stands between two changes, whoever works in it meanwhile. Databases are never copied as
/// mere files: that would catch a change half made, and drop the locks that this program holds. A database of a server
/// is copied into a file; onto a server nothing is copied. Refuses to touch a file that is there.
Result<void> copyDatabase(std::string_view from, std::string_view to);

/// Stores many rows in one transaction, for imports and sample data. Columns that are not named stay null. `nextRow`
/// asks nothing of this connection.
Result<void> bulkInsert(Connection& connection, const Table& table, const std::vector<std::string_view>& columns,
                        const std::function<bool(std::vector<Value>&)>& nextRow);

}  // namespace zelvo
