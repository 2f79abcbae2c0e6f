#pragma once

#include <array>

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

/// The layout of a record screen around the rows of its own.
template <std::size_t Own>
constexpr auto recordLayout(const LayoutRow (&own)[Own]) {
  std::array<LayoutRow, kRecordTools.size() + Own + kRecordPages.size()> rows{};
  auto end = std::copy(kRecordTools.begin(), kRecordTools.end(), rows.begin());
  end = std::copy(own, own + Own, end);
  std::copy(kRecordPages.begin(), kRecordPages.end(), end);
  return rows;
}

}  // namespace zelvo
