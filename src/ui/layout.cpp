#include "ui/layout.h"

#include <algorithm>
#include <map>

#include "base/text.h"

namespace zelvo {

namespace {

bool isOfMenu(const Control& control) {
  return control.kind() == ControlKind::Menu || control.kind() == ControlKind::MenuEntry;
}

// What stands on the control itself.
std::string ownCaption(const Control& control) {
  if (const auto* button = dynamic_cast<const Button*>(&control))
    return button->caption;
  if (const auto* box = dynamic_cast<const CheckBox*>(&control))
    return box->caption;
  if (const auto* option = dynamic_cast<const Option*>(&control))
    return option->caption;
  return {};
}

// The letter behind "&", upper case; "&&" is the sign itself.
std::string accessKey(std::string_view caption) {
  for (std::size_t at = caption.find('&'); at != std::string_view::npos && at + 1 < caption.size();
       at = caption.find('&', at + 2))
    if (caption[at + 1] != '&')
      return upper(left(caption.substr(at + 1), 1));
  return {};
}

bool placesControl(const LayoutRow& row) {
  return !row.control.empty();
}

void checkCounts(const Screen& screen, const Layout& layout, std::vector<std::string>& problems) {
  std::map<std::string, int, std::less<>> placed;
  for (const LayoutRow& row : layout.rows)
    if (placesControl(row))
      ++placed[std::string(row.control)];
  for (const auto& [id, times] : placed) {
    if (times > 1)
      problems.push_back(id + " is placed " + std::to_string(times) + " times");
    if (!screen.findById(id))
      problems.push_back(id + " is placed, but the screen has no such control");
  }
  for (const Control* control : screen.controls())
    if (control->visible && !isOfMenu(*control) && control->kind() != ControlKind::Tabs &&
        !placed.contains(control->id()))
      problems.push_back(control->id() + " is placed nowhere");
}

const Tabs* tabsOf(const Screen& screen) {
  for (const Control* control : screen.controls())
    if (const auto* tabs = dynamic_cast<const Tabs*>(control))
      return tabs;
  return nullptr;
}

std::size_t pagesOf(const Screen& screen) {
  const Tabs* tabs = tabsOf(screen);
  return tabs ? tabs->pages.size() : 0;
}

void checkPages(const Screen& screen, const Layout& layout, std::vector<std::string>& problems) {
  const std::size_t pages = pagesOf(screen);
  for (const LayoutRow& row : layout.rows)
    if (row.kind == LayoutRow::Kind::Page && static_cast<std::size_t>(row.width) >= pages)
      problems.push_back("page " + std::to_string(row.width) + " is laid out, but the screen has " +
                         std::to_string(pages) + " pages");
}

struct KeyHolder {
  int page;
  std::string_view id;
};
constexpr int kOnEveryPage = -1;

void claimKey(const std::string& key, KeyHolder holder, std::map<std::string, std::vector<KeyHolder>>& taken,
              std::vector<std::string>& problems) {
  if (key.empty())
    return;
  for (const KeyHolder& other : taken[key])
    if (other.page == holder.page || other.page == kOnEveryPage || holder.page == kOnEveryPage)
      problems.push_back("the access key " + key + " is given to " + std::string(other.id) + " and to " +
                         std::string(holder.id));
  taken[key].push_back(holder);
}

// An access key reaches what can be seen: two of a kind clash on one page, or when one of them stands outside the
// pages, as the tabs do.
void checkAccessKeys(const Screen& screen, const Layout& layout, std::vector<std::string>& problems) {
  std::map<std::string, std::vector<KeyHolder>> taken;
  if (const Tabs* tabs = tabsOf(screen))
    for (const std::string& caption : tabs->pages)
      claimKey(accessKey(caption), {kOnEveryPage, caption}, taken, problems);
  int page = kOnEveryPage;
  for (const LayoutRow& row : layout.rows) {
    if (row.kind == LayoutRow::Kind::Page)
      page = row.width;
    const Control* control = placesControl(row) ? screen.findById(row.control) : nullptr;
    if (!control || !control->visible)
      continue;
    const bool outside = row.kind == LayoutRow::Kind::Tool || row.kind == LayoutRow::Kind::Foot;
    const KeyHolder holder{outside ? kOnEveryPage : page, row.control};
    claimKey(accessKey(row.caption), holder, taken, problems);
    claimKey(accessKey(ownCaption(*control)), holder, taken, problems);
  }
}

// The Tab key goes in the order of the screen, the eye in that of the table.
void checkOrder(const Screen& screen, const Layout& layout, std::vector<std::string>& problems) {
  const std::vector<Control*>& order = screen.controls();
  auto ahead = order.begin();
  for (const LayoutRow& row : layout.rows) {
    if (row.kind == LayoutRow::Kind::Page)
      ahead = order.begin();
    const Control* control = placesControl(row) ? screen.findById(row.control) : nullptr;
    if (!control || control->kind() == ControlKind::Label)
      continue;
    const auto place = std::find(order.begin(), order.end(), control);
    if (place < ahead)
      problems.push_back("the Tab key comes to " + control->id() + " before " + (*ahead)->id() +
                         ", which stands ahead of it");
    ahead = std::max(ahead, place);
  }
}

}  // namespace

std::string captionOf(const Control& control) {
  const Layout* layout = layoutFor(control.screen().name());
  std::string group;
  for (const LayoutRow& row : layout ? layout->rows : std::span<const LayoutRow>()) {
    if (row.kind == LayoutRow::Kind::Group)
      group = row.caption;
    if (row.control != control.id())
      continue;
    const std::string own = row.caption.empty() ? ownCaption(control) : std::string(row.caption);
    const std::string caption = replaceAll(own, "&", "");
    return group.empty() || caption.empty() || group == caption ? caption.empty() ? group : caption
                                                                : group + ": " + caption;
  }
  return control.id();
}

std::vector<std::string> layoutProblems(const Screen& screen, const Layout& layout) {
  std::vector<std::string> problems;
  if (layout.screen != screen.name())
    problems.push_back("the layout of " + std::string(layout.screen) + " is none of " + screen.name());
  checkCounts(screen, layout, problems);
  checkPages(screen, layout, problems);
  checkAccessKeys(screen, layout, problems);
  checkOrder(screen, layout, problems);
  return problems;
}

StackedLayout::StackedLayout(const Screen& screen) {
  if (pagesOf(screen) > 0)
    rows_.push_back(page(0));
  rows_.push_back(group());
  for (const Control* control : screen.controls())
    if (!isOfMenu(*control) && control->kind() != ControlKind::Tabs)
      place(*control);
  layout_ = Layout{screen.name(), rows_};
}

void StackedLayout::place(const Control& control) {
  const std::string& id = texts_.emplace_back(control.id());
  const bool named = ownCaption(control).empty() && control.kind() != ControlKind::Label;
  const std::string& caption = texts_.emplace_back(!named ? "" : control.tip.empty() ? id : control.tip);
  const auto* box = dynamic_cast<const TextBox*>(&control);
  if (control.kind() == ControlKind::List)
    rows_.push_back(field(id, {}, 0, kFill));
  else
    rows_.push_back(field(id, caption, 0, box && box->manyLines ? 4 : 1));
}

}  // namespace zelvo
