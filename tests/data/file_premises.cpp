#include <fcntl.h>
#include <unistd.h>

#include "data/sqlite/database.h"
#include "premises.h"

namespace zelvo {

std::string furnish(const std::string&) {
  return "";
}

void spoil(const TempFolder& folder, std::string_view file) {
  folder.write(file, std::string(8192, 'x'));
}

std::string soundness(const TempFolder& folder, std::string_view file) {
  auto database = sqlite::Database::open(folder.file(file), sqlite::Database::Mode::ReadWrite);
  return database.ok() ? (*database)->ask("pragma integrity_check").valueOr("no answer") : database.error().message;
}

/// What a shared folder does to an open file when it goes away: nothing can be read from it any more.
std::unique_ptr<Outage> loseContact(const TempFolder& folder, std::string_view file) {
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    if (std::filesystem::read_symlink(entry.path(), gone) == folder.file(file))
      ::dup2(::open("/dev/null", O_RDWR | O_CLOEXEC), std::stoi(entry.path().filename()));
  }
  return std::make_unique<Outage>();
}

}  // namespace zelvo
