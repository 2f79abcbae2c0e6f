// zelvo-letter: reads, fills and lays out a letter without the program around it, for support and for checking.

#include <cstdio>

#include "app/letter/letter_tasks.h"

namespace {

using namespace zelvo;

void say(std::FILE* to, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), to);
}

// Prints what was made, or why it was not; gives the exit code.
int report(const Result<std::string>& made) {
  if (!made) {
    say(stderr, "zelvo-letter: " + made.error().message + "\n");
    return 1;
  }
  say(stdout, *made);
  return std::fflush(stdout) == 0 && !std::ferror(stdout) ? 0 : 1;
}

Result<std::string> carryOut(const LetterCommand& command) {
  switch (command.task) {
    case LetterTask::Text:
      return textOfLetter(command);
    case LetterTask::Merge: {
      const auto merged = mergeIntoFile(command);
      return merged ? Result<std::string>(std::string()) : merged.error();
    }
    case LetterTask::Pdf:
      return startPages(command);
    case LetterTask::Help:
      break;
  }
  return std::string(kLetterUsage);
}

}  // namespace

int main(int count, char** arguments) {
  const auto command = letterCommand({arguments + 1, static_cast<std::size_t>(count > 0 ? count - 1 : 0)});
  if (!command) {
    say(stderr, "zelvo-letter: " + command.error().message + "\n\n" + std::string(kLetterUsage));
    return 2;
  }
  return report(carryOut(*command));
}
