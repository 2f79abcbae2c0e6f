// The system's functions that change files, as the whole test program has them, its libraries included: each asks the
// failing disk what becomes of the call, and has the system do what is to be done.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <string>

#include "failing_disk.h"

namespace {

using zelvo::testing::Deed;
using zelvo::testing::FailingDisk;

template <class Function>
Function theSystems(Function, const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

std::string pathOf(int file) {
  if (!FailingDisk::isFailing())
    return "";
  char path[4096];
  const ssize_t length = ::readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path, sizeof path);
  return {path, length > 0 ? static_cast<std::size_t>(length) : 0};
}

bool refused(const char* call, const std::string& path, Deed deed) {
  const int error = FailingDisk::fateOf(call, path, deed).error;
  errno = error != 0 ? error : errno;
  return error != 0;
}

/// Two folders of which one has this name lie on different disks.
bool onDifferentDisks(const std::string& from, const std::string& to) {
  constexpr const char* other = "/other-disk/";
  return (from.find(other) == std::string::npos) != (to.find(other) == std::string::npos);
}

template <class Writing>
ssize_t writeAsFated(const char* call, int file, std::size_t size, Writing writing) {
  const auto fate = FailingDisk::fateOf(call, pathOf(file), Deed::Write, size);
  if (fate.error != 0) {
    errno = fate.error;
    return -1;
  }
  const ssize_t written = writing(fate.size);
  if (fate.dies)
    ::_exit(9);
  return written;
}

int flushAsFated(const char* call, const std::string& path) {
  if (refused(call, path, Deed::Flush))
    return -1;
  FailingDisk::flushed(path);
  return 0;
}

int openAsFated(const char* call, const char* path, int flags, va_list more) {
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
  const bool makes = (flags & O_CREAT) != 0 && ::access(path, F_OK) != 0;
  if (makes && refused(call, path, Deed::Create))
    return -1;
  static const auto real = theSystems(&::open, "open");
  return real(path, flags, mode);
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const int file = openAsFated("open", path, flags, more);
  va_end(more);
  return file;
}

int open64(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const int file = openAsFated("open", path, flags, more);
  va_end(more);
  return file;
}

ssize_t write(int file, const void* bytes, std::size_t size) {
  static const auto real = theSystems(&::write, "write");
  return writeAsFated("write", file, size, [&](std::size_t fated) { return real(file, bytes, fated); });
}

ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t at) {
  static const auto real = theSystems(&::pwrite, "pwrite");
  return writeAsFated("pwrite", file, size, [&](std::size_t fated) { return real(file, bytes, fated, at); });
}

ssize_t pwrite64(int file, const void* bytes, std::size_t size, off64_t at) {
  return ::pwrite(file, bytes, size, at);
}

int fsync(int file) {
  return flushAsFated("fsync", pathOf(file));
}

int fdatasync(int file) {
  return flushAsFated("fdatasync", pathOf(file));
}

int ftruncate(int file, off_t size) noexcept {
  static const auto real = theSystems(&::ftruncate, "ftruncate");
  return refused("ftruncate", pathOf(file), Deed::Cut) ? -1 : real(file, size);
}

int ftruncate64(int file, off64_t size) noexcept {
  return ::ftruncate(file, size);
}

int unlink(const char* path) noexcept {
  static const auto real = theSystems(&::unlink, "unlink");
  // Only a name that is there is a change; the engine asks for others to be gone as well.
  if (::access(path, F_OK) == 0 && refused("unlink", path, Deed::Remove))
    return -1;
  return real(path);
}

int rename(const char* from, const char* to) noexcept {
  static const auto real = theSystems(&::rename, "rename");
  if (onDifferentDisks(from, to)) {
    errno = EXDEV;
    return -1;
  }
  return refused("rename", to, Deed::Rename) ? -1 : real(from, to);
}

int link(const char* from, const char* to) noexcept {
  static const auto real = theSystems(&::link, "link");
  return refused("link", to, Deed::Create) ? -1 : real(from, to);
}

int mkdir(const char* path, mode_t mode) noexcept {
  static const auto real = theSystems(&::mkdir, "mkdir");
  return ::access(path, F_OK) != 0 && refused("mkdir", path, Deed::Create) ? -1 : real(path, mode);
}
}
