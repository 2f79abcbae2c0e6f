#include "data/sqlite/key_sorting.h"

#include <sqlite3.h>

#include <algorithm>
#include <bit>
#include <new>

#include "base/text.h"

namespace zelvo::sqlite {

namespace {

constexpr std::size_t keyLength = sizeof(std::uint64_t);
constexpr std::uint64_t nothing = 0;

/// Numbers as keys in their order: those below zero turned over.
std::uint64_t keyOf(double number) {
  const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);  // there is one zero
  constexpr std::uint64_t sign = 1ull << 63;
  return (bits & sign) != 0 ? ~bits : bits | sign;
}

}  // namespace

int KeySorting::attend(sqlite3* database) {
  constexpr int kind = SQLITE_UTF8 | SQLITE_DIRECTONLY;
  return sqlite3_create_function_v2(database, "zsort", 2, kind, this, nullptr, &take, &finish, nullptr);
}

void KeySorting::take(sqlite3_context* context, int, sqlite3_value** arguments) {
  try {
    static_cast<KeySorting*>(sqlite3_user_data(context))->add(sqlite3_value_int64(arguments[0]), arguments[1]);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

void KeySorting::finish(sqlite3_context* context) {
  sqlite3_result_null(context);
}

void KeySorting::begin() {
  for (auto* entries : {&nulls_, &numbers_, &texts_})
    entries->clear();
  letters_.assign(1, '\0');  // no text begins at nothing
}

void KeySorting::add(std::int64_t row, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return nulls_.push_back({0, nothing, row});
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
      return numbers_.push_back({keyOf(sqlite3_value_double(value)), nothing, row});
    default:
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
      addText(row, {text, static_cast<std::size_t>(sqlite3_value_bytes(value))});
  }
}

void KeySorting::addText(std::int64_t row, std::string_view text) {
  Entry entry{0, letters_.size(), row};
  letters_.append(isAscii(text) ? text : fold(text));
  for (std::size_t i = entry.rest; i < letters_.size(); ++i)
    if (letters_[i] >= 'A' && letters_[i] <= 'Z')
      letters_[i] = static_cast<char>(letters_[i] - 'A' + 'a');
  letters_.push_back('\0');
  takeLetters(entry);
  texts_.push_back(entry);
}

/// The next letters of a text become its key, the first one in the highest place.
void KeySorting::takeLetters(Entry& entry) const {
  const char* letter = letters_.data() + entry.rest;
  entry.key = 0;
  for (std::size_t i = 0; i < keyLength; ++i)
    entry.key = entry.key << 8 | (*letter == '\0' ? 0u : static_cast<unsigned char>(*letter++));
  entry.rest = *letter == '\0' ? nothing : static_cast<std::uint64_t>(letter - letters_.data());
}

// Texts lie all over the memory, and reaching for two of them at every comparison takes most of the time. So their keys
// alone are compared; those that are alike then take their next letters, all of them once.
void KeySorting::sort(Entries all) const {
  std::vector<Entries> open = {all};
  while (!open.empty()) {
    const Entries entries = open.back();
    open.pop_back();
    std::sort(entries.begin(), entries.end(), [](const Entry& one, const Entry& other) {
      return one.key != other.key ? one.key < other.key : one.row < other.row;
    });
    for (auto from = entries.begin(); from != entries.end();) {
      const auto to = std::find_if(from, entries.end(), [from](const Entry& entry) { return entry.key != from->key; });
      if (takeNextLetters({from, to}))
        open.push_back({from, to});
      from = to;
    }
  }
}

/// False when the entries are in their order already.
bool KeySorting::takeNextLetters(Entries alike) const {
  if (alike.size() == 1 || std::ranges::all_of(alike, [](const Entry& entry) { return entry.rest == nothing; }))
    return false;
  for (Entry& entry : alike)
    takeLetters(entry);
  return true;
}

std::vector<std::int64_t> KeySorting::sorted(bool descending) {
  std::vector<std::int64_t> rows;
  rows.reserve(nulls_.size() + numbers_.size() + texts_.size());
  for (auto* entries : {&nulls_, &numbers_, &texts_}) {
    sort(*entries);
    for (const Entry& entry : *entries)
      rows.push_back(entry.row);
    *entries = {};
  }
  letters_ = {};
  if (descending)
    std::reverse(rows.begin(), rows.end());
  return rows;
}

}  // namespace zelvo::sqlite
