#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "form/screen.h"

namespace zelvo {

/// The open screens, and how to open one by its name: a screen that needs another asks for it here and so need not know
/// it. Screens are owned here from open to close.
class Screens {
 public:
  using Factory = std::function<std::unique_ptr<Screen>(Desk&)>;

  /// The desk must outlive this; it is given apart, since the desk holds the screens.
  void attach(Desk& desk) { desk_ = &desk; }

  void learn(std::string_view name, Factory factory);
  bool knows(std::string_view name) const;

  /// Opens the screen of that name, or brings it to the front when it is open already. Null when no such screen is
  /// known: the caller says so to the user.
  Screen* open(std::string_view name);
  /// Opens it and waits until it is closed again.
  bool showModal(std::string_view name);
  /// Shows a screen that the caller made, and waits until it is closed; it stays the caller's.
  void showModal(Screen& screen);

  /// One that waits for a modal screen stays behind it.
  void bringToFront(Screen& screen);
  void close(Screen& screen);
  bool isOpen(const Screen& screen) const;
  Screen* front() const;
  Screen* find(std::string_view name) const;
  /// Front first.
  std::vector<Screen*> all() const;
  /// Whether the user can work in it: it is the front modal one, or no modal one is open.
  bool reachable(const Screen& screen) const;
  /// Opens the help of a screen; does nothing while no help was attached.
  void showHelp(const Screen& screen) const;
  void attachHelp(std::function<void(Desk&, std::string_view screen)> help) { help_ = std::move(help); }
  /// Destroys what was closed; for faces, when no handler runs.
  void sweep();

 private:
  struct Place {
    Screen* screen;
    std::unique_ptr<Screen> owned;
    bool modal;
  };
  Screen& place(Screen& screen, std::unique_ptr<Screen> owned, bool modal);

  Desk* desk_ = nullptr;
  std::map<std::string, Factory, std::less<>> factories_;
  std::function<void(Desk&, std::string_view)> help_;
  std::vector<Place> open_;  // front first
  std::vector<std::unique_ptr<Screen>> closed_;
};

}  // namespace zelvo
