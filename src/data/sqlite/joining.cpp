// Several database files in one transaction: what is stored in one of them is stored with the rest. Their journals name
// a file that ends the change of all of them at once when it is removed; whoever finds a journal without it leaves the
// change as it stands.

#include "base/files.h"
#include "base/text.h"
#include "data/row_storing.h"
#include "data/server_folder.h"
#include "data/sqlite/schema.h"
#include "data/sqlite/sqlite_engine.h"

namespace zelvo::sqlite {

namespace {

std::string literal(std::string_view text) {
  return "'" + replaceAll(text, "'", "''") + "'";
}

}  // namespace

// The file is opened by itself first: a file that is none of ours, or read-only, is told of by its own name.
Result<const Table*> SqliteEngine::join(const std::string& path) {
  if (keepsOnServer(folderOf(path)))
    return liesApart(this->path(), path);
  const auto other = openOfficeFile(path);
  if (!other)
    return other.error();
  if (sqlite3_db_readonly(other->database->handle(), "main") == 1)
    return other->database->trouble(FileDeed::Write, SQLITE_READONLY);
  const Table* table = other->tables.front();
  const std::string name = quoted(std::string(table->name) + " joined");
  if (auto attached = database_->execute("attach " + literal(other->database->path()) + " as " + name); !attached)
    return attached.error();
  joined_.push_back(name);
  if (auto flushed = database_->execute("pragma " + name + ".synchronous = extra"); !flushed)
    return flushed.error();
  if (auto kept = keepJournal(*database_, name); !kept)
    return kept.error();
  return table;
}

void SqliteEngine::part() {
  for (const std::string& name : joined_)
    (void)database_->execute("detach " + name).ok();
  joined_.clear();
}

}  // namespace zelvo::sqlite
