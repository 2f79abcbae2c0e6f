#include <array>

#include "ui/layouts/layouts.h"

namespace zelvo {

namespace {

// The tools of a text that is being written, in both windows that have them.
constexpr std::array kFormatRows = {
    tool("cmdUndo", Glyph::Undo, "Ctrl+Z"),
    tool("cmdRedo", Glyph::Redo, "Ctrl+Y"),
    toolGap(),
    tool("cmdCut", Glyph::Cut, "Ctrl+X"),
    tool("cmdCopy", Glyph::Copy, "Ctrl+C"),
    tool("cmdPaste", Glyph::Paste, "Ctrl+V"),
    toolGap(),
    toolBox("cboFont", 20),
    toolBox("cboSize", 4),
    tool("chkBold", Glyph::Bold, "Ctrl+B"),
    tool("chkItalic", Glyph::Italic, "Ctrl+I"),
    tool("chkUnderline", Glyph::Underline, "Ctrl+U"),
    toolGap(),
    tool("optLeft", Glyph::AlignLeft, "Ctrl+L"),
    tool("optCenter", Glyph::AlignCenter, "Ctrl+E"),
    tool("optRight", Glyph::AlignRight, "Ctrl+R"),
    tool("optJustify", Glyph::Justify, "Ctrl+J"),
};

template <std::size_t... Counts>
constexpr auto joined(const std::array<LayoutRow, Counts>&... parts) {
  std::array<LayoutRow, (Counts + ...)> all{};
  std::size_t at = 0;
  const auto add = [&](const auto& part) {
    for (const LayoutRow& row : part)
      all[at++] = row;
  };
  (add(parts), ...);
  return all;
}

constexpr auto kEditorRows =
    joined(std::array{tool("cmdOpen", Glyph::Open, "Ctrl+O"), tool("cmdSave", Glyph::Save, "Ctrl+S"),
                      tool("cmdSaveAs", Glyph::Document), toolGap(), tool("cmdPreview", Glyph::Find),
                      tool("cmdPrint", Glyph::Print, "Ctrl+P"), tool("cmdQuit", Glyph::Quit), toolLine()},
           kFormatRows,
           std::array{toolGap(), tool("lblFind"), toolBox("txtFind", 18, "Ctrl+F"), tool("chkCase"),
                      tool("cmdFind", Glyph::None, "F3"), group(), field("RichTextBox1", {}, 0, kFill)});

constexpr auto kHeaderFrmRows = joined(kFormatRows, std::array{
                                                        group(),
                                                        field("RichTextBox1", {}, 0, kFill),
                                                        field("lblHint"),
                                                        foot("cmdSave"),
                                                        foot("cmdCancel"),
                                                    });

constexpr LayoutRow kPagesFrmRows[] = {
    tool("cmdFirst", Glyph::First, "Ctrl+Home"),
    tool("cmdPrev", Glyph::Previous, "Alt+Left"),
    toolText("lblPage", 16),
    tool("cmdNext", Glyph::Next, "Alt+Right"),
    tool("cmdLast", Glyph::Last, "Ctrl+End"),
    toolGap(),
    tool("lblZoom"),
    toolBox("cboZoom", 10),
    toolGap(),
    tool("cmdPrint", Glyph::Print),
    tool("cmdPdf", Glyph::Document),
    tool("cmdClose", Glyph::Quit),
    group(),
    field("Pages1", {}, 0, kFill),
};

}  // namespace

const Layout kEditorLayout{"Editor", kEditorRows};
const Layout kHeaderFrmLayout{"HeaderFrm", kHeaderFrmRows};
const Layout kPagesFrmLayout{"PagesFrm", kPagesFrmRows};

}  // namespace zelvo
