#pragma once

#include <sqlite3.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/file_trouble.h"
#include "data/engine.h"
#include "data/sqlite/key_gathering.h"
#include "data/sqlite/key_sorting.h"
#include "data/sqlite/statement.h"
#include "data/sqlite/waiting.h"

namespace zelvo::sqlite {

/// An open SQLite file and its prepared statements. A rolled-back journal beside the file, flushed at each commit, is
/// what keeps the records whole on a shared folder; nothing is mapped into memory there.
class Database {
 public:
  enum class Mode { ReadOnly, ReadWrite, Create };
  /// Opens a file; unless it is to be filled as a new one, a file that is no database is refused before it is touched.
  static Result<std::unique_ptr<Database>> open(std::string path, Mode mode,
                                                std::chrono::milliseconds patience = usualPatience);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  const std::string& path() const { return path_; }
  sqlite3* handle() { return handle_; }

  /// Runs statements that give no rows and take no values.
  Result<void> execute(const std::string& sql);
  /// A statement to bind and step; prepared once, however often it is asked for. Not to be used twice at a time.
  Result<Statement> prepare(const std::string& sql);
  /// A statement of the caller's own, for long work during which others are prepared.
  Result<Statement> prepareAlone(const std::string& sql);
  /// The first column of the first row.
  Result<std::string> ask(const std::string& sql);
  KeyGathering& gathering() { return gathering_; }
  KeySorting& sorting() { return sorting_; }

  /// Whether SQLite itself has a transaction open; a full disk, for one, makes it give up the open one by itself.
  bool inTransaction() const { return sqlite3_get_autocommit(handle_) == 0; }

  Error trouble(FileDeed deed) const { return trouble(deed, sqlite3_extended_errcode(handle_)); }
  Error trouble(FileDeed deed, int code) const;

 private:
  Database(std::string path, std::chrono::milliseconds patience) : path_(std::move(path)), waiting_(patience) {}
  Result<void> prepareForUse(Mode mode);
  Result<sqlite3_stmt*> compile(const std::string& sql, unsigned flags);
  void forgetStatements();

  std::string path_;
  Waiting waiting_;
  KeyGathering gathering_;
  KeySorting sorting_;
  sqlite3* handle_ = nullptr;
  std::unordered_map<std::string, sqlite3_stmt*> statements_;
};

}  // namespace zelvo::sqlite
