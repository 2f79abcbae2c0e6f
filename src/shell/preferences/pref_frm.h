#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "form/desk.h"
#include "form/screen.h"
#include "form/screen_values.h"
#include "shell/settings.h"

namespace zelvo {

/// The administrator's screen for all that start-up reads: who the municipality is, where the databases and forms lie,
/// what this computer is, backup, desktop cover, numbers to begin with, inspectors, inspection codes, laws, links and
/// browser. Saving writes the files and brings the session up to date at once.
///
/// Nothing is written before all that was typed can be used; a file that then cannot be written is named, and the
/// screen stays open with what was typed.
class PrefFrm : public Screen {
 public:
  explicit PrefFrm(Desk& desk);

  void Command1_Click();
  void Command7_Click();
  void Command9_Click();

 private:
  void Form_Close() override;
  void bind();

  void loadSettings();
  void loadSeeds();
  void loadLists();
  void showInspectors();
  void showCodes(ListView& list, const std::vector<std::string>& codes);
  void editCode(ListView& list, std::vector<std::string>& codes, std::string_view title);
  void pickFolder(TextBox& box, std::string_view title);
  void pickPicture();

  bool usable();
  bool refuse(Control& control, std::size_t page, std::string_view why);
  void takeSettings();
  bool save();
  bool tellUnlessDone(const Result<void>& result);
  Result<void> writeMain();
  void offerSwitch();
  bool othersAreOpen() const;
  void keepWhatIsThere();
  bool seedsChanged();
  Result<void> writeLists();
  bool changed() const;

  /// A number that a kind of record begins with: its box, its tick and where the session keeps it.
  struct Seed {
    TextBox PrefFrm::*box;
    CheckBox PrefFrm::*computerDecides;
    std::string NumberSeeds::*seed;
  };
  static const std::array<Seed, 5> kSeeds;

  // In the order of the Tab key, page by page.
  Tabs SSTab1{
      *this, "SSTab1", {"&Office", "&Databases", "Des&ktop", "&Numbers", "Inspec&tion codes", "&Laws and links"}};
  TextBox Text1{*this, "Text1"}, Text3{*this, "Text3"}, Text4{*this, "Text4"}, Text5{*this, "Text5"},
      Text6{*this, "Text6"}, Text7{*this, "Text7"};
  TextBox Text9{*this, "Text9"};
  Button Command3{*this, "Command3", "Browse.."};
  TextBox Text22{*this, "Text22"};
  Button Command6{*this, "Command6", "Browse.."};
  CheckBox Check3{*this, "Check3", "This Computer Serves as a &Master Database"};
  Option Option1{*this, "Option1", "&Automatic on Exit", "backup"};
  Option Option2{*this, "Option2", "&Prompt", "backup"};
  Option Option3{*this, "Option3", "Man&ual", "backup"};
  TextBox Text8{*this, "Text8"};
  Button Command5{*this, "Command5", "Browse.."};
  CheckBox Check4{*this, "Check4", "&Hide Desktop"};
  Combo Combo1{*this, "Combo1"};
  TextBox Text14{*this, "Text14"};
  Button Command4{*this, "Command4", "Browse.."};
  CheckBox Check5{*this, "Check5", "Check Preferred Screen Size on launch"};
  TextBox Text12{*this, "Text12"};
  CheckBox Check1{*this, "Check1", "Let computer decide"};
  TextBox Text13{*this, "Text13"};
  CheckBox Check2{*this, "Check2", "Let computer decide"};
  TextBox Text16{*this, "Text16"};
  CheckBox Check6{*this, "Check6", "Let computer decide"};
  TextBox Text17{*this, "Text17"};
  CheckBox Check7{*this, "Check7", "Let computer decide"};
  TextBox Text18{*this, "Text18"};
  CheckBox Check8{*this, "Check8", "Let computer decide"};
  ListView List4{*this, "List4"};
  Button Command9{*this, "Command9", "D&elete"};
  TextBox Text15{*this, "Text15"};
  Button Command7{*this, "Command7", "Add &inspector"};
  Label Label1{*this, "Label1"};
  ListView List1{*this, "List1"}, List2{*this, "List2"};
  TextBox Text10{*this, "Text10"}, Text11{*this, "Text11"}, Text19{*this, "Text19"}, Text21{*this, "Text21"},
      Text20{*this, "Text20"};
  CheckBox Check9{*this, "Check9", "Use my default &Browser"};
  Button TarnXPButton1{*this, "TarnXPButton1", " Set default report header"};
  Button Command1{*this, "Command1", "&Save Settings"};
  Button Command2{*this, "Command2", "&Cancel"};

  std::vector<std::string> inspectors_;
  InspectionCodes codes_;
  ScreenValues asLoaded_;
  bool listsChanged_ = false;
};

/// Asks for the new text of one entry of a list. To be shown modally; afterwards text() is what is to stand, or nothing
/// when the user gave it up.
class EntryFrm : public Screen {
 public:
  EntryFrm(Desk& desk, std::string_view caption, std::string_view text);
  std::optional<std::string> text() const { return accepted_; }

 private:
  TextBox Text1{*this, "Text1"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  std::optional<std::string> accepted_;
};

}  // namespace zelvo
