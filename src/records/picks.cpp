#include "records/picks.h"

#include "base/text.h"

namespace zelvo {

bool isUnpicked(std::string_view text) {
  text = trim(text);
  return text.empty() || text == kSelect || text == kNoCode;
}

void Picks::add(Combo& combo, TextBox& box, Saying says) {
  box.visible = false;
  picks_.push_back({&combo, &box, std::move(says)});
}

void Picks::showBoxes() const {
  for (const Pick& pick : picks_)
    pick.combo->text = pick.says ? pick.says(pick.box->text) : pick.box->text;
}

void Picks::fillBoxes() const {
  for (const auto& [combo, box, says] : picks_) {
    if (isUnpicked(combo->text))
      box->text.clear();
    else if (!says)
      box->text = combo->text;
    else if (combo->text != says(box->text))
      box->text = left(trim(combo->text), static_cast<std::size_t>(box->maxLength));
  }
}

void Picks::clear() const {
  for (const Pick& pick : picks_) {
    const auto& items = pick.combo->items;
    pick.combo->text = !items.empty() && items.front() == kSelect ? std::string(kSelect) : "";
    pick.box->text.clear();
  }
}

Combo* Picks::standingFor(const TextBox& box) const {
  for (const Pick& pick : picks_)
    if (pick.box == &box)
      return pick.combo;
  return nullptr;
}

Combo* Picks::sayingAsStored(const TextBox& box) const {
  for (const Pick& pick : picks_)
    if (pick.box == &box && !pick.says)
      return pick.combo;
  return nullptr;
}

TextBox* Picks::boxOf(const Control& list) const {
  for (const Pick& pick : picks_)
    if (pick.combo == &list)
      return pick.box;
  return nullptr;
}

}  // namespace zelvo
