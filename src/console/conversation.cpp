#include "console/conversation.h"

#include <istream>
#include <ostream>

#include "base/text.h"
#include "console/script_text.h"

namespace zelvo {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// A script is written with whatever editor the office has.
std::string commandOf(std::string line, bool first) {
  if (first && line.starts_with(kByteOrderMark))
    line.erase(0, kByteOrderMark.size());
  if (line.ends_with('\r'))
    line.pop_back();
  line.erase(0, line.size() - trimLeft(line).size());
  return isUtf8(line) ? line : fromWindows1252(line);
}

void writeLine(std::ostream& out, std::string_view text) {
  out << text << '\n' << std::flush;
}

}  // namespace

Conversation::Conversation(Session& session, std::istream& script, std::ostream& out, std::ostream& trouble)
    : session_(session), script_(script), out_(out), trouble_(trouble) {}

std::optional<std::string> Conversation::nextCommand() {
  std::string line;
  while (!over_ && std::getline(script_, line)) {
    ++lineNumber_;
    line = commandOf(std::move(line), lineNumber_ == 1);
    if (!line.empty() && !line.starts_with('#'))
      return line;
  }
  if (!over_)
    finish("the end of the script");
  return std::nullopt;
}

void Conversation::say(std::string_view text) {
  if (!over_)
    writeLine(out_, onOneLine(text));
}

void Conversation::fail(std::string_view why) {
  if (over_)
    return;
  const std::string line = onOneLine("error: line " + std::to_string(lineNumber_) + ": " + std::string(why));
  writeLine(out_, line);
  writeLine(trouble_, line);
  failed_ = true;
  finish("a command failed");
}

bool Conversation::failed() const {
  return failed_ || !out_;
}

std::optional<std::string> Conversation::takeAnswer() {
  if (answers_.empty())
    return std::nullopt;
  std::string answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

void Conversation::finish(std::string_view why) {
  over_ = true;
  if (!session_.ended)
    session_.ended = std::string(why);
}

}  // namespace zelvo
