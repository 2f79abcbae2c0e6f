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

namespace {

void putListedFirst(std::vector<std::string>& offers, const Combo& list) {
  std::vector<std::string> listed;
  for (const std::string& item : list.items)
    if (item != list.text && beginsAlike(item, list.text))
      listed.push_back(item);
  for (const std::string& item : listed)
    std::erase(offers, item);
  offers.insert(offers.begin(), listed.begin(), listed.end());
}

}  // namespace

void RecordScreen::prepareSuggestions() {
  const auto suggest = [](Control& control, const Column& column) {
    const auto* text = dynamic_cast<const TextBox*>(&control);
    control.suggests = TypedBefore::offers(column) && (!text || (!text->holdsDate && !text->manyLines));
  };
  for (const Column& column : records().table().columns)
    if (column.box >= 1 && Text1.has(column.box) && column.name != records().table().key) {
      Combo* pick = picks.sayingAsStored(Text1(column.box));
      suggest(pick ? static_cast<Control&>(*pick) : Text1(column.box), column);
    }
  for (const OwnBoxes::Box& own : ownBoxes.all())
    suggest(*own.control, *own.column);
}

// What the office put on the list of a box comes before what was typed there.
std::vector<std::string> RecordScreen::typedBefore(const Control& control) {
  if (const OwnBoxes::Box* own = ownBoxes.of(control))
    return typedBefore(*own->column, control.shown(), own->from);
  const TextBox* stored = picks.boxOf(control);
  const TextBox* box = stored ? stored : dynamic_cast<const TextBox*>(&control);
  const auto& columns = records().table().columns;
  const auto column = box ? std::ranges::find(columns, box->index(), &Column::box) : columns.end();
  if (!box || box->name() != Text1(1).name() || column == columns.end())
    return {};
  auto offers = typedBefore(*column, control.shown(), 0);
  if (stored)
    putListedFirst(offers, dynamic_cast<const Combo&>(control));
  return offers;
}

// A search shows few records: what was typed into the others is offered all the same, once it was read.
std::vector<std::string> RecordScreen::typedBefore(const Column& column, std::string_view text, std::size_t from) {
  if (before_.empty() || std::exchange(readBefore_, false))
    before_.read(records());
  return before_.beginning(records().table(), column.name, text, from);
}

}  // namespace zelvo
