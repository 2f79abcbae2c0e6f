#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/mdb.h"
#include "data/recordset.h"
#include "documents/print_delivery.h"
#include "form/desk.h"
#include "records/attachment_page.h"
#include "records/conflict_frm.h"
#include "records/field_copy.h"
#include "records/list_page.h"
#include "records/numbering.h"
#include "records/own_boxes.h"
#include "records/parcel_offer.h"
#include "records/picks.h"
#include "records/record_kind.h"
#include "records/record_query.h"
#include "records/sub_records/sub_record_page.h"
#include "records/typed_before.h"

namespace zelvo {

/// The pattern of every record screen: open the table, browse, new, add, edit, save, void, search by example, list, who
/// and when. A kind of record states what it is (RecordKind), copies what no box shows, and adds its own rules.
///
/// Nothing typed is lost to a refused store: the screen stays in its mode, with its texts, and the add can be tried
/// again. Adding writes the record, its parcel and the next number so that a crash at any point leaves the record whole
/// or not at all. Of two people who save the same record the second sees both values of each field, and chooses.
class RecordScreen : public Screen {
 public:
  RecordScreen(Desk& desk, mdb& parcels, const RecordKind& kind);

  bool dbisempty() const;
  bool isVoided() const;
  /// Copies the current record into the controls, and the controls into the current record.
  void getdata();
  void movefieldsintodb();

  void INew_Click();
  /// A new record that begins with what the current one says.
  void ICopy_Click();
  void IAdd_Click();
  void IEdit_Click();
  void ISave_Click();
  void ICancel_Click();
  void IMoveFirst_Click();
  void IMovePrev_Click();
  void IMoveNext_Click();
  void IMoveLast_Click();
  /// The first press empties the page for what is looked for, the second finds it.
  void ILocate_Click();
  /// Shows the whole table again.
  void iReset_Click();
  void delr_Click();
  void recinfod_Click();
  void iNote_Click();
  void loadp_Click() { attachments_.loadp_Click(); }
  void NextDoc() { attachments_.NextDoc(); }
  void PrevDoc() { attachments_.PrevDoc(); }
  void ListView1_Click();
  void Quit_Click();

 protected:
  enum class Mode { Browse, New, Edit, Search };

  // What a kind of record adds to the pattern.
  virtual void clearControls() = 0;         ///< blanks what is not a box of the catalogue
  virtual void showCodedColumns() = 0;      ///< columns that no box shows, to the screen
  virtual void storeCodedColumns() = 0;     ///< and back; stamps excepted
  virtual void clearForCopy() {}            ///< what a copy of a record does not take over
  virtual void showSearchControls(bool) {}  ///< controls that only a search has; no date is given at first
  /// What the kind's own controls add to a search, in pieces that end in " AND ". A control that holds what cannot be
  /// looked for is told to the user, and gives nothing at all.
  virtual std::optional<std::string> ownSearchClauses() { return std::string(); }
  virtual std::string proposedKey() const = 0;  ///< the key under the next number
  virtual void bumpKey() = 0;                   ///< puts the key under the number after into its box
  /// Of a number that is taken, unless the kind's numbers are automatic.
  virtual std::string duplicateTitle() const { return ""; }
  virtual std::string duplicateText() const { return ""; }
  /// Whether a box must be filled for what is on the screen now.
  virtual bool isNeeded(const RequiredBox& /*box*/) const { return true; }
  /// Rules of its own before a record is stored; says what is wrong and gives false.
  virtual bool validateOwn() { return true; }
  /// The clerk left one of the boxes of the parcel.
  virtual void leftParcel() {}
  virtual void enableOwnButtons(bool /*browsing*/) {}
  /// What a new record begins with, behind its number; a copy has the texts of the old one already.
  virtual void prefillNew(bool /*copy*/) {}
  /// The other databases that storeAlong writes to, by their connection texts; mostly none.
  virtual Result<std::vector<std::string>> databasesAlong() { return std::vector<std::string>(); }
  /// Stores what goes with the record, which is current, its parcel registered: all of it is stored or nothing.
  virtual Result<void> storeAlong() { return {}; }
  /// The new record is stored and current: which records are shown from now on.
  virtual void showAfterAdd() {}
  /// There is no record to show. What the kind shows instead, and what the record indicator says.
  virtual std::string showNoRecord();
  /// A search for something else than the kind's own records; true when that was carried out.
  virtual bool findElsewhere() { return false; }
  /// Something is being typed on a page of the kind's own: the record stays at hand until that is settled.
  virtual bool ownPagesBusy() const { return false; }
  /// The location and the owner that a new parcel is registered under.
  virtual std::string parcelOwner() const = 0;
  virtual std::string parcelLocation() const = 0;
  virtual std::string parcelPermit() const { return typedKey(); }

  void Form_Activate(bool first) override;
  void Form_Close() override;
  std::vector<std::string> typedBefore(const Control& control) override;
  /// Files dropped onto a record are attached to it.
  void Form_Drop(const std::vector<std::string>& files) override;
  bool takesFiles() const override { return attachments_.loadp.enabled; }

  Recordset& records() const { return *datPrimaryRS_; }
  const std::shared_ptr<Connection>& connection() const { return connection_; }
  Mode mode() const { return mode_; }
  std::string key() const;
  /// Keeps what is printed from now on of the record at hand with that record, wherever the screen stands by then.
  KeepCopy keeper() const;
  /// To be called behind a printing that may have kept a copy.
  void showAttachments() { attachments_.show(key()); }
  Numbering& numbering() { return numbering_; }
  const Numbering& numbering() const { return numbering_; }
  mdb& parcels() { return parcels_; }
  bool keyInUse(std::string_view key);
  /// The key on the screen as it is stored: trimmed, and cut to the width of its column.
  std::string typedKey() const;
  void refreshRecord();
  /// Shows the records that answer a condition from now on, or all of them; the first is current.
  void showRecords(std::string_view condition);
  /// Makes the record of that key current; false, and none is, when it is not among those shown.
  bool goToKey(std::string_view key);
  const std::string& currentQuery() const { return query_.current().query; }
  /// Back to browsing the records that are shown.
  void browse();
  /// The parcel that the record will be on: a section typed without a suffix keeps the one that the record has.
  std::string parcelKey() const;
  void enableButtons();
  /// Says why something that was asked for could not be done.
  void tellTrouble(const Result<void>& done);
  /// The box takes amounts: "$12,500" becomes the number that the store reads, when the clerk leaves it or stores.
  void takeAmounts(TextBox& box);
  /// Fills the boxes that ask for what a parcel says of itself, where nothing is typed yet.
  void fillFromParcel(const ParcelFacts& facts) { offer_.fill(facts); }
  /// Marks the boxes that must be filled; to be called again when what isNeeded says may have changed.
  void markRequired();
  /// The drop-down lists that stand for boxes, and the boxes with names of their own.
  Picks picks;
  OwnBoxes ownBoxes;

  Tabs SSTab1;
  Button INew{*this, "INew", "&New"};
  Button ICopy{*this, "ICopy", "Cop&y"};
  Button IAdd{*this, "IAdd", "&Add"};
  Button IEdit{*this, "IEdit", "&Edit"};
  Button ISave{*this, "ISave", "&Save"};
  Button ICancel{*this, "ICancel", "&Cancel"};
  Button IMoveFirst{*this, "IMoveFirst", "|<"};
  Button IMovePrev{*this, "IMovePrev", "<"};
  Button IMoveNext{*this, "IMoveNext", ">"};
  Button IMoveLast{*this, "IMoveLast", ">|"};
  Label lblStatus{*this, "lblStatus"};
  Button ILocate{*this, "ILocate", "&Locate"};
  Button iReset{*this, "iReset", "Show all"};
  Label lblVoided{*this, "lblVoided"};
  Button delr{*this, "delr", "&Void"};
  Button recinfod{*this, "recinfod", "&Who and When"};
  Button iNote{*this, "iNote", "Notes"};
  Button iPrint{*this, "iPrint", "&Print"};
  Button Quit{*this, "Quit", "&Quit"};
  Label Label28{*this, "Label28"};
  ControlArray<TextBox> Text1{*this, "Text1"};

  static constexpr int kParcelKeyBoxes[] = {2, 3, 4};  ///< section, block and lot: what no parcel is without
  static constexpr std::size_t kRecordPage = 0, kListPage = 1,
                               kAttachmentPage = 2;  ///< further ones are the kind's own

 private:
  void bindButtons();
  void nameKeys();
  void bindAttachments();
  void bindList();
  bool openRecords();
  std::string openNumbering();
  Result<void> openSlot();
  Result<void> readRecords();
  void readRecordsOrThrow();
  void readAgain();
  bool mayChangeVoid(bool voided);
  void prepareBoxes();
  void prepareSuggestions();
  std::vector<std::string> typedBefore(const Column& column, std::string_view text, std::size_t from);
  void prepareParcelOffer();
  void offerParcel();
  void followHop();
  void showHopped(std::string_view wanted);
  void arrangeList();
  void arrangeRecords();
  void filterWhileTyping();
  void enter(Mode mode);
  void showParcelWarnings();
  void clearWarnings();
  void clearPage();
  void beginNew(bool copy);
  void beginSearch();
  void find();
  void lockRecord(bool locked);
  bool mayLeaveUnsaved();

  bool validate(bool adding);
  bool requireFilled();
  TextBox* firstBlank(const RequiredBox& required);
  bool refuseDuplicate();
  bool askAboutParcel();
  void tidyBoxes();
  bool renumbering() const;
  Result<void> store();
  Result<void> storeParcel();
  void afterStoring();
  void tellNumberTrouble();
  void stampRecord();
  void tellStoreFailed(const Error& error);
  bool resolveConflict();
  bool readTheirs();
  std::string whoChanged() const;

  const RecordKind& kind_;
  mdb& parcels_;
  Numbering numbering_;
  ParcelOffer offer_;
  TypedBefore before_;
  RecordQuery query_;
  ListPage list_;
  AttachmentPage attachments_;
  std::shared_ptr<Connection> connection_;
  std::shared_ptr<Recordset> datPrimaryRS_;
  Mode mode_ = Mode::Browse;
  Recordset::Bookmark returnTo_ = -1;
  ShownBoxes shown_;
  ScreenValues asRead_;    ///< what the page showed when the edit began
  bool conflict_ = false;  ///< someone else changed the record, and it is not settled yet what stands
  std::vector<TextBox*> amounts_;
  bool readBefore_ = true;     ///< what was typed before is to be read anew
  std::string proposed_;       ///< the key that INew put on the screen
  std::string newParcel_;      ///< key of a parcel that the user agreed to register with this record
  std::string numberTrouble_;  ///< why the next number could not be written, of the last add
};

}  // namespace zelvo
