#include "data/sqlite/key_gathering.h"

#include <sqlite3.h>

#include <new>

namespace zelvo::sqlite {

int KeyGathering::attend(sqlite3* database) {
  constexpr int kind = SQLITE_UTF8 | SQLITE_DIRECTONLY;
  return sqlite3_create_function_v2(database, "zgather", 1, kind, this, nullptr, &take, &finish, nullptr);
}

void KeyGathering::take(sqlite3_context* context, int, sqlite3_value** arguments) {
  auto* keys = static_cast<KeyGathering*>(sqlite3_user_data(context))->keys_;
  try {
    if (keys)
      keys->push_back(sqlite3_value_int64(arguments[0]));
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

void KeyGathering::finish(sqlite3_context* context) {
  sqlite3_result_null(context);
}

}  // namespace zelvo::sqlite
