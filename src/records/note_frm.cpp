#include "records/note_frm.h"

namespace zelvo {

NoteFrm::NoteFrm(Desk& itsDesk, mdb& parcels, std::string_view parcel)
    : Screen(itsDesk, "NoteFrm", "Notes of the parcel"), parcels_(parcels) {
  Label1.caption = "Notes of the parcel " + std::string(parcel);
  Text1.manyLines = true;
  if (parcels_.SBLHasNotes())
    Text1.text = before_ = parcels_.currentNote;
  cmdCancel.isCancel = true;
  onClick(cmdSave, [this] { cmdSave_Click(); });
  onClick(cmdCancel, [this] { Form_Close(); });
}

void NoteFrm::cmdSave_Click() {
  if (changed())
    if (const auto stored = parcels_.SBLUpdate("", parcels_.assoc, Text1.text); !stored)
      return desk.messages.tell(" " + caption, "The notes could not be stored:\n" + stored.error().message,
                                Icon::Critical);
  closeMe();
}

void NoteFrm::Form_Close() {
  if (!changed() || desk.messages.confirm(" " + caption, "Do you want to leave the notes as they were before?",
                                          Icon::Question, Answer::No))
    closeMe();
}

}  // namespace zelvo
