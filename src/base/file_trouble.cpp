#include "base/file_trouble.h"

#include <cerrno>
#include <string>
#include <system_error>

namespace zelvo {

namespace {

struct Cause {
  int systemError;
  Trouble trouble;
  std::string_view why;
  std::string_view advice;
};

constexpr std::string_view checkPath = "Check the folder and the name in the settings.";
constexpr std::string_view askForRights = "Ask whoever looks after the computers for the right to it.";
constexpr std::string_view makeRoom = "Make room on the disk and try again.";
constexpr std::string_view tryLater = "Close it on the other computers and try again.";
constexpr std::string_view checkDisk = "Check the disk and the network, and try again.";

constexpr Cause causes[] = {
    {ENOENT, Trouble::NotFound, "it is not there, or its folder is not", checkPath},
    {ENOTDIR, Trouble::NotFound, "a part of its path is a file and no folder", checkPath},
    {EISDIR, Trouble::BadInput, "there is a folder of that name", checkPath},
    {EEXIST, Trouble::Duplicate, "there is something of that name already", checkPath},
    {ENOTEMPTY, Trouble::Duplicate, "there is a folder of that name", checkPath},
    {ENAMETOOLONG, Trouble::BadInput, "its name is too long", "Give it a shorter name."},
    {ELOOP, Trouble::BadInput, "its path leads in a circle", checkPath},
    {EINVAL, Trouble::BadInput, "the disk does not take such a name", "Give it another name."},
    {EACCES, Trouble::ReadOnly, "this user has no right to it", askForRights},
    {EPERM, Trouble::ReadOnly, "this user has no right to it", askForRights},
    {EROFS, Trouble::ReadOnly, "the disk is read-only", "Choose a folder on another disk."},
    {ENOSPC, Trouble::Full, "the disk is full", makeRoom},
    {EDQUOT, Trouble::Full, "this user's share of the disk is used up", makeRoom},
    {EFBIG, Trouble::Full, "the disk takes no file of that size", "Choose a folder on another disk."},
    {EBUSY, Trouble::Busy, "another program holds it", tryLater},
    {EAGAIN, Trouble::Busy, "another program holds it", tryLater},
    {ETXTBSY, Trouble::Busy, "it is a program that is running", tryLater},
    {EIO, Trouble::Failed, "the disk failed", checkDisk},
    {ESTALE, Trouble::Failed, "the shared folder was lost", checkDisk},
};

constexpr std::string_view deedText(FileDeed deed) {
  switch (deed) {
    case FileDeed::Read:
      return "read";
    case FileDeed::Write:
      return "written";
    case FileDeed::Copy:
      return "copied";
    case FileDeed::Delete:
      return "deleted";
    case FileDeed::Rename:
      return "renamed";
    case FileDeed::MakeFolder:
      return "made";
  }
  return "used";
}

}  // namespace

Error fileError(FileDeed deed, std::string_view path, Trouble trouble, std::string_view why, std::string_view advice) {
  std::string message = deed == FileDeed::MakeFolder ? "The folder \"" : "The file \"";
  message.append(path).append("\" cannot be ").append(deedText(deed)).append(": ").append(why).append(". ");
  return {trouble, message.append(advice)};
}

Error fileError(FileDeed deed, std::string_view path, int systemError) {
  if (path.empty())
    return fileError(deed, path, Trouble::NotFound, "no name was given", checkPath);
  for (const Cause& cause : causes) {
    if (cause.systemError == systemError)
      return fileError(deed, path, cause.trouble, cause.why, cause.advice);
  }
  return fileError(deed, path, Trouble::Failed, std::generic_category().message(systemError), checkDisk);
}

}  // namespace zelvo
