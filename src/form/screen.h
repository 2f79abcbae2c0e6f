#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "form/control.h"

namespace zelvo {

struct Desk;

/// What a screen is without a window: its controls in the order of the Tab key, and its handlers. Faces (the windows,
/// the console, the tests) show it and tell it what the user did, through the user... functions alone.
///
/// A handler runs to its end. A handler that waits for a modal screen waits inside Screens::showModal. An exception
/// that leaves a handler is shown to the user with what happened; what was typed stays on the screen.
class Screen {
 public:
  Screen(Desk& desk, std::string_view name, std::string_view caption);
  virtual ~Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  const std::string& name() const { return name_; }
  const std::vector<Control*>& controls() const { return controls_; }
  /// The control of that name; null when there is none. A control that is in no array needs no index.
  Control* find(std::string_view name, int index = Control::kAlone) const;
  /// The same by its id: "INew", "Text1(18)".
  Control* findById(std::string_view id) const;

  // What a user does. Each is refused, with the reason, on a control that is hidden or disabled or cannot take it.
  Result<void> userSets(Control& control, std::string_view value);
  /// A change that is more than a value, such as letters typed into a letter with their look. Runs the same handler.
  Result<void> userChanges(Control& control, const std::function<void()>& change);
  Result<void> userClicks(Control& control);
  Result<void> userLeaves(Control& control);
  Result<void> userChooses(ListView& list, std::size_t row);
  Result<void> userOpensRow(ListView& list, std::size_t row);  ///< double click, or Enter
  Result<void> userSorts(ListView& list, std::size_t column);  ///< by the head of a column, from 0
  /// Typing rests for a moment. Faces with a keyboard tell it; a screen must not rely on it.
  void userRests(Control& control);
  /// What was typed into a box before and begins like what stands in it, the most usual first; nothing for a box that
  /// suggests nothing. Never takes longer than typing bears.
  std::vector<std::string> offersFor(const Control& control);
  void userCloses();  ///< by the window's own button
  /// An entry of the menu over the text boxes ("mcopy"), for this box; without one, for the box that was last changed
  /// or left.
  Result<void> userPicksFromTextMenu(std::string_view entry, TextBox* box = nullptr);
  void userAsksForHelp();
  /// Files of the desktop dropped onto the window. Refused where the screen has no use for them.
  Result<void> userDrops(const std::vector<std::string>& files);
  virtual bool takesFiles() const { return false; }

  /// The day that it is, for dates that are typed short.
  Date today() const;

  /// Called by Screens when it came to the front, the first time included.
  void shownInFront();

  std::string caption;       ///< of the window
  std::string status;        ///< the line at the foot of the window
  Control* focus = nullptr;  ///< set by a handler that wants the focus there; a face moves it and clears this
  bool selectAll = false;    ///< with focus: select the whole text

 protected:
  using Handler = std::function<void()>;
  void onClick(Control& control, Handler handler);
  void onEdit(Control& control, Handler handler);
  void onLeave(Control& control, Handler handler);
  void onRest(Control& control, Handler handler);
  void onChoose(ListView& list, Handler handler);
  void onOpenRow(ListView& list, Handler handler);
  /// The list already says which column it is to be sorted by; asked for the same one again, the other way round.
  void onSort(ListView& list, Handler handler);

  /// Came to the front: `first` when it was just opened.
  virtual void Form_Activate(bool first);
  /// The user closes the window; a screen that has something to ask first overrides this.
  virtual void Form_Close();
  /// For boxes that suggest something.
  virtual std::vector<std::string> typedBefore(const Control& control);
  virtual void Form_Drop(const std::vector<std::string>& /*files*/) {}
  void setFocus(Control& control, bool all = false);
  /// Shows a line at the foot of the window at once, even while the handler still runs.
  void showStatus(std::string_view text);
  void closeMe();

  Desk& desk;

 private:
  friend class Control;
  enum class Event { Click, Edit, Leave, Rest, Choose, OpenRow, Sort };
  void add(Control& control) { controls_.push_back(&control); }
  Result<void> refuseUnreachable(const Control& control) const;
  void noteBox(Control& control);
  void tidyDate(TextBox& box);
  void run(const Control& control, Event event);
  void guarded(const Handler& handler);

  std::string name_;
  std::vector<Control*> controls_;
  std::map<std::pair<const Control*, Event>, Handler> handlers_;
  TextBox* lastBox_ = nullptr;  // that the user worked in
  bool wasShown_ = false;
};

}  // namespace zelvo
