#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "form/desk.h"

namespace zelvo::testing {

/// A desk whose outside world follows a script. Every message is compared with the one expected; one that was not
/// expected, and one that never came, fail the test.
class ScriptedDesk : private Messages, private Pickers, private Printing, private Desktop, private Clock, private Face {
 public:
  ScriptedDesk() { screens.attach(desk); }
  ~ScriptedDesk() {
    for (const auto& left : expected_)
      ADD_FAILURE() << "expected message never came: [" << left.title << "] " << left.text;
  }

  /// The next message must have this title and text; it is answered so. A text ending in "..." compares up to there.
  void expect(std::string title, std::string text, Answer answer = Answer::OK) {
    expected_.push_back({std::move(title), std::move(text), answer});
  }
  void pick(std::string path) { picks_.push_back(std::move(path)); }
  /// What the user does when the named modal screen (or one that is waited for) comes up.
  void when(std::string screen, std::function<void(Screen&)> does) { users_[std::move(screen)] = std::move(does); }

  // What a user does with a screen, by the names of its controls. Each fails the test when the screen refuses it.
  void set(Screen& screen, std::string_view id, std::string_view value) {
    done(screen.userSets(control(screen, id), value), id);
  }
  void click(Screen& screen, std::string_view id) { done(screen.userClicks(control(screen, id)), id); }
  void leave(Screen& screen, std::string_view id) { done(screen.userLeaves(control(screen, id)), id); }
  void choose(Screen& screen, std::string_view id, std::string_view row) {
    auto& list = dynamic_cast<ListView&>(control(screen, id));
    const auto found = list.findRow(row);
    ASSERT_TRUE(found) << id << " has no row " << row;
    done(screen.userChooses(list, *found), id);
  }
  std::string shown(const Screen& screen, std::string_view id) { return control(screen, id).shown(); }
  Control& control(const Screen& screen, std::string_view id) {
    Control* found = screen.findById(id);
    if (!found)
      throw std::logic_error(screen.name() + " has no control " + std::string(id));
    return *found;
  }

  /// Takes the messages that nothing above expects, when it is set: for work whose messages depend on chance.
  std::function<Answer(const MessageBox&)> answers;
  Session session;
  Screens screens;
  DateTime time{{2026, 3, 9}, 10 * 3600 + 15 * 60};
  ScreenSize display{1366, 768};
  std::optional<std::string> user = "clerk";
  std::string temporary = "/tmp";
  std::optional<std::string> browser = "/bin/true";
  std::vector<PrintJob> printed;
  Result<void> printerSays;
  int pages = 3;                        ///< of whatever is looked at before it is printed
  std::optional<int> chosenCopies = 1;  ///< in the printer dialog; nothing: it is cancelled
  std::vector<std::string> started;
  std::vector<std::string> statusLines;
  std::vector<std::string> came;    ///< names of the screens as they came to the front
  std::function<void()> meanwhile;  ///< what the user does while long work listens
  double paused = 0;
  bool displaySwitched = false;
  Desk desk{session, *this, *this, *this, *this, *this, *this, screens};

 private:
  struct Expected {
    std::string title, text;
    Answer answer;
  };

  static void done(const Result<void>& result, std::string_view id) {
    EXPECT_TRUE(result.ok()) << id << ": " << (result.ok() ? "" : result.error().message);
  }

  Answer ask(const MessageBox& box) override {
    if (expected_.empty() && answers)
      return answers(box);
    if (expected_.empty()) {
      ADD_FAILURE() << "unexpected message: [" << box.title << "] " << box.text;
      return presetOf(box);
    }
    const Expected next = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(box.title, next.title);
    if (next.text.ends_with("..."))
      EXPECT_EQ(box.text.substr(0, next.text.size() - 3), next.text.substr(0, next.text.size() - 3));
    else
      EXPECT_EQ(box.text, next.text);
    return next.answer;
  }
  std::optional<std::string> nextPick() {
    if (picks_.empty())
      return std::nullopt;
    auto path = picks_.front();
    picks_.pop_front();
    return path;
  }
  std::optional<std::string> openFile(const FilePicker&) override { return nextPick(); }
  std::optional<std::string> saveFile(const FilePicker&, std::string_view) override { return nextPick(); }
  std::optional<std::string> folder(std::string_view, std::string_view) override { return nextPick(); }

  Result<void> print(const PrintJob& job) override {
    if (printerSays)
      printed.push_back(job);
    return printerSays;
  }
  bool choosePrinter(PrintOptions& options) override {
    options.copies = chosenCopies.value_or(options.copies);
    return chosenCopies.has_value();
  }

  Result<PrintedCopy> copyOf(const PrintJob& job) override { return PrintedCopy{"pages of " + job.title, ".pdf"}; }
  Result<int> countPages(const PrintJob&) override { return pages; }

  std::optional<std::string> networkUser() override { return user; }
  std::string temporaryFolder() override { return temporary; }
  std::string systemFolder() override { return "/"; }
  ScreenSize screenSize() override { return display; }
  Result<void> switchDisplay(ScreenSize) override {
    displaySwitched = true;
    return {};
  }
  void restoreDisplay() override { displaySwitched = false; }
  std::optional<std::string> programFor(std::string_view) override { return browser; }
  Result<void> start(std::string_view commandLine) override {
    started.emplace_back(commandLine);
    return {};
  }
  void activateWindow() override {}

  DateTime now() override { return time; }
  void pause(double seconds) override { paused += seconds; }

  void opened(Screen&, bool) override {}
  void cameToFront(Screen& screen) override { came.push_back(screen.name()); }
  void closed(Screen&) override {}
  void status(Screen&, std::string_view text) override { statusLines.emplace_back(text); }
  void waitUntilClosed(Screen& screen) override {
    const auto found = users_.find(screen.name());
    if (found == users_.end())
      ADD_FAILURE() << "nobody works in the screen " << screen.name();
    else
      found->second(screen);
    if (screens.isOpen(screen) && !desk.ended())
      screens.close(screen);
  }
  void processEvents() override {}
  std::string nameOf(const Control& control) override { return control.id(); }
  void listen() override {
    if (meanwhile)
      meanwhile();
  }
  void busy(bool) override {}

  std::deque<Expected> expected_;
  std::deque<std::string> picks_;
  std::map<std::string, std::function<void(Screen&)>> users_;
};

}  // namespace zelvo::testing
