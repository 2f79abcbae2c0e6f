#include "base/open_file.h"

namespace zelvo {

int OpenFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(handle_, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR)
      return errno;
    if (count > 0)
      bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

int OpenFile::read(char* buffer, std::size_t size, std::size_t& taken) {
  ssize_t count = 0;
  do {
    count = ::read(handle_, buffer, size);
  } while (count < 0 && errno == EINTR);
  taken = count > 0 ? static_cast<std::size_t>(count) : 0;
  return count < 0 ? errno : 0;
}

}  // namespace zelvo
