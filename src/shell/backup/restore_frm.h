#pragma once

#include <memory>
#include <string>
#include <vector>

#include "form/desk.h"
#include "form/screen.h"
#include "shell/backup/backup_set.h"

namespace zelvo {

/// Puts a backup back in place: shows the sets of a folder, what the chosen one holds beside what the data folder holds
/// now, and restores it after a question. For administrators; to be shown modally.
class RestoreFrm : public Screen {
 public:
  explicit RestoreFrm(Desk& desk);

  void Command1_Click();
  void Command3_Click();
  void ListView1_Click();

 private:
  struct Found {
    std::string folder;
    Result<BackupSet> set;
  };

  void fillSets();
  void fillContents(const BackupSet& set);
  const Found* chosen() const;
  Result<void> refuse() const;
  bool confirms(const BackupSet& set);
  void restore(const BackupSet& set);
  void readListsAgain();
  void tell(const Error& error);

  Label Label1{*this, "Label1", "Folder of the backups:"};
  TextBox Text1{*this, "Text1"};
  Button Command3{*this, "Command3", "&Browse.."};
  ListView ListView1{*this, "ListView1"};
  Label lblNote{*this, "lblNote"};
  ListView ListView2{*this, "ListView2"};
  Button Command1{*this, "Command1", "&Restore.."};
  Button Command2{*this, "Command2", "Close"};
  std::vector<Found> found_;
};

}  // namespace zelvo
