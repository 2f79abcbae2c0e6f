#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_context;
struct sqlite3_value;

namespace zelvo::sqlite {

/// Sorts the row numbers of a statement by what stands beside them, within one step of it: "select zsort(rowid, COL)
/// from (select rowid, COL ...)". The order is that of the engine: nulls, numbers, then texts by their folded forms;
/// rows that are equal in their own order. A list of a million records that no index sorts is there in a third of the
/// time, and no index has to be kept for it with every add.
class KeySorting {
 public:
  /// Gives the connection the function; this object must live as long. Gives an SQLite result code.
  int attend(sqlite3* database);
  /// Forgets what was gathered, before a statement.
  void begin();
  /// The row numbers that were gathered, sorted. What was gathered is forgotten.
  std::vector<std::int64_t> sorted(bool descending);

 private:
  /// `key` orders a number whole, of a text a few letters at a time.
  struct Entry {
    std::uint64_t key;
    std::uint64_t rest;  ///< where the text goes on in `letters_`; nothing when it does not
    std::int64_t row;
  };
  using Entries = std::span<Entry>;
  static void take(sqlite3_context* context, int count, sqlite3_value** arguments);
  static void finish(sqlite3_context* context);
  void add(std::int64_t row, sqlite3_value* value);
  void addText(std::int64_t row, std::string_view text);
  void sort(Entries all) const;
  bool takeNextLetters(Entries alike) const;
  void takeLetters(Entry& entry) const;

  std::vector<Entry> nulls_, numbers_, texts_;
  std::string letters_;  ///< of all texts, each closed by a zero
};

}  // namespace zelvo::sqlite
