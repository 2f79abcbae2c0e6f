#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/mdb.h"
#include "data/recordset.h"
#include "form/desk.h"
#include "records/field_copy.h"
#include "records/numbering.h"
#include "records/record_kind.h"

namespace zelvo {

/// The pattern of every record screen: open the table, browse, new, add, edit, save, void, list, who and when. A kind
/// of record states what it is (RecordKind), copies what no box shows, and adds its own rules.
///
/// Nothing typed is lost to a refused store: the screen stays in its mode, with its texts, and the add can be tried
/// again. Adding writes the record, its parcel and the next number so that a crash at any point leaves the record whole
/// or not at all.
class RecordScreen : public Screen {
 public:
  RecordScreen(Desk& desk, mdb& parcels, const RecordKind& kind);

  bool dbisempty() const;
  bool isVoided() const;
  /// Copies the current record into the controls, and the controls into the current record.
  void getdata();
  void movefieldsintodb();

  void INew_Click();
  void IAdd_Click();
  void IEdit_Click();
  void ISave_Click();
  void ICancel_Click();
  void IMoveFirst_Click();
  void IMovePrev_Click();
  void IMoveNext_Click();
  void IMoveLast_Click();
  void delr_Click();
  void recinfod_Click();
  void ListView1_Click();
  void Quit_Click();

 protected:
  enum class Mode { Browse, New, Edit };

  // What a kind of record adds to the pattern.
  virtual void clearControls() = 0;             ///< blanks what is not a box of the catalogue
  virtual void showCodedColumns() = 0;          ///< columns that no box shows, to the screen
  virtual void storeCodedColumns() = 0;         ///< and back; stamps excepted
  virtual void copyPicksIntoBoxes() {}          ///< combo texts into the boxes that stand for them
  virtual std::string proposedKey() const = 0;  ///< the key under the next number
  virtual void bumpKey() = 0;                   ///< puts the key under the number after into its box
  virtual std::string duplicateTitle() const = 0;
  virtual std::string duplicateText() const = 0;
  /// Rules of its own before a record is stored; says what is wrong and gives false.
  virtual bool validateOwn() { return true; }
  /// The location and the owner that a new parcel is registered under.
  virtual std::string parcelOwner() const = 0;
  virtual std::string parcelLocation() const = 0;

  void Form_Activate(bool first) override;
  void Form_Close() override;

  Recordset& records() const { return *datPrimaryRS_; }
  Mode mode() const { return mode_; }
  std::string key() const;
  Numbering& numbering() { return numbering_; }
  const Numbering& numbering() const { return numbering_; }
  mdb& parcels() { return parcels_; }
  bool keyInUse(std::string_view key);
  /// The key on the screen as it is stored: trimmed, and cut to the width of its column.
  std::string typedKey() const;
  void refreshRecord();
  /// The box takes amounts: "$12,500" becomes the number that the store reads, when the clerk leaves it or stores.
  void takeAmounts(TextBox& box);

  Tabs SSTab1;
  Button INew{*this, "INew", "&New"};
  Button IAdd{*this, "IAdd", "&Add"};
  Button IEdit{*this, "IEdit", "&Edit"};
  Button ISave{*this, "ISave", "&Save"};
  Button ICancel{*this, "ICancel", "&Cancel"};
  Button IMoveFirst{*this, "IMoveFirst", "|<"};
  Button IMovePrev{*this, "IMovePrev", "<"};
  Button IMoveNext{*this, "IMoveNext", ">"};
  Button IMoveLast{*this, "IMoveLast", ">|"};
  Label lblStatus{*this, "lblStatus"};
  Label lblVoided{*this, "lblVoided"};
  Button delr{*this, "delr", "&Void"};
  Button recinfod{*this, "recinfod", "&Who and When"};
  Button iPrint{*this, "iPrint", "&Print"};
  Button Quit{*this, "Quit", "&Quit"};
  Label Label28{*this, "Label28"};
  ControlArray<TextBox> Text1{*this, "Text1"};
  ListView ListView1{*this, "ListView1"};

 private:
  void bindButtons();
  bool openRecords();
  Result<void> readRecords();
  std::string wholeTable() const;
  void readAgain();
  bool mayChangeVoid(bool voided);
  void prepareBoxes();
  void followHop();
  void showHopped(std::string_view wanted);
  void fillList();
  void enter(Mode mode);
  void enableButtons();
  void showParcelWarnings();
  void clearWarnings();
  void lockRecord(bool locked);
  bool mayLeaveUnsaved();

  bool validate(bool adding);
  bool requireFilled();
  bool refuseDuplicate();
  bool askAboutParcel();
  std::string parcelKey() const;
  void tidyAmounts();
  bool renumbering() const;
  Result<void> store();
  Result<void> storeParcel();
  void afterStoring();
  void stampRecord();
  void tellStoreFailed(const Error& error);
  void tellConflict();

  const RecordKind& kind_;
  mdb& parcels_;
  Numbering numbering_;
  std::shared_ptr<Connection> connection_;
  std::shared_ptr<Recordset> datPrimaryRS_;
  Mode mode_ = Mode::Browse;
  Recordset::Bookmark returnTo_ = -1;
  ShownBoxes shown_;
  std::vector<TextBox*> amounts_;
  std::string proposed_;       ///< the key that INew put on the screen
  std::string newParcel_;      ///< key of a parcel that the user agreed to register with this record
  std::string numberTrouble_;  ///< why the next number could not be written, of the last add
};

}  // namespace zelvo
