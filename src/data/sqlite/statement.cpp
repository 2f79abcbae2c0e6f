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

std::string Statement::text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  return text ? std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))) : std::string();
}

// What other tools wrote into a column and does not belong there comes as the text that it is.
Value Statement::value(int column, ColumnType type) const {
  switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement_, column);
    default:
      break;
  }
  std::string read = text(column);
  if (type == ColumnType::Date)
    if (const auto moment = parseIso(read))
      return *moment;
  return read;
}

}  // namespace zelvo::sqlite
