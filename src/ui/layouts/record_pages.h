#pragma once

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <type_traits>

#include "ui/layout.h"

namespace zelvo {

// What every record screen has alike: the toolbar, and the pages with the list and the attachments. A kind of record
// lays out what stands between them.

inline constexpr std::array kRecordTools = {
    tool("INew", Glyph::New),
    tool("ICopy", Glyph::Document),
    tool("IAdd", Glyph::Add),
    tool("IEdit", Glyph::Edit),
    tool("ISave", Glyph::Save),
    tool("ICancel", Glyph::Cancel),
    toolGap(),
    tool("IMoveFirst", Glyph::First, "Alt+Home"),
    tool("IMovePrev", Glyph::Previous, "Alt+Left"),
    toolText("lblStatus", 24),
    tool("IMoveNext", Glyph::Next, "Alt+Right"),
    tool("IMoveLast", Glyph::Last, "Alt+End"),
    toolGap(),
    tool("ILocate", Glyph::Find),
    tool("iReset", Glyph::Reset),
    tool("delr", Glyph::Void),
    tool("recinfod", Glyph::Info),
    tool("iNote", Glyph::Pen),
    tool("iPrint", Glyph::Print),
    tool("Quit", Glyph::Quit),
    tool("lblVoided"),
    tool("Label28"),
};

inline constexpr std::array kRecordPages = {
    page(1),
    field("ListView1", {}, 0, kFill),
    field("txtFilter", "Only with", 30),
    beside("cmdColumns"),
    beside("cmdPrintList"),
    beside("cmdSaveList"),

    page(2),
    column(2),
    group("Files of this record"),
    field("IDoc"),
    beside("IPic"),
    beside("loadp"),
    field("prevfile"),
    beside("nextFile"),
    beside("openFile"),
    field("lblFile"),
    field("ListView2", {}, 0, kFill),
    field("txtCaption", "Caption"),
    column(3),
    group("Picture"),
    picture("picFile", 80, 26),
};

/// A piece of a control's name, given where a table is written.
template <std::size_t Size>
struct NamePart {
  char text[Size];
  constexpr NamePart(const char (&part)[Size]) { std::copy(part, part + Size, text); }
};

/// The name of a control of one of several pages that are alike: "Text" "Ins" "(1)".
template <NamePart Before, NamePart Page, NamePart After = "">
struct PageControl {
  static constexpr auto name = [] {
    std::array<char, sizeof Before.text + sizeof Page.text + sizeof After.text - 3> joined{};
    auto end = std::copy(Before.text, Before.text + sizeof Before.text - 1, joined.begin());
    end = std::copy(Page.text, Page.text + sizeof Page.text - 1, end);
    std::copy(After.text, After.text + sizeof After.text - 1, end);
    return joined;
  }();
  static constexpr std::string_view id{name.data(), name.size()};
};

/// What the page of rows that belong to a record calls its boxes.
struct SubRecordCaptions {
  std::string_view all, name, number, holder;
};

/// The page of rows that belong to a record: their list, and the one that is chosen.
template <NamePart Page>
constexpr auto subRecordRows(int number, const SubRecordCaptions& captions) {
  return std::array{
      page(number),
      column(5),
      group(captions.all),
      field(PageControl<"iNew", Page>::id),
      beside(PageControl<"iAdd", Page>::id),
      beside(PageControl<"iEdit", Page>::id),
      beside(PageControl<"iSave", Page>::id),
      beside(PageControl<"iCancel", Page>::id),
      field(PageControl<"ListView", Page>::id, {}, 0, kFill),
      column(3),
      group("The chosen one"),
      field(PageControl<"Text", Page, "(1)">::id, captions.name),
      field(PageControl<"Combo", Page>::id, "Type", 24),
      field(PageControl<"DTFrom", Page>::id, "Valid from", 12),
      beside(PageControl<"DTTo", Page>::id, "to", 12),
      field(PageControl<"Text", Page, "(4)">::id, captions.number, 20),
      field(PageControl<"Text", Page, "(2)">::id, "Address"),
      field(PageControl<"Text", Page, "(3)">::id, "Phone", 16),
      field(PageControl<"Text", Page, "(5)">::id, captions.holder),
      field(PageControl<"Text", Page, "(6)">::id, "Project"),
      group("Notes, or reason of exemption"),
      field(PageControl<"Text", Page, "(7)">::id, {}, 0, kFill),
  };
}

template <std::size_t Rows>
std::integral_constant<std::size_t, Rows> rowsOf(const LayoutRow (&)[Rows]);
template <std::size_t Rows>
std::integral_constant<std::size_t, Rows> rowsOf(const std::array<LayoutRow, Rows>&);

/// The layout of a record screen around the rows of its own, which come in one table or several.
template <class... Own>
constexpr auto recordLayout(const Own&... own) {
  std::array<LayoutRow, kRecordTools.size() + (decltype(rowsOf(own))::value + ...) + kRecordPages.size()> rows{};
  auto end = rows.begin();
  const auto append = [&end](const auto& table) { end = std::copy(std::begin(table), std::end(table), end); };
  append(kRecordTools);
  (append(own), ...);
  append(kRecordPages);
  return rows;
}

}  // namespace zelvo
