#pragma once

#include <cstddef>
#include <deque>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "form/session.h"

namespace zelvo {

/// What passes between the script and the program: the commands that come in, the answers that wait for a question, the
/// lines that go out. Each line goes out at once, so that whoever watches an unattended run, or finds it killed, sees
/// how far it came.
///
/// When the script is at its end, or a command failed, the conversation is over: the session is told to end, so that
/// every wait returns, and nothing is said any more while the program winds up.
class Conversation {
 public:
  Conversation(Session& session, std::istream& script, std::ostream& out, std::ostream& trouble);

  /// The next command, without comments, blank lines and the blanks around its first word; none at the end of the
  /// script, which is then over.
  std::optional<std::string> nextCommand();

  void say(std::string_view text);
  /// Says why the command at hand cannot be carried out, on both outputs. Only the first failure counts.
  void fail(std::string_view why);
  bool over() const { return over_; }
  /// A command failed, or what was said could not be written: nobody would know what the run did.
  bool failed() const;

  void queueAnswer(std::string answer) { answers_.push_back(std::move(answer)); }
  std::optional<std::string> takeAnswer();

 private:
  void finish(std::string_view why);

  Session& session_;
  std::istream& script_;
  std::ostream& out_;
  std::ostream& trouble_;
  std::deque<std::string> answers_;
  std::size_t lineNumber_ = 0;
  bool over_ = false;
  bool failed_ = false;
};

}  // namespace zelvo
