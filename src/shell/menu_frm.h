#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// The main menu: the one screen that stays open from the sign-in to the end. Everything else is opened from it, by
/// name.
class MenuFrm : public Screen {
 public:
  explicit MenuFrm(Desk& desk);

  /// Ends the session: closes the other screens as their window buttons would (one that stays, because its user is not
  /// done with it, keeps the program running), backs up on the master computer as its settings want it, closes the
  /// menu, restores the display and ends the program.
  void ExitApp();

 protected:
  void Form_Activate(bool first) override;
  void Form_Close() override { ExitApp(); }

 private:
  /// A line of a menu, or a picture button, and what a click on it does with `what`.
  struct Line;
  struct Bar;
  struct Picture;
  static const Bar kBars[];
  static const Line kLines[];
  static const Picture kPictures[];

  void addMenus();
  void addTextMenu();
  void addPictures();
  void SetMenus();
  Menu& menuNamed(std::string_view name);
  MenuEntry& entryNamed(std::string_view name);

  void openRecords(const Line& line);
  void openScreen(const Line& line);
  void openParcels(const Line& line);
  void backUpUsual(const Line& line);
  void backUpElsewhere(const Line& line);
  void restore(const Line& line);
  void help(const Line& line);
  void startTool(const Line& line);
  void showFile(const Line& line);
  void lookUpOnMap(const Line& line);
  void changePassword(const Line& line);
  void quit(const Line& line);

  bool closeOtherScreens();
  void tell(const Error& error);

  Label lblMunicipality{*this, "lblMunicipality"};
  Label lblUser{*this, "lblUser"};
  std::deque<Button> pictures_;
  std::deque<Menu> menus_;
  std::deque<MenuEntry> entries_;
};

}  // namespace zelvo
