#include "console/console_face.h"

#include "console/console_commands.h"

namespace zelvo {

void ConsoleFace::workUntilEnded() {
  workWhile([this] { return desk_->screens.front() != nullptr; });
  desk_->end("no screen is open");
}

void ConsoleFace::cameToFront(Screen& screen) {
  talk_.say("screen: " + screen.name());
}

void ConsoleFace::status(Screen&, std::string_view text) {
  if (!text.empty())
    talk_.say("status: " + std::string(text));
}

void ConsoleFace::waitUntilClosed(Screen& screen) {
  workWhile([this, &screen] { return desk_->screens.isOpen(screen); });
}

// A wait within another one is a handler's, and the screen of that handler may be among the closed ones: they are
// destroyed between the commands of the outermost wait alone.
void ConsoleFace::workWhile(const std::function<bool()>& wanted) {
  ++waits_;
  while (!desk_->ended() && wanted()) {
    if (waits_ == 1)
      desk_->screens.sweep();
    const auto command = talk_.nextCommand();
    if (!command)
      break;
    if (const auto done = carryOut(*command, *desk_, talk_); !done)
      talk_.fail(done.error().message);
  }
  --waits_;
}

}  // namespace zelvo
