#include "form/screens.h"

#include <algorithm>

#include "form/desk.h"

namespace zelvo {

void Screens::learn(std::string_view name, Factory factory) {
  factories_[std::string(name)] = std::move(factory);
}

bool Screens::knows(std::string_view name) const {
  return factories_.contains(name);
}

Screen* Screens::open(std::string_view name) {
  if (Screen* screen = find(name)) {
    bringToFront(*screen);
    return screen;
  }
  const auto factory = factories_.find(name);
  if (factory == factories_.end())
    return nullptr;
  auto made = factory->second(*desk_);
  Screen& screen = *made;
  return &place(screen, std::move(made), false);
}

bool Screens::showModal(std::string_view name) {
  const auto factory = factories_.find(name);
  if (factory == factories_.end())
    return false;
  const auto screen = factory->second(*desk_);
  showModal(*screen);
  return true;
}

void Screens::showModal(Screen& screen) {
  place(screen, nullptr, true);
  if (isOpen(screen))
    desk_->face.waitUntilClosed(screen);
  if (isOpen(screen))  // the program ended meanwhile
    close(screen);
}

Screen& Screens::place(Screen& screen, std::unique_ptr<Screen> owned, bool modal) {
  open_.insert(open_.begin(), Place{&screen, std::move(owned), modal});
  desk_->face.opened(screen, modal);
  desk_->face.cameToFront(screen);
  screen.shownInFront();
  return screen;
}

void Screens::bringToFront(Screen& screen) {
  const auto found =
      std::find_if(open_.begin(), open_.end(), [&](const Place& place) { return place.screen == &screen; });
  if (found == open_.end() || !reachable(screen))
    return;
  std::rotate(open_.begin(), found, found + 1);
  desk_->face.cameToFront(screen);
  screen.shownInFront();
}

void Screens::close(Screen& screen) {
  const auto found =
      std::find_if(open_.begin(), open_.end(), [&](const Place& place) { return place.screen == &screen; });
  if (found == open_.end())
    return;
  const bool wasFront = found == open_.begin();
  if (found->owned)
    closed_.push_back(std::move(found->owned));
  open_.erase(found);
  desk_->face.closed(screen);
  if (!wasFront || open_.empty() || desk_->ended())
    return;
  Screen& next = *open_.front().screen;
  desk_->face.cameToFront(next);
  next.shownInFront();
}

bool Screens::isOpen(const Screen& screen) const {
  return std::any_of(open_.begin(), open_.end(), [&](const Place& place) { return place.screen == &screen; });
}

Screen* Screens::front() const {
  return open_.empty() ? nullptr : open_.front().screen;
}

Screen* Screens::find(std::string_view name) const {
  for (const Place& place : open_)
    if (place.screen->name() == name)
      return place.screen;
  return nullptr;
}

std::vector<Screen*> Screens::all() const {
  std::vector<Screen*> screens;
  for (const Place& place : open_)
    screens.push_back(place.screen);
  return screens;
}

bool Screens::reachable(const Screen& screen) const {
  for (const Place& place : open_) {
    if (place.screen == &screen)
      return true;
    if (place.modal)
      return false;
  }
  return false;
}

void Screens::showHelp(const Screen& screen) const {
  if (help_)
    help_(*desk_, screen.name());
}

void Screens::sweep() {
  closed_.clear();
}

}  // namespace zelvo
