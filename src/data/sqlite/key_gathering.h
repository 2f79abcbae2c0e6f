#pragma once

#include <cstdint>
#include <vector>

struct sqlite3;
struct sqlite3_context;
struct sqlite3_value;

namespace zelvo::sqlite {

/// Gathers the row numbers of a statement within one step of it: "select zgather(rowid) from (select rowid ...)", in
/// the order of the inner statement. A million steps, one a row, take half as long again as that one.
class KeyGathering {
 public:
  /// Gives the connection the function; this object must live as long. Gives an SQLite result code.
  int attend(sqlite3* database);
  /// Where the next statement's rows go; null when it is done with.
  void gatherInto(std::vector<std::int64_t>* keys) { keys_ = keys; }

 private:
  static void take(sqlite3_context* context, int count, sqlite3_value** arguments);
  static void finish(sqlite3_context* context);

  std::vector<std::int64_t>* keys_ = nullptr;
};

}  // namespace zelvo::sqlite
