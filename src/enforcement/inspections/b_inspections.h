#pragma once

#include "documents/letter.h"
#include "enforcement/inspections/inspection_kind.h"
#include "enforcement/inspections/parcel_matters.h"
#include "records/record_screen.h"

namespace zelvo {

/// Building inspections: those of a permit, those of another kind, and complaints from the public, under one series of
/// inspection control numbers (ICN). Every save tells the parcel registry of a failed inspection and of a complaint.
class BInspections : public RecordScreen {
 public:
  BInspections(Desk& desk, mdb& parcels, LetterPrinter& letters);

  bool ICNExists(std::string_view icn) { return keyInUse(icn); }
  void BumpICN();
  /// Adds the first inspection of the permit that is located, passed at the desk: to try the way of an inspection out.
  void qcload();
  /// A new inspection that follows this one up: parcel, permit and type stay, everything else is of today.
  void iReinspect_Click();
  void iPermit_Click();
  void iChecklist_Click();
  void iReports_Click();
  void iPrint_Click();

  /// Fills the codes of a rich text with the inspection that is current.
  Result<std::string> PlugVars(std::string_view text);
  /// Each prints the current inspection as its document; an error says what stood in the way. PrintInspRep lists all
  /// inspections of its permit in its category.
  Result<void> PrintInspRep();
  Result<void> PrintInspDetail();
  Result<void> PrintComplaint();
  /// By the first letter of a printout type: "I", "D", "R", or "C" for the checklist.
  Result<void> doprint(std::string_view type);

 private:
  void clearControls() override;
  void showCodedColumns() override;
  void storeCodedColumns() override;
  void clearForCopy() override;
  void prefillNew(bool copy) override;
  void showSearchControls(bool searching) override;
  std::optional<std::string> ownSearchClauses() override;
  bool findElsewhere() override;
  std::string proposedKey() const override { return numbering().next(); }
  void bumpKey() override { BumpICN(); }
  bool isNeeded(const RequiredBox& box) const override;
  bool validateOwn() override;
  bool isNumberGiven();
  bool isResultGiven();
  void leftParcel() override { showMatters(); }
  void enableOwnButtons(bool browsing) override;
  Result<void> storeAlong() override;
  void showAfterAdd() override;
  std::string showNoRecord() override;
  std::string parcelOwner() const override { return boxText(*this, inspection_box::kOwner); }
  std::string parcelLocation() const override { return boxText(*this, inspection_box::kLocation); }
  std::string parcelPermit() const override { return boxText(*this, inspection_box::kPermit); }

  void declarePicks();
  void bindControls();
  void chooseCategory();
  void loadTypes();
  bool isCategory(std::string_view text) const { return Combo1.text == text; }
  std::string shownType(std::string_view stored) const;

  std::string locatedPermit() const;
  void locatePermit(const std::string& number);
  std::unique_ptr<Recordset> permitRow(const std::string& number);
  void leavePermit();
  void nameOwnerOfUnknownPermit();
  void storePermitParts();
  void storeDates();
  void keepNature();
  void storeResolution();
  Result<void> raiseFlags();
  void noteOnParcel();
  void showMatters();
  void openMatter();

  void fillContext(MergeContext& context);
  Result<void> printWith(std::string_view letter, std::string_view heading, std::string_view title,
                         const std::vector<std::string>& lines);
  Result<void> openChecklist(const std::string& path);
  std::vector<std::string> recordLines(const Recordset& row) const;

  LetterPrinter& letters_;
  std::string heldNature_;  ///< of the record, before the clerk typed
  std::string askedFor_;    ///< the permit that was looked up last while the inspection is entered
  std::vector<ParcelMatter> matters_;

  // In the order of the Tab key, behind the number.
  ControlGroup<TextBox> number_{Text1, {1}};
  Option Option1{*this, "Option1", "Find inspections", "search"};
  Option Option2{*this, "Option2", "Find a permit", "search"};
  Combo Combo1{*this, "Combo1"};  ///< category
  Combo Combo2{*this, "Combo2"};  ///< type
  DatePicker DTPicker1{*this, "DTPicker1"};
  Combo Combo3{*this, "Combo3"};             ///< inspector
  Combo Combo4{*this, "Combo4"};             ///< result
  DatePicker DTPicker2{*this, "DTPicker2"};  ///< when the next inspection is due
  ControlGroup<TextBox> comments_{Text1, {inspection_box::kComments}};
  Button iReinspect{*this, "iReinspect", "&Re-inspect"};
  Button iChecklist{*this, "iChecklist", "Chec&klist.."};
  Button iReports{*this, "iReports", "Reports.."};
  ControlGroup<TextBox> permit_{Text1, {inspection_box::kPermit}};
  Button iPermit{*this, "iPermit", "Permit.."};
  Button cmdQuick{*this, "qcload", "Quick add"};
  ControlGroup<TextBox> parcel_{Text1, {2, 3, 4, 5, 6}};
  ControlGroup<TextBox> place_{Text1, {inspection_box::kLocation, inspection_box::kOwner, inspection_box::kPhone}};
  Label lblMatters{*this, "lblMatters"};
  ListView ListView3{*this, "ListView3"};    ///< what is open on the parcel
  DatePicker DTPicker3{*this, "DTPicker3"};  ///< when the complaint came in
  Combo Combo5{*this, "Combo5"};             ///< investigator
  ControlGroup<TextBox> complaint_{Text1,
                                   {inspection_box::kComplainant, inspection_box::kComplainantAddress,
                                    inspection_box::kComplainantPhone, inspection_box::kNature}};
  TextBox Text2{*this, "Text2"};  ///< resolution
  ControlGroup<TextBox> notes_{Text1, {inspection_box::kNotes}};
  ControlGroup<TextBox> picks_{Text1,
                               {inspection_box::kCategory, inspection_box::kType, inspection_box::kInspector,
                                inspection_box::kResult, inspection_box::kInvestigator}};
};

}  // namespace zelvo
