#include "data/lookup/sync_sbl.h"

#include "base/files.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = " Synchronize SBL Repository";
constexpr int kOldLayout = 13;

std::string counted(std::size_t parcels) {
  return std::to_string(parcels) + (parcels == 1 ? " parcel" : " parcels");
}

}  // namespace

syncSBL::syncSBL(Desk& itsDesk, mdb& parcels)
    : Screen(itsDesk, "syncSBL", "Synchronize SBL Repository"), parcels_(parcels) {}

void syncSBL::Form_Activate(bool first) {
  if (!first)
    return;
  synchronize();
  closeMe();
}

void syncSBL::synchronize() {
  if (const auto opened = parcels_.resetsbl(); !opened)
    return tell(opened.error().message, Icon::Critical);
  const bool old = desk.session.parcelLayout == kOldLayout;
  if (old && !convert())
    return;
  if (!old)
    noteLayout();
  if (!addFromSecond() && !old)
    tell("The parcel registry has the extended layout. There is nothing to do.");
}

// The file may have been left behind when a conversion was broken off.
void syncSBL::noteLayout() {
  if (const auto noted = noteExtendedLayout(desk.session.dataFolder); !noted)
    tell(noted.error().message, Icon::Exclamation);
}

bool syncSBL::convert() {
  if (!desk.messages.confirm(kTitle,
                             "The parcel registry has the old layout of 13 fields.\nDo you want to convert it to the "
                             "extended layout, which also holds contact, mailing address and map co-ordinates?"))
    return false;
  const auto done = convertOldSBLtoSBL18(desk.session, [this](std::string_view text) { showStatus(text); });
  if (!done) {
    tell("The parcel registry could not be converted, and stays as it was:\n" + done.error().message, Icon::Critical);
    return false;
  }
  if (const auto opened = parcels_.resetsbl(); !opened)
    tell(opened.error().message, Icon::Critical);
  tell("The parcel registry was converted: " + counted(done->parcels) + "." +
       (done->setAside.empty() ? "" : "\nThe old one is kept as \"" + fileNameOf(done->setAside) + "\"."));
  if (!done->versionTrouble.empty())
    tell(done->versionTrouble, Icon::Exclamation);
  return true;
}

bool syncSBL::addFromSecond() {
  const auto second = secondRegistry(desk.session);
  if (!second) {
    tell("The second parcel file \"sbl18.mdb\" was not looked at:\n" + second.error().message, Icon::Exclamation);
    return true;
  }
  if (second->lacking.empty())
    return false;
  if (!desk.messages.confirm(kTitle, "The data folder holds a second parcel file, \"sbl18.mdb\", with " +
                                         counted(second->lacking.size()) +
                                         " that the parcel registry lacks.\nDo you want to add them to the registry?"))
    return true;
  if (const auto added = carryOver(desk.session, *second); !added)
    tell("Nothing was added:\n" + added.error().message, Icon::Critical);
  else
    tell(counted(second->lacking.size()) + " added to the parcel registry.");
  return true;
}

void syncSBL::tell(std::string_view text, Icon icon) {
  desk.messages.tell(kTitle, text, icon);
}

}  // namespace zelvo
