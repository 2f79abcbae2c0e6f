#include "shell/preferences/pref_frm.h"

#include "base/text.h"
#include "shell/preferences/desktop_colours.h"
#include "shell/record_openings.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = " Preferences Settings";
constexpr std::size_t kMostInspectors = 50, kMostBuildingCodes = 99, kMostOtherCodes = 30;

}  // namespace

const std::array<PrefFrm::Seed, 5> PrefFrm::kSeeds = {{
    {&PrefFrm::Text12, &PrefFrm::Check1, &NumberSeeds::permit},
    {&PrefFrm::Text13, &PrefFrm::Check2, &NumberSeeds::inspection},
    {&PrefFrm::Text16, &PrefFrm::Check6, &NumberSeeds::affidavit},
    {&PrefFrm::Text17, &PrefFrm::Check7, &NumberSeeds::certificate},
    {&PrefFrm::Text18, &PrefFrm::Check8, &NumberSeeds::violation},
}};

PrefFrm::PrefFrm(Desk& itsDesk) : Screen(itsDesk, "PrefFrm", "Preferences Settings") {
  Label1.caption =
      "Double-click the entry you wish to edit. When done, don't forget to click \"Save Settings.\"\n"
      "Use the empty slots to add your own entries.";
  Text15.tip = "Name of a new inspector";
  Combo1.items = colourNames();
  Combo1.tip = "A colour of the list, or #rrggbb";
  Command1.tip = " Save selected settings";
  Command2.tip = " cancel changes";
  List4.columns = {{" Inspectors ", 30}};
  List1.columns = {{" No. ", 5, true}, {" BUILDING ", 30}};
  List2.columns = {{" No. ", 5, true}, {" OTHER ", 30}};
  bind();
  loadSettings();
  loadSeeds();
  loadLists();
  asLoaded_ = valuesOf(*this);
}

void PrefFrm::bind() {
  onClick(Command3, [this] { pickFolder(Text9, "Location of directory for databases:"); });
  onClick(Command6, [this] { pickFolder(Text22, "Location of directory for forms:"); });
  onClick(Command5, [this] { pickFolder(Text8, "Location for backup databases:"); });
  onClick(Command4, [this] { pickPicture(); });
  onClick(Command7, [this] { Command7_Click(); });
  onClick(Command9, [this] { Command9_Click(); });
  onChoose(List4, [this] { Command9.enabled = List4.selected.has_value(); });
  onOpenRow(List1, [this] { editCode(List1, codes_.building, "Building inspection code"); });
  onOpenRow(List2, [this] { editCode(List2, codes_.other, "Other inspection code"); });
  for (const Seed& seed : kSeeds)
    onClick(this->*seed.computerDecides,
            [this, &seed] { (this->*seed.box).enabled = !(this->*seed.computerDecides).checked; });
  onClick(TarnXPButton1, [this] {
    if (!desk.screens.showModal("HeaderFrm"))
      desk.messages.tell(kTitle, notOffered(TarnXPButton1.caption).message);
  });
  onClick(Command1, [this] { Command1_Click(); });
  onClick(Command2, [this] { closeMe(); });
}

// ---- loading

void PrefFrm::loadSettings() {
  const Session& session = desk.session;
  const Municipality& office = session.municipality;
  Text1.text = office.name, Text3.text = office.address, Text4.text = office.city;
  Text5.text = office.state, Text6.text = office.zip, Text7.text = office.telephone;
  Text9.text = session.dataFolder;
  Text22.text = session.formsFolder;
  Text8.text = session.backupFolder;
  Check3.checked = session.masterComputer;
  Option1.chosen = session.backupOption == 1;
  Option3.chosen = session.backupOption == 2;
  Option2.chosen = !Option1.chosen && !Option3.chosen;
  Check4.checked = session.hideDesktop;
  Combo1.text = colourText(session.desktopColour);
  Text14.text = session.desktopPicture;
  Check5.checked = session.checkScreenSize;
  Text10.text = session.stateLaw, Text11.text = session.localLaw;
  Text19.text = session.onlineCodesAddress, Text21.text = session.localCodesAddress;
  Text20.text = session.selectedBrowser;
  Check9.checked = session.useDefaultBrowser != "F";
}

void PrefFrm::loadSeeds() {
  for (const Seed& seed : kSeeds) {
    const std::string& value = desk.session.seeds.*seed.seed;
    TextBox& box = this->*seed.box;
    CheckBox& tick = this->*seed.computerDecides;
    tick.checked = trim(value) == "-1" || trim(value).empty();
    box.text = tick.checked ? "" : value;
    box.enabled = !tick.checked;
    box.maxLength = 9;
  }
}

void PrefFrm::loadLists() {
  ReadInspectors(desk.session);
  inspectors_ = desk.session.inspectors;
  codes_ = inspectionCodesInFiles(desk.session);
  codes_.building.resize(kMostBuildingCodes);
  codes_.other.resize(kMostOtherCodes);
  showInspectors();
  showCodes(List1, codes_.building);
  showCodes(List2, codes_.other);
}

void PrefFrm::showInspectors() {
  auto rows = std::make_shared<MemoryRows>();
  for (const std::string& name : inspectors_)
    rows->rows.push_back({name});
  List4.rows = rows;
  List4.selected.reset();
  List4.rowsChanged();
  Command9.enabled = false;
}

void PrefFrm::showCodes(ListView& list, const std::vector<std::string>& codes) {
  auto rows = std::make_shared<MemoryRows>();
  for (std::size_t slot = 0; slot < codes.size(); ++slot)
    rows->rows.push_back({std::to_string(slot + 1), codes[slot]});
  list.rows = rows;
  list.rowsChanged();
}

// ---- the lists

void PrefFrm::Command7_Click() {
  const std::string_view name = trim(Text15.text);
  if (name.empty())
    return setFocus(Text15);
  if (inspectors_.size() >= kMostInspectors)
    return desk.messages.tell(kTitle, "There are " + std::to_string(kMostInspectors) +
                                          " inspectors already, as many as the list holds. Please delete one first.");
  inspectors_.emplace_back(name);
  Text15.text.clear();
  listsChanged_ = true;
  showInspectors();
  List4.selected = inspectors_.size() - 1;
  Command9.enabled = true;
  setFocus(Text15);
}

void PrefFrm::Command9_Click() {
  if (!List4.selected || *List4.selected >= inspectors_.size())
    return;
  inspectors_.erase(inspectors_.begin() + static_cast<std::ptrdiff_t>(*List4.selected));
  listsChanged_ = true;
  showInspectors();
}

void PrefFrm::editCode(ListView& list, std::vector<std::string>& codes, std::string_view title) {
  const std::size_t slot = list.selected.value_or(0);
  EntryFrm question(desk, std::string(title) + " " + std::to_string(slot + 1), codes[slot]);
  desk.screens.showModal(question);
  if (!question.text() || *question.text() == codes[slot])
    return;
  codes[slot] = *question.text();
  listsChanged_ = true;
  showCodes(list, codes);
}

void PrefFrm::pickFolder(TextBox& box, std::string_view title) {
  if (const auto folder = desk.pickers.folder(title, box.text))
    box.text = *folder;
  setFocus(box);
}

void PrefFrm::pickPicture() {
  const auto picture =
      desk.pickers.openFile({"Desktop Picture:", "Pictures (*.bmp;*.gif;*.jpg)|*.jpg;*.bmp;*.gif|All Files|*.*", ""});
  if (picture)
    Text14.text = *picture;
  setFocus(Text14);
}

// ---- leaving

bool PrefFrm::changed() const {
  return listsChanged_ || valuesOf(*this) != asLoaded_;
}

void PrefFrm::Form_Close() {
  if (!changed() || desk.messages.confirm(kTitle,
                                          "You changed the settings and did not save them.\n\nDo you want to close "
                                          "the preferences without saving?",
                                          Icon::Question, Answer::No))
    closeMe();
}

EntryFrm::EntryFrm(Desk& itsDesk, std::string_view title, std::string_view text) : Screen(itsDesk, "EntryFrm", title) {
  Text1.text = text;
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  onClick(cmdOK, [this] {
    accepted_ = trim(Text1.text);
    closeMe();
  });
  onClick(cmdCancel, [this] { closeMe(); });
  setFocus(Text1, true);
}

}  // namespace zelvo
