#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace zelvo {

/// An open file of the system, closed when it goes. Its functions give 0 or the system's error number.
class OpenFile {
 public:
  OpenFile() = default;
  OpenFile(const std::string& path, int flags, mode_t mode = 0666)
      : handle_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
    error_ = handle_ < 0 ? errno : 0;
  }
  OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, -1)), error_(other.error_) {}
  OpenFile& operator=(OpenFile&& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(error_, other.error_);
    return *this;
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (handle_ >= 0)
      ::close(handle_);
  }

  bool isOpen() const { return handle_ >= 0; }
  /// Why it could not be opened.
  int error() const { return error_; }
  int handle() const { return handle_; }

  int write(std::string_view bytes);
  /// Reads up to `size` bytes; `taken` is 0 at the end of the file.
  int read(char* buffer, std::size_t size, std::size_t& taken);
  int flush() { return ::fsync(handle_) == 0 ? 0 : errno; }
  /// Closing tells of writes that a shared folder took on credit.
  int close() { return ::close(std::exchange(handle_, -1)) == 0 ? 0 : errno; }

 private:
  int handle_ = -1;
  int error_ = 0;
};

}  // namespace zelvo
