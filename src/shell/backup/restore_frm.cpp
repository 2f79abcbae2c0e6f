#include "shell/backup/restore_frm.h"

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"
#include "data/data_folder.h"
#include "data/database_care.h"
#include "data/server_folder.h"
#include "shell/backup/backup.h"
#include "shell/backup/progress_frm.h"
#include "shell/backup/restore_set.h"
#include "shell/backup/save_files.h"
#include "shell/settings.h"

namespace zelvo {

namespace {

constexpr std::string_view kTitle = " Restore";

std::string momentText(const DateTime& moment) {
  return datePicture(moment, "mm/dd/yyyy hh:mm AM/PM");
}

std::string numberOf(std::size_t count) {
  return numberPicture(static_cast<double>(count), "#,##0");
}

std::size_t recordsOf(const BackupSet& set) {
  std::size_t records = 0;
  for (const SavedFile& file : set.files)
    records += file.rows.value_or(0);
  return records;
}

std::string summaryOf(const BackupSet& set) {
  return "It holds " + numberOf(set.databases()) + " databases with " + numberOf(recordsOf(set)) + " records and " +
         numberOf(set.files.size() - set.databases()) + " other files, " + sizeText(set.bytes()) + " in all.";
}

std::vector<std::string> rowOf(const std::string& folder, const Result<BackupSet>& set) {
  if (!set)
    return {"cannot be read", "", "", "", fileNameOf(folder)};
  return {momentText(set->made), set->user, set->municipality, sizeText(set->bytes()), fileNameOf(folder)};
}

std::shared_ptr<MemoryRows> rowsOf(std::vector<std::vector<std::string>> rows) {
  auto made = std::make_shared<MemoryRows>();
  made->rows = std::move(rows);
  return made;
}

std::string presentRows(const std::string& path, const Table& table) {
  if (keepsOnServer(folderOf(path)) || !FileExists(path))
    return "-";
  const auto rows = countRows(path, table);
  return rows ? numberOf(*rows) : "damaged";
}

}  // namespace

RestoreFrm::RestoreFrm(Desk& itsDesk) : Screen(itsDesk, "restorefrm", "Restore from a Backup") {
  Text1.text = desk.session.backupFolder;
  Text1.tip = "The folder that the backups were stored in, or one of the backups themselves";
  ListView1.columns = {{"Made", 20}, {"By", 10}, {"Municipality", 24}, {"Size", 10, true}, {"Folder", 30}};
  ListView2.columns = {{"Database", 14}, {"Kind", 20}, {"Records in the backup", 22, true}, {"Records now", 14, true}};
  Command2.isCancel = true;
  onLeave(Text1, [this] { fillSets(); });
  onClick(Command3, [this] { Command3_Click(); });
  onChoose(ListView1, [this] { ListView1_Click(); });
  onOpenRow(ListView1, [this] { Command1_Click(); });
  onClick(Command1, [this] { Command1_Click(); });
  onClick(Command2, [this] { closeMe(); });
  fillSets();
}

void RestoreFrm::Command3_Click() {
  const auto folder = desk.pickers.folder("Locate the drive and directory of the backup databases.", Text1.text);
  if (!folder)
    return;
  Text1.text = *folder;
  fillSets();
}

void RestoreFrm::fillSets() {
  found_.clear();
  std::vector<std::vector<std::string>> rows;
  if (!trim(Text1.text).empty())
    for (const std::string& folder : findSets(trim(Text1.text)))
      found_.push_back({folder, readSet(folder)});
  for (const Found& found : found_)
    rows.push_back(rowOf(found.folder, found.set));
  ListView1.rows = rowsOf(std::move(rows));
  ListView1.rowsChanged();
  ListView1.selected.reset();
  if (!found_.empty())
    ListView1.selected = 0;
  ListView1_Click();
}

void RestoreFrm::ListView1_Click() {
  const Found* found = chosen();
  Command1.enabled = found != nullptr;
  ListView2.rows = rowsOf({});
  ListView2.rowsChanged();
  lblNote.caption = !found       ? "There is no backup in this folder."
                    : found->set ? summaryOf(*found->set)
                                 : found->set.error().message;
  lblNote.warning = found && !found->set;
  if (found && found->set)
    fillContents(*found->set);
}

void RestoreFrm::fillContents(const BackupSet& set) {
  std::vector<std::vector<std::string>> rows;
  for (const SavedFile& file : set.files)
    if (const Table* table = tableOfDatabase(file.name); table && file.rows)
      rows.push_back({file.name, std::string(trim(table->logicalName)), numberOf(*file.rows),
                      presentRows(joinPath(desk.session.dataFolder, file.name), *table)});
  ListView2.rows = rowsOf(std::move(rows));
}

const RestoreFrm::Found* RestoreFrm::chosen() const {
  const bool any = ListView1.selected && *ListView1.selected < found_.size();
  return any ? &found_[*ListView1.selected] : nullptr;
}

void RestoreFrm::Command1_Click() {
  const Found* found = chosen();
  if (!found)
    return;
  if (!found->set)
    return tell(found->set.error());
  if (const auto refused = refuse(); !refused)
    return tell(refused.error());
  const BackupSet set = *found->set;
  if (confirms(set))
    restore(set);
}

// A screen that is open holds records of the data that are to be replaced.
Result<void> RestoreFrm::refuse() const {
  if (keepsOnServer(desk.session.dataFolder))
    return Error{Trouble::BadInput,
                 "The records of this office lie on a server, where a backup cannot be put in place from here. Please "
                 "ask whoever looks after the server."};
  std::vector<std::string> open;
  for (const Screen* screen : desk.screens.all())
    if (screen != this && screen->name() != "MenuFrm" && screen->name() != "Preview")
      open.push_back(screen->caption);
  if (!open.empty())
    return Error{Trouble::Busy, "Please close the other screens first: " + join(open, ", ") + "."};
  return refuseWhileInUse(desk.session.dataFolder);
}

bool RestoreFrm::confirms(const BackupSet& set) {
  std::string question = "Do you want to restore the backup of " + momentText(set.made) + ", made by " + set.user +
                         "?\n\n" + summaryOf(set) + "\n";
  if (!alike(set.municipality, desk.session.municipality.name))
    question += "It was made for " + set.municipality + ", which is not the municipality of this program.\n";
  question +=
      "\nWhat was entered since then will not be in the records any more. The present data are set aside first and "
      "kept.\nNobody should be working with the program on the other computers.";
  return desk.messages.confirm(kTitle, question, Icon::Exclamation, Answer::No);
}

void RestoreFrm::restore(const BackupSet& set) {
  std::string aside;
  ProgressFrm progress(desk, "Restore", "Restoring the backup of " + momentText(set.made),
                       [&](Progress& waiting) -> Result<void> {
                         auto done = restoreSet({set, desk.session.dataFolder, manifestHead(desk)}, waiting);
                         aside = done ? *done : "";
                         return done ? Result<void>() : done.error();
                       });
  desk.screens.showModal(progress);
  readListsAgain();
  ListView1_Click();
  if (!progress.outcome())
    return tell(progress.outcome().error());
  desk.messages.tell(" Completed", "The backup of " + momentText(set.made) +
                                       " was restored.\nThe data as they were before are kept in\n" + aside);
}

void RestoreFrm::readListsAgain() {
  Session& session = desk.session;
  readSharedFiles(session);
  ReadInspectors(session);
  ReadInspectionCodes(session);
  session.parcelLayout = parcelLayoutIn(session.dataFolder);
}

void RestoreFrm::tell(const Error& error) {
  desk.messages.tell(kTitle, error.message, Icon::Exclamation);
}

}  // namespace zelvo
