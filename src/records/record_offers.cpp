// What the record pattern offers while a clerk types: what the parcel says of itself, and what was typed before.

#include <algorithm>

#include "base/text.h"
#include "records/record_screen.h"

namespace zelvo {

// ---- what the parcel says of itself

void RecordScreen::prepareParcelOffer() {
  constexpr int kFirst = 2, kLast = 6;
  for (int part = kFirst; part <= kLast; ++part)
    if (Text1.has(part))
      onLeave(Text1(part), [this] {
        offerParcel();
        leftParcel();
      });
}

// Once section, block and lot are typed the parcel is known; what is typed behind them makes it another one.
void RecordScreen::offerParcel() {
  if (mode_ != Mode::New ||
      !std::ranges::all_of(kParcelKeyBoxes, [this](int part) { return !boxText(*this, part).empty(); }))
    return;
  if (const std::string told = offer_.offer(desk.session, parcels_, parcelKey()); !told.empty())
    showStatus(told);
}

// ---- what was typed before

void RecordScreen::prepareSuggestions() {
  for (const Column& column : records().table().columns)
    if (column.box >= 1 && Text1.has(column.box) && column.name != records().table().key) {
      TextBox& box = Text1(column.box);
      box.suggests = TypedBefore::offers(column) && !box.holdsDate && !box.manyLines;
    }
}

// A search shows few records: what was typed into the others is offered all the same, once it was read.
std::vector<std::string> RecordScreen::typedBefore(const TextBox& box) {
  const auto& columns = records().table().columns;
  const auto column = std::ranges::find(columns, box.index(), &Column::box);
  if (box.name() != Text1(1).name() || column == columns.end())
    return {};
  if (before_.empty() || std::exchange(readBefore_, false))
    before_.read(records());
  return before_.beginning(records().table(), column->name, box.text);
}

}  // namespace zelvo
