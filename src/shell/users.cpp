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

std::size_t countIn(std::string_view text, std::size_t& position) {
  const auto values = readCommaValues(text, position, 1);
  return values.empty() ? 0 : static_cast<std::size_t>(std::max(CLng(Val(values.front())), 0));
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

Result<void> readUsers(Session& session) {
  session.users.clear();
  const std::string path = usersPath(session.programFolder);
  const auto text = readText(path);
  if (!text)
    return text.error().trouble == Trouble::NotFound ? Result<void>() : text.error();
  std::size_t position = 0;
  const std::size_t count = countIn(*text, position);
  session.users = usersIn(*text, position, std::min(count, kUserLimit));
  if (count > kUserLimit)
    return Error{Trouble::BadInput, "The user list " + path + " says that it holds " + std::to_string(count) +
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
