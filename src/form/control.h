#pragma once

#include <cstdint>
#include <deque>
#include <initializer_list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/result.h"

namespace zelvo {

class Screen;

/// How dates are typed, for whoever typed something else.
inline constexpr std::string_view kDateWays = "a date is written mm/dd/yyyy, or 3/9, 030926, t for today, +7 or -3";

enum class ControlKind {
  Label,
  TextBox,
  Button,
  CheckBox,
  Option,
  Combo,
  DatePicker,
  List,
  Tabs,
  Sheet,
  RichText,
  Pages,
  Menu,
  MenuEntry
};

/// One control of a screen: a plain value under the name the office knows it by. It registers itself with its screen
/// and never calls anything: handlers read and write controls, a face writes what the user does and shows what differs.
class Control {
 public:
  static constexpr int kAlone = -1;  ///< the index of a control that is in no control array

  Control(Screen& screen, std::string_view name, int index = kAlone);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  int index() const { return index_; }
  /// "INew", "Text1(18)": how the console and messages name it.
  std::string id() const;
  Screen& screen() const { return screen_; }

  virtual ControlKind kind() const = 0;
  /// What it shows, as one text; empty when it shows nothing.
  virtual std::string shown() const = 0;
  /// What the user enters as text: typed, picked or ticked (1 or 0). Refuses what the control cannot take and then
  /// keeps what it had. Runs no handler: that is the screen's.
  Result<void> enter(std::string_view value);
  /// The same for code that puts back what the control held before; a lock does not stand in its way.
  void put(std::string_view value) { (void)take(value).ok(); }

  bool enabled = true;
  bool visible = true;
  bool locked = false;    ///< shown as ever, but not changed by the user
  bool suggests = false;  ///< offers what was typed into it before (Screen::offersFor)
  bool required = false;  ///< must be filled before the record is stored; faces mark it
  std::string tip;

 protected:
  /// Takes a value that the user entered into a control that is not locked.
  virtual Result<void> take(std::string_view value);

 private:
  Screen& screen_;
  std::string name_;
  int index_;
};

class Label : public Control {
 public:
  Label(Screen& screen, std::string_view name, std::string_view caption = {}, int index = kAlone);
  ControlKind kind() const override { return ControlKind::Label; }
  std::string shown() const override { return caption; }

  std::string caption;
  bool warning = false;    ///< shown so that nobody misses it
  bool clickable = false;  ///< a click does something
};

class TextBox : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::TextBox; }
  std::string shown() const override;  ///< of a password as many stars as it has characters

  /// Writes a date that was typed short ("3/9", "t", "+7") in full. False when the box is to hold a date and what
  /// stands in it is none.
  bool tidyDate();

  std::string text;
  bool manyLines = false;
  bool password = false;
  bool holdsDate = false;  ///< a date that may be typed short; it stands in full once the box is left
  int maxLength = 0;  ///< most characters that a user types; 0 without a limit. What is longer is cut when it is stored

 protected:
  Result<void> take(std::string_view value) override;
};

/// A button, or a picture that is clicked; the caption carries its access key behind "&".
class Button : public Control {
 public:
  Button(Screen& screen, std::string_view name, std::string_view caption, int index = kAlone);
  ControlKind kind() const override { return ControlKind::Button; }
  std::string shown() const override { return caption; }

  std::string caption;
  bool isDefault = false;  ///< Enter presses it
  bool isCancel = false;   ///< Esc presses it
  std::string shortcut;    ///< "Ctrl+S": presses it wherever the focus is, heard before the box that has it
};

class CheckBox : public Control {
 public:
  CheckBox(Screen& screen, std::string_view name, std::string_view caption, int index = kAlone);
  ControlKind kind() const override { return ControlKind::CheckBox; }
  std::string shown() const override { return checked ? "1" : "0"; }

  std::string caption;
  bool checked = false;

 protected:
  Result<void> take(std::string_view value) override;
};

/// One of several of which one is chosen; the group is its name (a control array) or `group`.
class Option : public Control {
 public:
  Option(Screen& screen, std::string_view name, std::string_view caption, std::string_view group, int index = kAlone);
  ControlKind kind() const override { return ControlKind::Option; }
  std::string shown() const override { return chosen ? "1" : "0"; }

  std::string caption;
  std::string group;
  bool chosen = false;

 protected:
  Result<void> take(std::string_view value) override;
};

class Combo : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::Combo; }
  std::string shown() const override { return text; }

  std::string text;  ///< may be a value that the list does not offer: an old record keeps what it holds
  std::vector<std::string> items;
  bool freeText = true;  ///< whether the user may type what the list does not offer

 protected:
  Result<void> take(std::string_view value) override;
};

class DatePicker : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::DatePicker; }
  std::string shown() const override;  ///< mm/dd/yyyy, or nothing

  std::optional<Date> date;

 protected:
  Result<void> take(std::string_view value) override;
};

struct ListColumn {
  std::string caption;
  int width = 12;  ///< in average characters
  bool toRight = false;
};

/// The rows that a list shows. They may be a million, so a list asks for those that it shows. It asks while it paints,
/// where nobody could be told of a trouble: cell throws nothing that can happen while the office works, and gives an
/// empty text where it has none.
class ListRows {
 public:
  virtual ~ListRows() = default;
  virtual std::size_t count() const = 0;
  virtual std::string cell(std::size_t row, std::size_t column) const = 0;
  /// The path of the picture that stands small beside the row; empty: none.
  virtual std::string picture(std::size_t /*row*/) const { return ""; }
};

/// Rows held in memory, for short lists.
class MemoryRows : public ListRows {
 public:
  std::size_t count() const override { return rows.size(); }
  std::string cell(std::size_t row, std::size_t column) const override;
  std::string picture(std::size_t row) const override { return row < pictures.size() ? pictures[row] : ""; }

  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> pictures;  ///< of the rows, where they have any
};

class ListView : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::List; }
  std::string shown() const override;  ///< "2 rows, 5 columns"; nothing when it holds no rows
  std::size_t count() const { return rows ? rows->count() : 0; }
  /// The row by its number from 1, else by the text of its first column.
  std::optional<std::size_t> findRow(std::string_view numberOrText) const;
  /// To be called when the rows behind it changed.
  void rowsChanged() { ++revision; }

  std::vector<ListColumn> columns;
  std::shared_ptr<const ListRows> rows;
  std::optional<std::size_t> selected;  ///< from 0; a face keeps it in sight
  bool hasPictures = false;             ///< its rows are tall enough for theirs
  bool sortable = false;                ///< a click on a column's head is something that the screen hears of
  std::optional<std::size_t> sortedBy;  ///< the column that the rows are in the order of
  /// The column whose order the rows have while the user sorted them by none; nothing when no column shown has it.
  std::optional<std::size_t> naturalOrder = 0;
  bool descending = false;
  std::uint64_t revision = 0;
};

class Tabs : public Control {
 public:
  Tabs(Screen& screen, std::string_view name, std::vector<std::string> captions);
  ControlKind kind() const override { return ControlKind::Tabs; }
  std::string shown() const override { return pages.empty() ? "" : pages[current]; }

  std::vector<std::string> pages;
  std::size_t current = 0;

 protected:
  Result<void> take(std::string_view value) override;  ///< the number from 1, or the caption
};

/// A menu of the menu bar, or one that pops up.
class Menu : public Control {
 public:
  Menu(Screen& screen, std::string_view name, std::string_view caption, bool onBar = true);
  ControlKind kind() const override { return ControlKind::Menu; }
  std::string shown() const override { return caption; }

  std::string caption;
  bool onBar;
  bool overTexts = false;  ///< pops up over the text boxes of every screen, instead of over its own window
};

/// An entry of a menu; a caption of "-" is a line between groups. It can be pressed only while its menu is enabled.
class MenuEntry : public Control {
 public:
  MenuEntry(Screen& screen, Menu& menu, std::string_view name, std::string_view caption);
  ControlKind kind() const override { return ControlKind::MenuEntry; }
  std::string shown() const override { return caption == "-" ? "" : caption; }

  Menu& menu;
  std::string caption;
  std::string shortcut;  ///< "Ctrl+P", for faces with a keyboard
};

/// Controls that share a name and differ by index: Text1(1), Text1(2), ...
template <class C>
class ControlArray {
 public:
  ControlArray(Screen& screen, std::string_view name, std::initializer_list<int> indices = {})
      : screen_(screen), name_(name) {
    add(indices);
  }
  /// Further controls of the array, behind all that the screen has declared so far.
  void add(std::initializer_list<int> indices) {
    for (int index : indices)
      controls_.emplace_back(screen_, name_, index);
  }
  C& operator()(int index) { return const_cast<C&>(std::as_const(*this)(index)); }
  const C& operator()(int index) const {
    for (const C& control : controls_)
      if (control.index() == index)
        return control;
    throw std::out_of_range("no control with the index " + std::to_string(index));
  }
  bool has(int index) const {
    for (const C& control : controls_)
      if (control.index() == index)
        return true;
    return false;
  }
  auto begin() { return controls_.begin(); }
  auto end() { return controls_.end(); }

 private:
  Screen& screen_;
  std::string name_;
  std::deque<C> controls_;
};

/// A group of boxes of a control array, declared where the group stands in the order of the Tab key.
template <class C>
struct ControlGroup {
  ControlGroup(ControlArray<C>& array, std::initializer_list<int> indices) { array.add(indices); }
};

}  // namespace zelvo
