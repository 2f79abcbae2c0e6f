#include "shell/single_instance.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
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

/// A line to the copy that holds the name. That one may be busy for long, and many may have called already: nobody
/// waits for it to answer.
class Call {
 public:
  explicit Call(const std::string& name) : line_(openSocket(SOCK_NONBLOCK)) {
    const Address address(name);
    connected_ = line_ >= 0 && ::connect(line_, address.get(), address.size) == 0;
    tooMany_ = line_ >= 0 && !connected_ && errno == EAGAIN;
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;
  ~Call() {
    if (line_ >= 0)
      ::close(line_);
  }

  /// Whether a copy of this user is there. One that has more callers than it can hold is not asked whose it is.
  bool found() const { return tooMany_ || (connected_ && isOurs()); }
  void say(char word) const {
    if (connected_ && isOurs())
      (void)::send(line_, &word, 1, MSG_NOSIGNAL);
  }

 private:
  bool isOurs() const {
    ucred holder{};
    socklen_t size = sizeof holder;
    return ::getsockopt(line_, SOL_SOCKET, SO_PEERCRED, &holder, &size) == 0 && holder.uid == ::getuid();
  }

  int line_;
  bool connected_ = false;
  bool tooMany_ = false;
};

/// A socket that listens under the name; -1 when the name is taken.
int takeName(const std::string& name) {
  const Address address(name);
  const int listening = openSocket(SOCK_NONBLOCK);
  if (listening < 0 || (::bind(listening, address.get(), address.size) == 0 && ::listen(listening, SOMAXCONN) == 0))
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
    first_ = listening_ >= 0 || !Call(name_).found();
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
  Call(name_).say('!');
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
