#include "shell/users.h"

#include <algorithm>

#include "base/comma_record.h"
#include "base/files.h"
#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

// Moves the common characters, code points below 10000 (hex), to those from 10000 on, and those back: far from comma,
// quote, blank and line end, and still a letter of an old script each, so that the file stays a text that every editor
// shows. What would come out as no character (a few rare scripts, private areas) stays itself, which keeps the routine
// its own inverse.
constexpr char32_t kKey = 0x12345;
constexpr char32_t kLastCharacter = 0x10FFFF;

bool isCharacter(char32_t code) {
  return code <= kLastCharacter && !(code >= 0xD800 && code <= 0xDFFF);
}

std::string usersPath(std::string_view programFolder) {
  return joinPath(programFolder, "Users.Set");
}

std::vector<User> usersIn(std::string_view text, std::size_t position, std::size_t count) {
  std::vector<User> users;
  while (users.size() < count) {
    auto values = readCommaValues(text, position, 3);
    if (values.size() < 3)
      break;
    users.push_back({std::move(values[0]), std::move(values[1]), std::move(values[2])});
  }
  return users;
}

Error damaged(const std::string& path, std::string_view how) {
  return {Trouble::BadInput, "The user list " + path + " is damaged: " + std::string(how) +
                                 " Users who are missing from it cannot sign in; please put back a saved copy."};
}

/// The number of users on the first line; nothing when there stands something else.
std::optional<std::size_t> countIn(std::string_view text, std::size_t& position) {
  const auto values = readCommaValues(text, position, 1);
  if (values.empty() || !isNumber(values.front()) || Val(values.front()) < 0)
    return std::nullopt;
  return static_cast<std::size_t>(CLng(Val(values.front())));
}

/// A list that was never written in holds no users; that is no damage.
UserFile userFileOf(std::string_view text, const std::string& path) {
  UserFile file;
  if (trim(text).empty())
    return file;
  std::size_t position = 0;
  const auto count = countIn(text, position);
  if (!count) {
    file.damage = damaged(path, "it does not begin with the number of users.");
    return file;
  }
  file.users = usersIn(text, position, *count);
  if (file.users.size() < *count)
    file.damage = damaged(
        path, "of its " + std::to_string(*count) + " users it holds " + std::to_string(file.users.size()) + ".");
  return file;
}

}  // namespace

std::string scrambled(std::string_view text) {
  std::string other;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t code = nextCharacter(text, position);
    appendCharacter(other, isCharacter(code ^ kKey) ? code ^ kKey : code);
  }
  return other;
}

User scrambled(const User& user) {
  return {scrambled(user.name), scrambled(user.password), scrambled(user.access)};
}

Result<UserFile> readUserFile(std::string_view programFolder) {
  constexpr std::size_t kLongest = 1u << 20;
  const std::string path = usersPath(programFolder);
  const auto text = readText(path, kLongest);
  if (!text)
    return text.error();
  return userFileOf(*text, path);
}

Result<void> readUsers(Session& session) {
  session.users.clear();
  auto file = readUserFile(session.programFolder);
  if (!file)
    return file.error().trouble == Trouble::NotFound ? Result<void>() : file.error();
  const std::size_t count = file->users.size();
  session.users = std::move(file->users);
  session.users.resize(std::min(count, kUserLimit));
  if (file->damage)
    return *file->damage;
  if (count > kUserLimit)
    return Error{Trouble::BadInput, "The user list " + usersPath(session.programFolder) + " holds " +
                                        std::to_string(count) +
                                        " users. Only the first 100 of them can sign in; an administrator should "
                                        "remove users who have left."};
  return {};
}

Result<void> writeUsers(std::string_view programFolder, const std::vector<User>& users) {
  std::vector<std::string> lines = {std::to_string(users.size())};
  for (const User& user : users)
    lines.push_back(writeCommaRecord({user.name, user.password, user.access}));
  return writeLines(usersPath(programFolder), lines, Access::OwnerOnly);
}

bool isAdministrator(const User& user) {
  return alike(scrambled(user.access), "ADMIN");
}

void CheckPassword(Session& session, std::string_view name, std::string_view password) {
  const auto found = std::find_if(session.users.begin(), session.users.end(),
                                  [&](const User& user) { return upper(scrambled(user.name)) == upper(name); });
  if (found == session.users.end())
    return;
  session.signedIn = upper(scrambled(found->password)) == upper(password);
  session.rights = scrambled(found->access);
  if (session.signedIn)
    session.userSlot = static_cast<std::size_t>(found - session.users.begin()) + 1;
}

}  // namespace zelvo
