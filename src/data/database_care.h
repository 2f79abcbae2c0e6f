#pragma once

#include <cstddef>
#include <string_view>

#include "base/result.h"
#include "data/catalogue.h"

namespace zelvo {

// What looking after whole databases needs: saving them, checking what was saved, and putting it back.

/// Looks through a database file from end to end; the error names the file and says what is damaged.
Result<void> checkDatabase(std::string_view path);
/// The rows of the table, in a file or on the server of its folder.
Result<std::size_t> countRows(std::string_view path, const Table& table);
/// Gives a database file the content of another one, whole or not at all. Other computers, and other screens of this
/// one, that have it open read on in the new content. The file must be there and be a database.
Result<void> replaceDatabase(std::string_view from, std::string_view to);
/// Removes the journal beside a database file that is removed or exchanged as a file: a change that broke off would be
/// played back into whatever has the name next. Nobody may be working in it.
Result<void> removeJournal(std::string_view path);
/// Trouble::Busy when another computer is writing to the database at this moment, and goes on for some seconds.
Result<void> refuseWhileWritten(std::string_view path);

}  // namespace zelvo
