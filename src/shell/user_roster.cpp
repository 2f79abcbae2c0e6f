#include "shell/user_roster.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "shell/users.h"

namespace zelvo {

namespace {

/// What the file holds; the other list when there is no file.
Result<std::vector<User>> usersNow(const Session& session, const std::vector<User>& otherwise) {
  auto file = readUserFile(session.programFolder);
  if (file)
    return std::move(file->users);
  if (file.error().trouble == Trouble::NotFound)
    return otherwise;
  return file.error();
}

bool sameName(const User& a, const User& b) {
  return alike(scrambled(a.name), scrambled(b.name));
}

const User* signedInUser(const Session& session) {
  const std::size_t slot = session.userSlot;
  return slot >= 1 && slot <= session.users.size() ? &session.users[slot - 1] : nullptr;
}

}  // namespace

Result<UserRoster> UserRoster::load(const Session& session) {
  auto users = usersNow(session, session.users);
  if (!users)
    return users.error();
  UserRoster roster;
  roster.begin(std::move(*users), signedInUser(session));
  return roster;
}

void UserRoster::begin(std::vector<User> loaded, const User* own) {
  loaded_ = std::move(loaded);
  entries_.clear();
  for (std::size_t i = 0; i < loaded_.size(); ++i)
    entries_.push_back({loaded_[i], i});
  own_ = own ? placeOf(*own) : std::nullopt;
}

/// The first of that name, as at sign-in.
std::optional<std::size_t> UserRoster::placeOf(const User& user) const {
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (sameName(entries_[i].user, user))
      return i;
  return std::nullopt;
}

std::vector<User> UserRoster::users() const {
  std::vector<User> users;
  for (const Entry& entry : entries_)
    users.push_back(entry.user);
  return users;
}

bool UserRoster::changed() const {
  return users() != loaded_;
}

Result<void> UserRoster::add(const User& user) {
  if (entries_.size() >= kUserLimit)
    return Error{Trouble::Full, "The list holds " + std::to_string(entries_.size()) +
                                    " users, which is as many as it can. Please remove a user who has left first."};
  if (auto refused = refuseName(user, std::nullopt); !refused)
    return refused;
  entries_.push_back({user, std::nullopt});
  return {};
}

Result<void> UserRoster::change(std::size_t index, const User& user) {
  if (!sameName(entries_[index].user, user))
    if (auto refused = refuseName(user, index); !refused)
      return refused;
  if (isAdministrator(entries_[index].user) && !isAdministrator(user))
    if (auto refused = refuseWithoutAdministrator(index); !refused)
      return refused;
  entries_[index].user = user;
  return {};
}

Result<void> UserRoster::remove(std::size_t index) {
  if (isAdministrator(entries_[index].user))
    if (auto refused = refuseWithoutAdministrator(index); !refused)
      return refused;
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
  if (own_ && *own_ >= index)
    own_ = *own_ == index ? std::nullopt : std::optional(*own_ - 1);
  return {};
}

// The second of two users of one name would have no way in.
Result<void> UserRoster::refuseName(const User& user, std::optional<std::size_t> except) const {
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (i != except && sameName(entries_[i].user, user))
      return Error{Trouble::Duplicate, "There is another user with this user ID. Please choose a different one."};
  return {};
}

// An office without an administrator has no way to make one.
Result<void> UserRoster::refuseWithoutAdministrator(std::optional<std::size_t> without) const {
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (i != without && isAdministrator(entries_[i].user))
      return {};
  return Error{Trouble::BadInput, "This is the only administrator. Please make another user one first."};
}

// What each change alone could not do wrong, taking in the changes of others can.
Result<void> UserRoster::refuseAsWhole() const {
  if (entries_.size() > kUserLimit)
    return Error{Trouble::Full, "The list holds " + std::to_string(entries_.size()) + " users, more than the " +
                                    std::to_string(kUserLimit) + " that it can. Please remove users who have left."};
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const Entry& entry = entries_[i];
    const bool untouched = entry.from && sameName(loaded_[*entry.from], entry.user);
    if (!untouched && !refuseName(entry.user, i))
      return Error{Trouble::Duplicate, "There are two users with the ID \"" + scrambled(entry.user.name) +
                                           "\". Please remove one of them, or give it another ID."};
  }
  if (std::any_of(loaded_.begin(), loaded_.end(), isAdministrator) && !refuseWithoutAdministrator(std::nullopt))
    return Error{Trouble::BadInput, "No administrator would be left. Please make one of the users an administrator."};
  return {};
}

Result<void> UserRoster::save(Session& session) {
  if (auto refused = refuseAsWhole(); !refused)
    return refused;
  const auto now = usersNow(session, loaded_);
  if (!now)
    return now.error();
  if (*now != loaded_)
    return Error{Trouble::Conflict, "Someone else changed the list of users meanwhile."};
  if (auto written = writeUsers(session.programFolder, users()); !written)
    return written;
  session.users = users();
  session.userSlot = own_ ? *own_ + 1 : 0;
  loaded_ = session.users;
  for (std::size_t i = 0; i < entries_.size(); ++i)
    entries_[i].from = i;
  return {};
}

Result<void> UserRoster::takeInOthers(const Session& session) {
  auto now = usersNow(session, loaded_);
  if (!now)
    return now.error();
  const std::vector<User> before = std::exchange(loaded_, {});
  const std::vector<Entry> mine = entries_;
  const std::optional<User> own = own_ ? std::optional(mine[*own_].user) : std::nullopt;
  begin(std::move(*now), nullptr);
  for (std::size_t i = 0; i < before.size(); ++i) {
    const auto kept = std::find_if(mine.begin(), mine.end(), [i](const Entry& entry) { return entry.from == i; });
    redo(before[i], kept == mine.end() ? nullptr : &*kept);
  }
  for (const Entry& entry : mine)
    if (!entry.from)
      entries_.push_back(entry);
  own_ = own ? placeOf(*own) : std::nullopt;
  return {};
}

/// Does to one user of the new list what was done to him in the old one; `after` is null when he was removed.
void UserRoster::redo(const User& before, const Entry* after) {
  const auto place = placeOf(before);
  if (!place || (after && after->user == before))
    return;
  if (after)
    entries_[*place].user = after->user;
  else if (entries_[*place].user == before)
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(*place));
}

}  // namespace zelvo
