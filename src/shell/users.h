#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "form/session.h"

namespace zelvo {

// The list of the users, "Users.Set" in the program folder: the number of users on a line, then a line for each with
// name, password and access level, separated by commas, each scrambled. The list is scrambled in memory as well.

inline constexpr std::size_t kUserLimit = 100;

/// Scrambles a text, and turns a scrambled one back: the same routine does both. Nothing that can be typed becomes a
/// comma, a quote, a blank or a control character.
std::string scrambled(std::string_view text);
/// The same for each text of a user.
User scrambled(const User& user);

/// The users of a file, all of them, scrambled, and what is wrong with it, if anything: it tells of more users than it
/// holds, or is no such list at all.
struct UserFile {
  std::vector<User> users;
  std::optional<Error> damage;
};
/// Trouble::NotFound when there is no file.
Result<UserFile> readUserFile(std::string_view programFolder);

/// Fills the session's list. A missing file leaves it empty. An error says why the list is not whole: it cannot be
/// read, is damaged, or names more users than there are slots; the users read so far stay.
Result<void> readUsers(Session& session);
/// Writes a list of scrambled users, readable for the owner of the file alone.
Result<void> writeUsers(std::string_view programFolder, const std::vector<User>& users);

/// Whether the user, scrambled, may do everything.
bool isAdministrator(const User& user);

/// Looks for the user, names and passwords without regard to case. The first user of that name decides: the session's
/// rights become theirs, and it is signed in when the password is theirs too. An unknown name changes nothing.
void CheckPassword(Session& session, std::string_view name, std::string_view password);

}  // namespace zelvo
