#pragma once

#include <fstream>
#include <memory>

#include "base/files.h"
#include "form/desk.h"

namespace zelvo::testing {

/// Asks for the owner and waits until it is told.
class Owner : public Screen {
 public:
  explicit Owner(Desk& itsDesk) : Screen(itsDesk, "Owner", "Owner") {
    onClick(IClose, [this] { closeMe(); });
  }

  TextBox Text1{*this, "Text1"};
  Button IClose{*this, "IClose", "&Close"};
};

/// A second screen, opened beside the first.
class Journal : public Screen {
 public:
  explicit Journal(Desk& itsDesk) : Screen(itsDesk, "Journal", "Journal") {
    ++alive;
    onClick(IHandOver, [this] { IHandOver_Click(); });
  }
  ~Journal() override { --alive; }

  // Closed by its own handler, which then waits for another screen and still needs its controls.
  void IHandOver_Click() {
    closeMe();
    desk.screens.showModal("Owner");
    desk.messages.tell("Journal", Text1.text + ", journals: " + std::to_string(alive));
  }

  TextBox Text1{*this, "Text1"};
  Button IHandOver{*this, "IHandOver", "&Hand over"};
  inline static int alive = 0;
};

/// The counter of the office: one control of every kind, and a button for everything that a program does to the world.
class Counter : public Screen {
 public:
  explicit Counter(Desk& itsDesk) : Screen(itsDesk, "Counter", "Counter") {
    fill();
    listen();
  }

  Menu MFile{*this, "MFile", "&File"};
  MenuEntry MLine{*this, MFile, "MLine", "-"};
  MenuEntry MQuit{*this, MFile, "MQuit", "&Quit"};
  Menu MAdmin{*this, "MAdmin", "&Admin"};
  MenuEntry MUsers{*this, MAdmin, "MUsers", "&Users"};
  ControlArray<TextBox> Text1{*this, "Text1", {18, 19}};
  TextBox Notes{*this, "Notes"};
  TextBox Secret{*this, "Secret"};
  CheckBox Check1{*this, "Check1", "Paid"};
  Option Option1{*this, "Option1", "Open", "state", 1};
  Option Option2{*this, "Option1", "Closed", "state", 2};
  Combo Combo1{*this, "Combo1"};
  DatePicker DTFiled{*this, "DTFiled"};
  ListView ListView1{*this, "ListView1"};
  Button IAdd{*this, "IAdd", "&Add"};
  Button IAsk{*this, "IAsk", "As&k"};
  Button IPrint{*this, "IPrint", "&Print"};
  Button IPrinter{*this, "IPrinter", "Printer"};
  Button IOpen{*this, "IOpen", "Open"};
  Button ISave{*this, "ISave", "Save"};
  Button IMap{*this, "IMap", "Map"};
  Button IOwner{*this, "IOwner", "Owner"};
  Button IJournal{*this, "IJournal", "Journal"};
  Button ITime{*this, "ITime", "Time"};

 private:
  void fill() {
    Notes.manyLines = true;
    Secret.visible = false;
    MAdmin.enabled = false;
    Combo1.items = {"Deck", "Pool"};
    Combo1.freeText = false;
    ListView1.columns = {{"Number"}, {"Owner"}};
    auto rows = std::make_shared<MemoryRows>();
    rows->rows = {{"25-7", "Smith, John"}, {"25-9", "O'Brien\r\nand Son"}};
    ListView1.rows = rows;
  }

  void listen() {
    onClick(MQuit, [this] { desk.end("quit"); });
    onClick(MUsers, [this] { showStatus("Users"); });
    onClick(Check1, [this] { showStatus(Check1.checked ? "Paid" : "Due"); });
    onLeave(Text1(18), [this] { showStatus("Left " + Text1(18).text); });
    onChoose(ListView1, [this] { showStatus("Row " + std::to_string(*ListView1.selected + 1)); });
    onOpenRow(ListView1, [this] { showStatus("Opened row " + std::to_string(*ListView1.selected + 1)); });
    onClick(IAdd, [this] { IAdd_Click(); });
    onClick(IAsk, [this] { IAsk_Click(); });
    onClick(IPrint, [this] { IPrint_Click(); });
    onClick(IPrinter, [this] { showStatus(desk.printing.choosePrinter(desk.session.print) ? "Goes" : "Given up"); });
    onClick(IOpen, [this] { took(desk.pickers.openFile({"Attach", "All|*.*", "/docs"})); });
    onClick(ISave, [this] { took(desk.pickers.saveFile({"Backup", "All|*.*", "/backup"}, "monday.zip")); });
    onClick(IMap, [this] { (void)desk.desktop.start("\"/bin/see\" \"C:\\map.htm\""); });
    onClick(IOwner, [this] { IOwner_Click(); });
    onClick(IJournal, [this] { desk.screens.open("Journal"); });
    onClick(ITime, [this] { Text1(19).text = datePicture(desk.clock.now(), "mm/dd/yyyy hh:mm"); });
  }

  void IAdd_Click() {
    if (Text1(18).text.empty())
      desk.messages.tell(" Missing Information", "Missing: --Owner\n\nPlease ensure required\r\nfields are filled in.");
    else
      throw std::runtime_error("The disk is full.");
  }
  void IAsk_Click() {
    Text1(19).text = desk.messages.confirm("Parcel", "Add it?") ? "added" : "left out";
    showStatus("Parcel " + Text1(19).text);
    std::ofstream(joinPath(desk.session.programFolder, "parcel.txt")) << Text1(19).text;
  }
  void IPrint_Click() {
    const std::string letter = joinPath(desk.session.programFolder, "tmp.rtf");
    std::ofstream(letter, std::ios::binary) << "{\\rtf1 Permit\r\n" << ++letters_ << "}";
    if (const auto printed = desk.printing.print({"Building Permit", letter, {}}); !printed)
      desk.messages.tell("Print", printed.error().message);
  }
  void IOwner_Click() {
    desk.screens.showModal("Owner");
    desk.messages.tell("Counter", "The owner is told.");
  }
  void took(const std::optional<std::string>& path) { Text1(19).text = path.value_or("nothing"); }

  int letters_ = 0;
};

}  // namespace zelvo::testing
