#pragma once

struct sqlite3;

namespace zelvo::dialect {

/// Gives a connection the functions that written queries call. They live in the program, never in the schema, so that
/// the office's other tools can still open the files.
///   zlike(pattern, value)  1 or 0: the office's like, case-blind for every letter
///   zfold(text)            the text in the form under which texts are compared
///   znum(text)             the number that the whole text is; null when it is none
///   zdate(text)            the moment that the text is, as dates are stored; null when it is none
///   zshown(date)           a stored date as the screens show it
/// Gives an SQLite result code.
int registerDialectFunctions(sqlite3* database);

}  // namespace zelvo::dialect
