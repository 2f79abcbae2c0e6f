#include "data/postgres/trouble.h"

#include <string>

#include "base/text.h"

namespace zelvo::postgres {

namespace {

struct Cause {
  std::string_view state;  ///< an SQLSTATE, or the two characters of its class
  Trouble trouble;
  std::string_view why;
  std::string_view advice;
};

constexpr std::string_view askForRights = "Ask whoever looks after the server for the right to it.";

constexpr Cause causes[] = {
    {"55P03", Trouble::Busy, "another computer kept it locked", "Wait a moment and try again."},
    {"40", Trouble::Busy, "another computer stored at the same moment", "Try again."},
    {"53100", Trouble::Full, "the server's disk is full", "Make room on it and try again."},
    {"53", Trouble::Busy, "the server is out of memory or connections", "Wait a moment and try again."},
    {"42501", Trouble::ReadOnly, "this user has no right to it on the server", askForRights},
    {"25006", Trouble::ReadOnly, "the server is read-only", askForRights},
    {"22003", Trouble::BadInput, "a number is too large", "Correct it and try again."},
    {"22P02", Trouble::BadInput, "a number is too large", "Correct it and try again."},
    {"54", Trouble::BadInput, "it is too much at once", "Take it apart and try again."},
    {"57014", Trouble::Busy, "the server gave it up", "Try again."},
};

}  // namespace

Error serverError(FileDeed deed, std::string_view path, std::string_view state, std::string_view detail) {
  for (const Cause& cause : causes)
    if (state.starts_with(cause.state))
      return fileError(deed, path, cause.trouble, cause.why, cause.advice);
  return fileError(deed, path, Trouble::Failed, "the server said: " + std::string(trim(detail)),
                   "Try again, and tell whoever looks after the server.");
}

Error notReached(std::string_view path, std::string_view server, std::string_view detail) {
  return fileError(
      FileDeed::Read, path, Trouble::Failed,
      "the server " + std::string(server) + " could not be reached (" + replaceAll(trim(detail), "\n", " ") + ")",
      "Nothing was changed. Check that the server is running and the network is up, and try again.");
}

Error brokeOff(FileDeed deed, std::string_view path, BrokeWhile when) {
  if (when == BrokeWhile::Keeping)
    return fileError(deed, path, Trouble::Failed,
                     "the server went away just when the changes were to be kept, and may have kept them",
                     "Look the record up before you store it again.");
  return fileError(deed, path, Trouble::Failed, "the server went away, and changes that were under way were given up",
                   "Try again when it is back.");
}

}  // namespace zelvo::postgres
