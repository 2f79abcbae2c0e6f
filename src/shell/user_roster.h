#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "base/result.h"
#include "form/session.h"

namespace zelvo {

/// The list of the users while somebody changes it: nothing holds until it is saved. It keeps the list in order: no
/// user gets the name of another one, the last administrator stays one, and there are never more users than slots. What
/// somebody else does to the file meanwhile is noticed, and not lost.
class UserRoster {
 public:
  /// The list as the file has it now; the session's while there is no file. The session's signed-in user is known again
  /// in it.
  static Result<UserRoster> load(const Session& session);

  std::size_t count() const { return entries_.size(); }
  /// Scrambled.
  const User& at(std::size_t index) const { return entries_[index].user; }
  /// The place of the signed-in user; nothing when that one is no longer in the list.
  std::optional<std::size_t> own() const { return own_; }
  bool changed() const;

  Result<void> add(const User& user);
  Result<void> change(std::size_t index, const User& user);
  Result<void> remove(std::size_t index);

  /// Writes the file and gives the session the new list. Trouble::Conflict when the file is not as it was loaded:
  /// nothing is written then.
  Result<void> save(Session& session);
  /// After a conflict: begins anew with the file as it is now and does there what was done here. A user whom both
  /// changed is as this list has it; one who was removed there is gone, and one who was removed here but changed there
  /// stays.
  Result<void> takeInOthers(const Session& session);

 private:
  struct Entry {
    User user;
    std::optional<std::size_t> from;  ///< its place among the loaded ones
  };

  void begin(std::vector<User> loaded, const User* own);
  Result<void> refuseName(const User& user, std::optional<std::size_t> except) const;
  Result<void> refuseWithoutAdministrator(std::optional<std::size_t> without) const;
  Result<void> refuseAsWhole() const;
  void redo(const User& before, const Entry* after);
  std::optional<std::size_t> placeOf(const User& user) const;
  std::vector<User> users() const;

  std::vector<User> loaded_;
  std::vector<Entry> entries_;
  std::optional<std::size_t> own_;
};

}  // namespace zelvo
