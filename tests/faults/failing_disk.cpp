#include "failing_disk.h"

#include <cerrno>
#include <filesystem>

#include <unistd.h>

namespace zelvo::testing {

FailingDisk* FailingDisk::failing_ = nullptr;

std::string nameOf(Fault fault) {
  constexpr const char* names[] = {"FailsOnce",      "FailsFromThenOn",  "FullOnce",
                                   "FullFromThenOn", "ReadOnly",         "WritesInPieces",
                                   "Killed",         "KilledInMidWrite", "PowerCut"};
  return names[static_cast<std::size_t>(fault)];
}

bool kills(Fault fault) {
  return fault == Fault::Killed || fault == Fault::KilledInMidWrite || fault == Fault::PowerCut;
}

std::vector<bool> waysToGoOn(Fault fault) {
  if (fault == Fault::FailsFromThenOn || fault == Fault::FullFromThenOn)
    return {true, false};
  return {!kills(fault)};
}

bool strikesWritesOnly(Fault fault) {
  return fault == Fault::FullOnce || fault == Fault::FullFromThenOn || fault == Fault::WritesInPieces ||
         fault == Fault::KilledInMidWrite;
}

FailingDisk::FailingDisk(std::string_view folder, Fault fault, int call)
    : folder_(std::filesystem::canonical(folder).string()), fault_(fault), call_(call) {
  if (fault_ == Fault::PowerCut)
    platters_.emplace(folder_);
  failing_ = this;
}

void FailingDisk::lift() {
  if (failing_ == this)
    failing_ = nullptr;
}

void FailingDisk::finish() {
  lift();
  if (platters_)
    platters_->cutPower();
}

void FailingDisk::flushed(const std::string& path) {
  if (failing_ && failing_->platters_ && path.starts_with(failing_->folder_))
    failing_->platters_->flushed(path);
}

FailingDisk::Fate FailingDisk::fateOf(const char* call, const std::string& path, Deed deed, std::size_t size) {
  FailingDisk* disk = failing_;
  if (!disk || !disk->isStrikable(path, deed) || ++disk->count_ < disk->call_)
    return {0, size};
  if (!disk->struck()) {
    disk->struckAt_ = std::string(call) + " " + path;
    disk->struckARemoval_ = deed == Deed::Remove;
  }
  return disk->strike(deed, size);
}

bool FailingDisk::isStrikable(const std::string& path, Deed deed) const {
  if (!path.starts_with(folder_))
    return false;
  switch (fault_) {
    case Fault::FullOnce:
    case Fault::FullFromThenOn:
      return deed == Deed::Write || deed == Deed::Create;
    case Fault::WritesInPieces:
    case Fault::KilledInMidWrite:
      return deed == Deed::Write;
    case Fault::ReadOnly:
      return deed != Deed::Flush;
    default:
      return true;
  }
}

FailingDisk::Fate FailingDisk::strike(Deed deed, std::size_t size) {
  const bool first = count_ == call_;
  switch (fault_) {
    case Fault::FailsOnce:
      return {first ? EIO : 0, size};
    case Fault::FailsFromThenOn:
      return {EIO, 0};
    case Fault::ReadOnly:
      return {EROFS, 0};
    case Fault::FullOnce:
      return {first ? ENOSPC : 0, size};
    case Fault::FullFromThenOn:
      return {first && deed == Deed::Write && size > 1 ? 0 : ENOSPC, size / 2};
    case Fault::WritesInPieces:
      return {0, first && size > 1 ? size / 2 : size};
    case Fault::Killed:
    case Fault::PowerCut:
      finish();
      ::_exit(9);
    case Fault::KilledInMidWrite:
      return {0, size / 2, true};
  }
  return {};
}

}  // namespace zelvo::testing
