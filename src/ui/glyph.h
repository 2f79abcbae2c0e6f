#pragma once

class QIcon;

namespace zelvo {

/// The small drawings on buttons. Each is drawn from lines in the colour of the text beside it, so that it is sharp at
/// any size and right on a light and on a dark desktop.
enum class Glyph {
  None,
  New,
  Add,
  Edit,
  Save,
  Cancel,
  First,
  Previous,
  Next,
  Last,
  Find,
  Reset,
  Void,
  Info,
  Print,
  Quit,
  House,
  Clipboard,
  Map,
  Place,
  Seal,
  Pen,
  Warning,
  Flame,
  Calendar,
  Coin,
  Document,
  Open,
  Undo,  ///< from here on those of a text that is being written
  Redo,
  Cut,
  Copy,
  Paste,
  Bold,
  Italic,
  Underline,
  AlignLeft,
  AlignCenter,
  AlignRight,
  Justify
};

/// An icon of the text's colour.
QIcon glyphIcon(Glyph glyph);
/// A white drawing on a rounded tile; `hue` is 0 to 359 of the colour circle.
QIcon tileIcon(Glyph glyph, int hue);

}  // namespace zelvo
