// The pages of a permit for its insurance and its contacts.

#include "records/permits/a_permits.h"

namespace zelvo {

void APermits::bindPage(SubRecordPage& page) {
  const auto then = [this, &page](void (SubRecordPage::*does)()) {
    return [this, &page, does] {
      (page.*does)();
      enableButtons();
    };
  };
  onClick(page.iNew, then(&SubRecordPage::iNew_Click));
  onClick(page.iAdd, then(&SubRecordPage::iAdd_Click));
  onClick(page.iEdit, then(&SubRecordPage::iEdit_Click));
  onClick(page.iSave, then(&SubRecordPage::iSave_Click));
  onClick(page.iCancel, then(&SubRecordPage::iCancel_Click));
  onChoose(page.list, [&page] { page.choose(); });
  onOpenRow(page.list, then(&SubRecordPage::iEdit_Click));
  onEdit(page.type, [&page] { page.chooseType(); });
}

void APermits::enableOwnButtons(bool browsing) {
  const bool onRecord = browsing && !dbisempty();
  iLook.enabled = iExpires.enabled = mode() == Mode::New || mode() == Mode::Edit;
  for (Button* button : {&iInsp, &iViol, &iCert, &iCertInfo, &iFee, &iMap})
    button->enabled = onRecord;
  for (SubRecordPage* page : {&insurance_, &contacts_})
    if (mode() == Mode::Search)
      page->close();
    else if (mode() == Mode::New)
      page->begin();
    else
      page->show(key());
}

bool APermits::isSettled(const SubRecordPage& page, std::size_t tab) {
  if (!page.typing())
    return true;
  SSTab1.current = tab;
  desk.messages.tell(
      " " + caption,
      "The " + std::string(page.kind().noun) +
          " that you typed is not in the list yet.\nPlease press Add row, Keep row or Forget row on its page first.",
      Icon::Exclamation);
  return false;
}

Result<std::vector<std::string>> APermits::databasesAlong() {
  std::vector<std::string> along;
  for (const SubRecordPage* page : {&insurance_, &contacts_}) {
    const auto database = page->waits() ? page->database() : Result<std::string>("");
    if (!database)
      return database.error();
    if (page->waits())
      along.push_back(*database);
  }
  return along;
}

Result<void> APermits::storeAlong() {
  auto stored = insurance_.storeWaiting(connection(), key());
  return stored ? contacts_.storeWaiting(connection(), key()) : stored;
}

}  // namespace zelvo
