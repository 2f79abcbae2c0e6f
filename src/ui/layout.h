#pragma once

#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "form/screen.h"
#include "ui/glyph.h"

namespace zelvo {

/// One line of a layout table. A table is read from top to bottom, each row placing one control or opening a part of
/// the window; the window's own order is toolbar, heading, what stands above the pages, the pages, the foot.
struct LayoutRow {
  enum class Kind { Tool, ToolGap, ToolLine, Heading, Page, Column, Group, Field, Beside, Tile, Picture, Bar, Foot };
  Kind kind;
  std::string_view control;  ///< "Text1(18)"
  std::string_view caption;  ///< what stands before a field, with its access key ("&Owner"), or over a group
  int width = 0;   ///< of a field in characters; 0 takes the room there is. A page's number. A column's share.
  int height = 1;  ///< of a field in lines; kFill takes the room there is
  Glyph glyph = Glyph::None;
  int hue = 0;  ///< of a tile
  /// That press a tool ("Alt+Left") when the box with the focus has no use for them: in a letter Ctrl+C stays its own.
  /// A key that goes before every box is the button's own shortcut.
  std::string_view keys = {};
};

inline constexpr int kFill = -1;

/// A window among others, or a cover over the whole desktop behind them.
enum class WindowKind { Plain, Cover };

/// How one screen is laid out.
struct Layout {
  struct Offset {
    int x = 0, y = 0;  ///< twips
  };
  std::string_view screen;
  std::span<const LayoutRow> rows;
  WindowKind kind = WindowKind::Plain;
  std::optional<Offset> besideOpener = std::nullopt;  ///< stands so far from the corner of the window that was in front
};

// The words of the layout tables.

/// A button of the toolbar, or a label that is there now and then.
constexpr LayoutRow tool(std::string_view id, Glyph glyph = Glyph::None, std::string_view keys = {}) {
  return {LayoutRow::Kind::Tool, id, {}, 0, 1, glyph, 0, keys};
}
/// A label of the toolbar that keeps its width, in characters, whatever it says: the buttons beside it stay in place.
constexpr LayoutRow toolText(std::string_view id, int width) {
  return {LayoutRow::Kind::Tool, id, {}, width};
}
/// A line between groups of tools.
constexpr LayoutRow toolGap() {
  return {LayoutRow::Kind::ToolGap, {}, {}};
}
/// The tools behind it stand on a line of their own.
constexpr LayoutRow toolLine() {
  return {LayoutRow::Kind::ToolLine, {}, {}};
}
/// A box among the tools, so many characters wide; a label before it says what it is.
constexpr LayoutRow toolBox(std::string_view id, int width, std::string_view keys = {}) {
  return {LayoutRow::Kind::Tool, id, {}, width, 1, Glyph::None, 0, keys};
}
/// A label in large letters.
constexpr LayoutRow heading(std::string_view id) {
  return {LayoutRow::Kind::Heading, id, {}};
}
/// What follows stands on this page of the screen's tabs, from 0.
constexpr LayoutRow page(int number) {
  return {LayoutRow::Kind::Page, {}, {}, number};
}
/// What follows stands in a further column, which takes `share` parts of the width.
constexpr LayoutRow column(int share = 1) {
  return {LayoutRow::Kind::Column, {}, {}, share};
}
/// What follows stands together under a caption; without one, together without a frame.
constexpr LayoutRow group(std::string_view caption = {}) {
  return {LayoutRow::Kind::Group, {}, caption};
}
/// A control on a line of its own.
constexpr LayoutRow field(std::string_view id, std::string_view caption = {}, int width = 0, int height = 1) {
  return {LayoutRow::Kind::Field, id, caption, width, height};
}
/// A control on the line of the field above; such controls of a group stand under each other.
constexpr LayoutRow beside(std::string_view id, std::string_view caption = {}, int width = 0) {
  return {LayoutRow::Kind::Beside, id, caption, width};
}
/// A large labelled button of a start page.
constexpr LayoutRow tile(std::string_view id, Glyph glyph, int hue) {
  return {LayoutRow::Kind::Tile, id, {}, 0, 1, glyph, hue};
}
/// A label whose text is the path of a picture, which is shown instead, in its group if there is one; no larger than so
/// many characters and lines, where that is said, and never larger than the display.
constexpr LayoutRow picture(std::string_view id, int width = 0, int height = 1) {
  return {LayoutRow::Kind::Picture, id, {}, width, height};
}
/// A label that says "37 %", shown as a bar that fills.
constexpr LayoutRow bar(std::string_view id) {
  return {LayoutRow::Kind::Bar, id, {}};
}
/// A button at the foot of the window.
constexpr LayoutRow foot(std::string_view id, Glyph glyph = Glyph::None) {
  return {LayoutRow::Kind::Foot, id, {}, 0, 1, glyph};
}

/// The layout of a screen that has no table: its controls under each other, in their own order and under their names,
/// so that no screen is ever out of reach.
class StackedLayout {
 public:
  explicit StackedLayout(const Screen& screen);
  StackedLayout(const StackedLayout&) = delete;
  StackedLayout& operator=(const StackedLayout&) = delete;
  const Layout& layout() const { return layout_; }

 private:
  void place(const Control& control);

  std::deque<std::string> texts_;
  std::vector<LayoutRow> rows_;
  Layout layout_;
};

/// The table of that screen; null when it has none.
const Layout* layoutFor(std::string_view screen);

/// What stands beside a control on its window, with the caption of its group ("Owner: Address"); its id when nothing
/// does.
std::string captionOf(const Control& control);

/// What is wrong between a screen and its table: a visible control that is nowhere or twice, a row for a control that
/// is not there, a page that the tabs do not have, an access key that is given twice on one page, a control that
/// the Tab key reaches before one that stands ahead of it. Empty when all is well.
std::vector<std::string> layoutProblems(const Screen& screen, const Layout& layout);

}  // namespace zelvo
