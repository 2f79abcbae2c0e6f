#pragma once

#include "data/sqlite/sqlite_engine.h"

namespace zelvo::sqlite {

/// A change of the database, begun by taking the file for writing: part of the engine's transaction when one is open,
/// else one of its own. What is not kept is given up whole.
class SqliteEngine::Change {
 public:
  explicit Change(SqliteEngine& engine) : engine_(engine), joined_(engine.transaction() != nullptr) {}
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;
  ~Change();

  Result<void> begin();
  Result<void> keep();

 private:
  SqliteEngine& engine_;
  bool joined_;
  bool open_ = false;
};

}  // namespace zelvo::sqlite
