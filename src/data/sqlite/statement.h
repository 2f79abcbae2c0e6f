#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "data/catalogue.h"
#include "data/value.h"

namespace zelvo::sqlite {

/// A prepared statement in use. It is reset when the use ends, so that none is ever left half read. How values lie:
/// texts as they are, numbers as REAL (a whole column makes an INTEGER of it), dates as ISO text.
class Statement {
 public:
  enum class After { Keep, Finalize };
  explicit Statement(sqlite3_stmt* statement, After after = After::Keep) : statement_(statement), after_(after) {}
  Statement(Statement&& other) noexcept : statement_(std::exchange(other.statement_, nullptr)), after_(other.after_) {}
  Statement& operator=(Statement&&) = delete;
  ~Statement();

  /// Parameters count from 1. The value is not copied: it must live until the reset.
  void bind(int parameter, const Value& value);
  void bind(int parameter, std::int64_t number) { sqlite3_bind_int64(statement_, parameter, number); }
  void bindNull(int parameter) { sqlite3_bind_null(statement_, parameter); }

  /// SQLITE_ROW, SQLITE_DONE or an error code.
  int step() { return sqlite3_step(statement_); }
  void reset();
  /// A reset that keeps what is bound, for a statement that is bound anew as a whole.
  void again() { sqlite3_reset(statement_); }

  /// Columns count from 0.
  std::int64_t integer(int column) const { return sqlite3_column_int64(statement_, column); }
  std::string text(int column) const;
  Value value(int column, ColumnType type) const;

 private:
  void bindText(int parameter, std::string_view text, sqlite3_destructor_type keeping);

  sqlite3_stmt* statement_;
  After after_;
};

}  // namespace zelvo::sqlite
