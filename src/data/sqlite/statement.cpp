#include "data/sqlite/statement.h"

#include <string>

namespace zelvo::sqlite {

Statement::~Statement() {
  reset();
  if (after_ == After::Finalize)
    sqlite3_finalize(statement_);
}

void Statement::bind(int parameter, const Value& value) {
  if (value.isText())
    bindText(parameter, value.heldText(), SQLITE_STATIC);
  else if (value.isNumber())
    sqlite3_bind_double(statement_, parameter, value.number());
  else if (value.isDate())
    bindText(parameter, isoText(*value.moment()), SQLITE_TRANSIENT);
  else
    bindNull(parameter);
}

void Statement::bindText(int parameter, std::string_view text, sqlite3_destructor_type keeping) {
  sqlite3_bind_text64(statement_, parameter, text.data(), text.size(), keeping, SQLITE_UTF8);
}

void Statement::reset() {
  if (!statement_)
    return;
  sqlite3_reset(statement_);
  sqlite3_clear_bindings(statement_);
}

namespace {

std::string_view textOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value))) : std::string_view();
}

}  // namespace

std::string Statement::text(int column) const {
  return std::string(textOf(sqlite3_column_value(statement_, column)));
}

// What other tools wrote into a column and does not belong there comes as the text that it is.
Value Statement::value(int column, ColumnType type) const {
  sqlite3_value* held = sqlite3_column_value(statement_, column);
  switch (sqlite3_value_type(held)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
      return sqlite3_value_double(held);
    default:
      break;
  }
  const std::string_view text = textOf(held);
  if (type == ColumnType::Date)
    if (const auto moment = parseIso(text))
      return *moment;
  return text;
}

}  // namespace zelvo::sqlite
