#include "documents/editor/format_bar.h"

#include <array>
#include <set>

#include "base/number.h"
#include "base/text.h"
#include "documents/document_reader.h"
#include "documents/document_writer.h"

namespace zelvo {

namespace {

constexpr std::string_view kAlignment = "alignment";
// These print alike on every computer of the office.
const std::vector<std::string> kFonts = {"Arial", "Courier New", "Times New Roman"};
const std::vector<std::string> kSizes = {"8",  "9",  "10", "11", "12", "14", "16", "18",
                                         "20", "22", "24", "28", "36", "48", "72"};

}  // namespace

FormatBar::FormatBar(Screen& screen, Desk& desk, RichTextBox& text)
    : cmdUndo(screen, "cmdUndo", "Undo"),
      cmdRedo(screen, "cmdRedo", "Redo"),
      cmdCut(screen, "cmdCut", "Cut"),
      cmdCopy(screen, "cmdCopy", "Copy"),
      cmdPaste(screen, "cmdPaste", "Paste"),
      cboFont(screen, "cboFont"),
      cboSize(screen, "cboSize"),
      chkBold(screen, "chkBold", "Bold"),
      chkItalic(screen, "chkItalic", "Italic"),
      chkUnderline(screen, "chkUnderline", "Underline"),
      optLeft(screen, "optLeft", "Left", kAlignment),
      optCenter(screen, "optCenter", "Center", kAlignment),
      optRight(screen, "optRight", "Right", kAlignment),
      optJustify(screen, "optJustify", "Justify", kAlignment),
      desk_(desk),
      text_(text) {
  cboFont.freeText = cboSize.freeText = false;
  cboFont.tip = "Font of the selected words";
  cboSize.tip = "Size of the selected words, in points";
  cboSize.items = kSizes;
  const std::pair<Control*, const char*> tips[] = {
      {&cmdUndo, "Undo (Ctrl+Z)"},     {&cmdRedo, "Redo (Ctrl+Y)"},           {&cmdCut, "Cut (Ctrl+X)"},
      {&cmdCopy, "Copy (Ctrl+C)"},     {&cmdPaste, "Paste (Ctrl+V)"},         {&chkBold, "Bold (Ctrl+B)"},
      {&chkItalic, "Italic (Ctrl+I)"}, {&chkUnderline, "Underline (Ctrl+U)"}, {&optLeft, "Left (Ctrl+L)"},
      {&optCenter, "Center (Ctrl+E)"}, {&optRight, "Right (Ctrl+R)"},         {&optJustify, "Justify (Ctrl+J)"}};
  for (const auto& [control, tip] : tips)
    control->tip = tip;
}

// A letter keeps the fonts that it was written in.
void FormatBar::offerFonts() {
  std::set<std::string> fonts = text_.fonts();
  fonts.insert(kFonts.begin(), kFonts.end());
  cboFont.items.assign(fonts.begin(), fonts.end());
}

void FormatBar::refresh() {
  offerFonts();
  const SelectionLook look = text_.look();
  cboFont.text = look.family.value_or("");
  cboSize.text = look.points ? numberText(*look.points) : "";
  chkBold.checked = look.bold.value_or(false);
  chkItalic.checked = look.italic.value_or(false);
  chkUnderline.checked = look.underline.value_or(false);
  const std::array<Option*, 4> options = {&optLeft, &optCenter, &optRight, &optJustify};
  for (std::size_t i = 0; i < options.size(); ++i)
    options[i]->chosen = look.alignment == static_cast<Alignment>(i);
  cmdUndo.enabled = text_.canUndo();
  cmdRedo.enabled = text_.canRedo();
  cmdCut.enabled = cmdCopy.enabled = !text_.selection().empty();
}

std::vector<std::pair<Control*, std::function<void()>>> FormatBar::deeds() {
  const auto toggle = [this](const CheckBox& box, auto set) {
    return [this, &box, set] { text_.changeStyle([&](TextStyle& style) { set(style, box.checked); }); };
  };
  std::vector<std::pair<Control*, std::function<void()>>> all = {
      {&cmdUndo, [this] { text_.undo(); }},
      {&cmdRedo, [this] { text_.redo(); }},
      {&cmdCut, [this] { cut(); }},
      {&cmdCopy, [this] { copy(); }},
      {&cmdPaste, [this] { paste(); }},
      {&cboFont, [this] { chooseFont(); }},
      {&cboSize, [this] { chooseSize(); }},
      {&chkBold, toggle(chkBold, [](TextStyle& style, bool on) { style.font.bold = on; })},
      {&chkItalic, toggle(chkItalic, [](TextStyle& style, bool on) { style.font.italic = on; })},
      {&chkUnderline, toggle(chkUnderline, [](TextStyle& style, bool on) { style.underline = on; })}};
  for (Option* option : {&optLeft, &optCenter, &optRight, &optJustify})
    all.emplace_back(option, [this] { chooseAlignment(); });
  return all;
}

void FormatBar::bind(const Binding& onClick, const Binding& onEdit, const std::function<void()>& after) {
  for (const auto& [control, deed] : deeds())
    (control->kind() == ControlKind::Combo ? onEdit : onClick)(*control, [deed = deed, after] {
      deed();
      after();
    });
}

void FormatBar::chooseFont() {
  if (!cboFont.text.empty())
    text_.changeStyle([this](TextStyle& style) { style.font.family = cboFont.text; });
}

void FormatBar::chooseSize() {
  const double points = Val(cboSize.text);
  if (points > 0)
    text_.changeStyle([points](TextStyle& style) { style.font.points = points; });
}

void FormatBar::chooseAlignment() {
  const std::array<Option*, 4> options = {&optLeft, &optCenter, &optRight, &optJustify};
  for (std::size_t i = 0; i < options.size(); ++i)
    if (options[i]->chosen)
      text_.align(static_cast<Alignment>(i));
}

void FormatBar::copy() {
  const TextRange range = text_.selection();
  desk_.desktop.setClipboard(textOf(text_.document(), range), writeDocument(partOf(text_.document(), range)));
}

void FormatBar::cut() {
  copy();
  text_.insert(std::vector<Paragraph>{});
}

// Words that were copied with their look keep it; others are written as if they were typed.
void FormatBar::paste() {
  const std::string rich = desk_.desktop.richClipboard();
  const Document copied = rich.empty() ? Document() : readDocument(rich);
  std::vector<Paragraph> paragraphs;
  for (const Paragraph* paragraph : paragraphsOf(copied))
    paragraphs.push_back(*paragraph);
  if (!paragraphs.empty())
    text_.insert(paragraphs);
  else
    text_.insert(desk_.desktop.clipboard());
}

}  // namespace zelvo
