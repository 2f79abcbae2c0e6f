#include "shell/single_instance.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <filesystem>

#include "base/files.h"

namespace zelvo {

namespace {

constexpr int kWaitForByte = 200;  // milliseconds that a caller has to say what it wants
constexpr int kAttempts = 20;
constexpr useconds_t kBetweenAttempts = 10'000;

std::string canonical(std::string_view folder) {
  std::error_code failed;
  const auto path = std::filesystem::weakly_canonical(systemPath(folder), failed);
  return withoutEndSeparator(failed ? std::string(folder) : path.string());
}

/// A short name for a path of any length: names of this kind hold a hundred characters.
std::string digest(std::string_view text) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : text)
    hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  std::string digits;
  for (; hash != 0; hash >>= 4)
    digits.push_back("0123456789abcdef"[hash & 15]);
  return digits;
}

/// The address of a name without a file: its path begins with a zero byte.
struct Address {
  explicit Address(const std::string& name) {
    std::memset(&place, 0, sizeof place);
    place.sun_family = AF_UNIX;
    std::memcpy(place.sun_path + 1, name.data(), name.size());
    size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
  }
  const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&place); }

  sockaddr_un place;
  socklen_t size;
};

int openSocket(int flags) {
  return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0);
}

/// A connection to the copy that holds the name; -1 when nobody of this user does.
int connectTo(const std::string& name) {
  const int connection = openSocket(0);
  const Address address(name);
  ucred holder{};
  socklen_t size = sizeof holder;
  if (connection >= 0 && ::connect(connection, address.get(), address.size) == 0 &&
      ::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &holder, &size) == 0 && holder.uid == ::getuid())
    return connection;
  if (connection >= 0)
    ::close(connection);
  return -1;
}

bool isHeld(const std::string& name) {
  const int connection = connectTo(name);
  if (connection >= 0)
    ::close(connection);
  return connection >= 0;
}

/// A socket that listens under the name; -1 when the name is taken.
int takeName(const std::string& name) {
  const Address address(name);
  const int listening = openSocket(SOCK_NONBLOCK);
  if (listening < 0 || (::bind(listening, address.get(), address.size) == 0 && ::listen(listening, 8) == 0))
    return listening;
  ::close(listening);
  return -1;
}

/// A caller that only looks whether somebody is there hangs up without a byte.
bool wantsAttention(int caller) {
  pollfd waiting{caller, POLLIN, 0};
  char byte = 0;
  return ::poll(&waiting, 1, kWaitForByte) == 1 && ::recv(caller, &byte, 1, MSG_DONTWAIT) == 1;
}

}  // namespace

// Two copies started in the same moment: one holds the name and does not answer yet, or answered and is just gone.
SingleInstance::SingleInstance(std::string_view programFolder)
    : name_("zelvo-" + std::to_string(::getuid()) + "-" + digest(canonical(programFolder))) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    listening_ = takeName(name_);
    first_ = listening_ >= 0 || !isHeld(name_);
    if (listening_ >= 0 || !first_)
      return;
    ::usleep(kBetweenAttempts);
  }
}

SingleInstance::~SingleInstance() {
  if (listening_ >= 0)
    ::close(listening_);
}

void SingleInstance::callFirst() const {
  const int connection = connectTo(name_);
  if (connection < 0)
    return;
  (void)::send(connection, "!", 1, MSG_NOSIGNAL);
  ::close(connection);
}

void SingleInstance::poll() {
  bool called = false;
  for (int caller; listening_ >= 0 && (caller = ::accept4(listening_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
    called = wantsAttention(caller) || called;
    ::close(caller);
  }
  if (called && onActivate)
    onActivate();
}

}  // namespace zelvo
