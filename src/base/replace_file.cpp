#include <sys/stat.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "base/file_trouble.h"
#include "base/files.h"
#include "base/open_file.h"

namespace zelvo {

namespace {

constexpr std::string_view lineEnd = "\r\n";

/// Only then does a name stay when the power is cut. Shared folders of other systems cannot be flushed and say so; only
/// a failing disk is worth a word.
int flushFolderOf(const std::string& path) {
  const std::string folder = folderOf(path);
  OpenFile opened(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
  return opened.isOpen() && opened.flush() == EIO ? EIO : 0;
}

/// What stands at a path now.
struct Standing {
  bool there = false;
  mode_t rights = 0;
  gid_t group = 0;
};

/// A file that takes the place of another one only when it is whole: until then it lies beside it under a name of its
/// own, and it is gone again when the work is given up.
class Replacement {
 public:
  explicit Replacement(FileDeed deed) : deed_(deed) {}
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  ~Replacement() {
    if (!beside_.empty())
      ::unlink(beside_.c_str());
  }

  /// Opens the file beside `path`, with these rights when there is none yet (the usual ones when 0).
  Result<void> open(std::string_view path, mode_t rightsOfNew, Access access);
  Result<void> write(std::string_view bytes) { return done(file_.write(bytes)); }
  /// Flushes and renames; only now has anything changed.
  Result<void> finish();

 private:
  Result<void> lookAtTarget(std::string_view path);
  Result<void> openBeside(mode_t mode);
  Result<void> keepRights(mode_t rightsOfNew, Access access);
  Result<void> done(int error) const {
    if (error != 0)
      return fileError(deed_, target_, error);
    return {};
  }

  FileDeed deed_;
  std::string target_;
  std::string beside_;
  Standing standing_;
  OpenFile file_;
};

/// A link keeps its place: what it points to is replaced. A link that leads nowhere is refused, or it would be lost.
Result<void> Replacement::lookAtTarget(std::string_view path) {
  target_ = systemPath(path);
  struct stat state {};
  if (::lstat(target_.c_str(), &state) != 0)
    return errno == ENOENT ? Result<void>() : done(errno);
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(target_.c_str(), nullptr), &std::free);
  if (!real && errno != ENOENT)
    return done(errno);
  if (!real || ::stat(real.get(), &state) != 0)
    return fileError(deed_, target_, Trouble::NotFound, "it is a link that leads nowhere", "Remove the link.");
  target_ = real.get();
  if (S_ISDIR(state.st_mode))
    return done(EISDIR);
  if (::access(target_.c_str(), W_OK) != 0)
    return done(errno);
  if ((state.st_mode & 0222) == 0)
    return fileError(deed_, target_, Trouble::ReadOnly, "it is marked read-only", "Take the mark off the file first.");
  standing_ = {true, state.st_mode & 07777u, state.st_gid};
  return {};
}

/// Several programs may write into one shared folder at a time: a name that is taken is passed over.
Result<void> Replacement::openBeside(mode_t mode) {
  static std::atomic<unsigned> next{0};
  const std::string folder = folderOf(target_);
  const std::string stem = (folder.empty() ? "." : folder) + "/.zelvo-" + std::to_string(::getpid()) + "-";
  do {
    beside_ = stem + std::to_string(next++) + ".tmp";
    file_ = OpenFile(beside_, O_WRONLY | O_CREAT | O_EXCL, mode);
  } while (!file_.isOpen() && file_.error() == EEXIST);
  if (!file_.isOpen())
    beside_.clear();
  return done(file_.error());
}

/// Sticks that carry the databases to the field know no rights; that is no reason not to write there.
int setRights(const OpenFile& file, mode_t rights) {
  if (::fchmod(file.handle(), rights) == 0 || errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS)
    return 0;
  return errno;
}

/// The group is kept where the system lets us; a file that loses its group loses that group's rights, so that no other
/// group comes to read it.
Result<void> Replacement::keepRights(mode_t rightsOfNew, Access access) {
  if (access == Access::OwnerOnly)
    return done(setRights(file_, 0600));
  mode_t rights = standing_.there ? standing_.rights : rightsOfNew;
  if (standing_.there && ::fchown(file_.handle(), static_cast<uid_t>(-1), standing_.group) != 0)
    rights &= ~mode_t{070};
  return done(rights == 0 ? 0 : setRights(file_, rights));
}

Result<void> Replacement::open(std::string_view path, mode_t rightsOfNew, Access access) {
  if (path.empty())
    return fileError(deed_, path, ENOENT);
  if (auto looked = lookAtTarget(path); !looked)
    return looked;
  const bool usual = !standing_.there && rightsOfNew == 0 && access == Access::AsBefore;
  if (auto opened = openBeside(usual ? 0666 : 0600); !opened)
    return opened;
  return keepRights(rightsOfNew, access);
}

Result<void> Replacement::finish() {
  if (auto flushed = done(file_.flush()); !flushed)
    return flushed;
  if (auto closed = done(file_.close()); !closed)
    return closed;
  if (auto renamed = done(::rename(beside_.c_str(), target_.c_str()) == 0 ? 0 : errno); !renamed)
    return renamed;
  beside_.clear();
  return done(flushFolderOf(target_));
}

bool sameFile(const struct stat& from, const std::string& to) {
  struct stat other {};
  return ::stat(to.c_str(), &other) == 0 && other.st_dev == from.st_dev && other.st_ino == from.st_ino;
}

/// Databases are copied too: piece by piece, so that their length does not matter.
Result<void> pour(OpenFile& source, const std::string& name, Replacement& target) {
  std::string piece(std::size_t{1} << 20, '\0');
  std::size_t taken = 0;
  do {
    if (const int error = source.read(piece.data(), piece.size(), taken); error != 0)
      return fileError(FileDeed::Read, name, error);
    if (auto written = target.write(std::string_view(piece).substr(0, taken)); !written)
      return written;
  } while (taken > 0);
  return target.finish();
}

/// A line typed into the file by hand may lack its line end; the next one must not run on behind it.
bool endsInsideLine(const OpenFile& file, off_t size) {
  char last = '\n';
  return size > 0 && ::pread(file.handle(), &last, 1, size - 1) == 1 && last != '\n';
}

/// The new name first: a file may rather stand under both than under none.
Result<void> flushNames(const std::string& newName, const std::string& oldName) {
  for (const std::string& name : {newName, oldName})
    if (const int error = flushFolderOf(name); error != 0)
      return fileError(FileDeed::Rename, name, error);
  return {};
}

}  // namespace

Result<void> replaceFile(std::string_view path, std::string_view bytes, Access access) {
  Replacement replacement(FileDeed::Write);
  if (auto opened = replacement.open(path, 0, access); !opened)
    return opened;
  if (auto written = replacement.write(bytes); !written)
    return written;
  return replacement.finish();
}

Result<void> writeLines(std::string_view path, const std::vector<std::string>& lines, Access access) {
  std::string bytes;
  for (const std::string& line : lines)
    bytes.append(line).append(lineEnd);
  return replaceFile(path, bytes, access);
}

Result<void> appendLine(std::string_view path, std::string_view line) {
  const std::string name = systemPath(path);
  OpenFile file(name, O_RDWR | O_APPEND | O_CREAT);
  struct stat state {};
  if (!file.isOpen() || ::fstat(file.handle(), &state) != 0)
    return fileError(FileDeed::Write, name, file.isOpen() ? errno : file.error());
  std::string bytes(endsInsideLine(file, state.st_size) ? lineEnd : std::string_view());
  bytes.append(line).append(lineEnd);
  int error = file.write(bytes);
  if (error != 0 && ::ftruncate(file.handle(), state.st_size) == 0)
    return fileError(FileDeed::Write, name, error);
  if (error == 0)
    error = file.close();
  return error == 0 ? Result<void>() : fileError(FileDeed::Write, name, error);
}

Result<void> copyFile(std::string_view from, std::string_view to) {
  const std::string name = systemPath(from);
  OpenFile source(name, O_RDONLY);
  struct stat state {};
  if (!source.isOpen() || ::fstat(source.handle(), &state) != 0)
    return fileError(FileDeed::Read, name, source.isOpen() ? errno : source.error());
  if (S_ISDIR(state.st_mode))
    return fileError(FileDeed::Read, name, EISDIR);
  if (sameFile(state, systemPath(to)))
    return fileError(FileDeed::Copy, name, Trouble::BadInput, "it would be copied onto itself",
                     "Choose another folder.");
  Replacement target(FileDeed::Write);
  if (auto opened = target.open(to, state.st_mode & 0777u, Access::AsBefore); !opened)
    return opened;
  return pour(source, name, target);
}

Result<void> deleteFile(std::string_view path) {
  const std::string name = systemPath(path);
  if (folderExists(name))
    return fileError(FileDeed::Delete, name, EISDIR);
  if (::unlink(name.c_str()) != 0)
    return fileError(FileDeed::Delete, name, errno);
  return {};
}

Result<void> renameFile(std::string_view from, std::string_view to) {
  const std::string name = systemPath(from);
  const std::string newName = systemPath(to);
  struct stat state {};
  if (::lstat(name.c_str(), &state) != 0)
    return fileError(FileDeed::Rename, name, errno);
  if (folderExists(name) || folderExists(newName))
    return fileError(FileDeed::Rename, folderExists(name) ? name : newName, EISDIR);
  if (std::rename(name.c_str(), newName.c_str()) != 0) {
    if (errno != EXDEV)
      return fileError(FileDeed::Write, newName, errno);
    if (auto copied = copyFile(name, newName); !copied)
      return copied;
    if (auto deleted = deleteFile(name); !deleted)
      return deleted;
  }
  return flushNames(newName, name);
}

}  // namespace zelvo
