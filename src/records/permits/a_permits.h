#pragma once

#include "documents/labels/label_printer.h"
#include "documents/letter.h"
#include "records/permits/permit_sub_records.h"
#include "records/record_screen.h"

namespace zelvo {

/// Building permits: who owns the parcel, who designs and builds, where, what is built and for what use, dates, fees,
/// open or closed.
class APermits : public RecordScreen {
 public:
  APermits(Desk& desk, mdb& parcels, LetterPrinter& letters, LabelPrinter& labels);

  bool PermitExists(std::string_view key);
  void BumpPermit();
  void iPrint_Click();
  /// Looks a parcel up for the permit at hand, with its owner and location where none is typed yet.
  void iLook_Click();
  /// Prints one of the documents of a permit, by its name on the print menu. An error says what stood in the way.
  Result<void> doprint(std::string_view document);
  /// Prints what the permit costs.
  Result<void> printreceipt();

  /// The chosen row of insurance, and of the contacts, to its page, and what the page holds into a row.
  void getInsdata() { insurance_.getData(); }
  void getContactData() { contacts_.getData(); }
  void moveInsfieldsintodb(Recordset& row) { insurance_.moveFieldsIntoDb(row); }
  void moveContactfieldsintodb(Recordset& row) { contacts_.moveFieldsIntoDb(row); }

  /// Whether the permit has a certificate of occupancy.
  bool hasCO();
  /// Lists the certificates of the permit.
  void iCertInfo_Click();
  // Other screens on this permit.
  void docerts();
  void doins();
  void doviols();  ///< the violations that were written for the permit
  void iFee_Click();
  void Label28_Click();  ///< the violations of the parcel
  void iMap_Click();
  /// Chooses the day on which the permit expires.
  void iExpires_Click();

 private:
  static constexpr std::size_t kInsurancePage = kAttachmentPage + 1, kContactsPage = kAttachmentPage + 2,
                               kMorePage = kAttachmentPage + 3;
  static constexpr int kSecondDateBox = 8, kCertificateFeeBox = 10, kFeeBox = 11, kExpirationBox = 13;

  void clearControls() override;
  void showCodedColumns() override;
  void storeCodedColumns() override;
  void clearForCopy() override;
  void showSearchControls(bool searching) override;
  std::optional<std::string> ownSearchClauses() override;
  std::string proposedKey() const override;
  void bumpKey() override { BumpPermit(); }
  std::string duplicateTitle() const override { return " Duplicate Permit Number"; }
  std::string duplicateText() const override;
  bool validateOwn() override;
  void enableOwnButtons(bool browsing) override;
  bool ownPagesBusy() const override { return insurance_.typing() || contacts_.typing(); }
  Result<std::vector<std::string>> databasesAlong() override;
  Result<void> storeAlong() override;
  std::string parcelOwner() const override { return boxText(*this, 18); }
  std::string parcelLocation() const override { return boxText(*this, 34); }

  void nameOwnBoxes();
  void loadPickLists();
  void bindButtons();
  void bindPage(SubRecordPage& page);
  bool isSettled(const SubRecordPage& page, std::size_t tab);
  Result<void> printChosen(const std::string& type);
  bool refuseDate(Control& box, std::string_view text, std::size_t tab = kRecordPage);
  bool ownDateIsReadable();
  bool isReadableDate(int box);
  bool expiresInTime();
  void leaveExpiration();
  void leaveSecondDate();
  void showExpired();
  void storePermitDate();
  DateTime dateOrToday(int box) const;

  LetterPrinter& letters_;
  LabelPrinter& labels_;

  // In the order of the Tab key, behind the permit number.
  ControlGroup<TextBox> number_{Text1, {1, 7}};
  DatePicker DTPicker1{*this, "DTPicker1"};
  DatePicker DTPicker2{*this, "DTPicker2"};  ///< of a search: where the range of dates ends
  ControlGroup<TextBox> dates_{Text1, {8, 13}};
  Button iExpires{*this, "iExpires", "Choose.."};
  Label labexpexpired{*this, "labexpexpired"};
  CheckBox Check3{*this, "Check3", "Close&d"};
  CheckBox Check1{*this, "Check1", "Plans on file"};
  ControlGroup<TextBox> parcel_{Text1, {2, 3, 4, 5, 6}};
  Button iLook{*this, "iLook", "Loo&k up.."};
  ControlGroup<TextBox> place_{Text1, {9, 62, 63, 34}};
  ControlGroup<TextBox> fees_{Text1, {12, 11, 10}};
  TextBox Text2{*this, "Text2"};
  ControlGroup<TextBox> owner_{Text1, {18, 17, 19, 23, 14}};
  ControlGroup<TextBox> builder_{Text1, {26, 28, 27, 25, 16}};
  ControlGroup<TextBox> architect_{Text1, {20, 22, 21, 24, 15}};
  Button iInsp{*this, "iInsp", "Inspections"};
  Button iViol{*this, "iViol", "Violations"};
  Button iFee{*this, "iFee", "Fees"};
  Button iCert{*this, "iCert", "Certificates"};
  Button iCertInfo{*this, "iCertInfo", "Certificate list"};
  Button iMap{*this, "iMap", "Map"};
  Combo Combo2{*this, "Combo2"};
  Combo Combo1{*this, "Combo1"};
  Combo Combo3{*this, "Combo3"};
  TextBox Text4{*this, "Text4"};
  ControlGroup<TextBox> building_{Text1, {40, 41, 35, 36, 37, 38}};
  CheckBox Check2{*this, "Check2", "&Follow up"};
  TextBox Text5{*this, "Text5"};
  ControlGroup<TextBox> notes_{Text1, {42}};
  ControlGroup<TextBox> picks_{Text1, {32, 33, 39}};  // stand for the combos
  // What the office kept in former days, and seldom asks for now.
  TextBox TextJob{*this, "TextJob"};
  TextBox TextBin{*this, "TextBin"};
  TextBox TextToilets{*this, "TextToilets"};
  TextBox TextHeat{*this, "TextHeat"};
  TextBox TextWork{*this, "TextWork"};
  TextBox TextDate2{*this, "TextDate2"};
  TextBox TextFee2{*this, "TextFee2"};
  TextBox TextRemarks{*this, "TextRemarks"};
  SubRecordPage insurance_{*this, desk, kPermitInsurance};
  SubRecordPage contacts_{*this, desk, kPermitContacts};
};

}  // namespace zelvo
