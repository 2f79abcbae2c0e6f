// What else the office has on a permit: its certificates, inspections, fees, the violations of its parcel, its place.

#include "base/text.h"
#include "data/query_text.h"
#include "form/map_page.h"
#include "records/other_records.h"
#include "records/permits/a_permits.h"
#include "records/permits/permit_certificates.h"

namespace zelvo {

namespace {

constexpr OtherRecords kInspections{"BInspections", "Inspections", QuerySlot::Inspections, "db2.mdb"};
constexpr OtherRecords kCertificates{"CCertificates", "Certificates", QuerySlot::Certificates, "db4.mdb"};
constexpr OtherRecords kViolations{"CViolations", "Violations", QuerySlot::Violations, "db5.mdb"};
constexpr std::string_view kFeeScreen = "feesfrm";
constexpr std::string_view kPermitFees = "P";

constexpr std::size_t kMostCertificates = 50;

struct CertificateKind {
  std::string_view letter, text;
};
constexpr CertificateKind kCertificateKinds[] = {{"O", "Certificate of Occupancy #"},
                                                 {"C", "Certificate of Compliance #"},
                                                 {"D", "Certificate of Disapproval #"},
                                                 {"A", "Arch./Engineer Certificate #"},
                                                 {"F", "Fire Code Certificate #"}};

std::string_view textOfKind(std::string_view letter) {
  for (const CertificateKind& kind : kCertificateKinds)
    if (alike(kind.letter, letter))
      return kind.text;
  return "Certificate #";
}

std::string certificatesOf(std::string_view permit) {
  return "Select * from CERTOCCU where " + columnIs("PERMIT", permit) + " order by [CERTOCCN]";
}

}  // namespace

bool hasOccupancyCertificate(Connection& certificates, std::string_view permit) {
  const auto found = certificates.exists("CERTOCCU", columnIs("PERMIT", permit) + " and [TYPE] = 'O'");
  if (!found)
    throw StoreError(found.error());
  return *found;
}

bool APermits::hasCO() {
  const auto certificates = otherDatabase(desk, kCertificates.file);
  if (!certificates)
    throw StoreError(certificates.error());
  return hasOccupancyCertificate(**certificates, key());
}

void APermits::iCertInfo_Click() {
  const auto found = otherRows(desk, kCertificates.file, certificatesOf(key()));
  if (!found)
    throw StoreError(found.error());
  Recordset& certificates = **found;
  if (certificates.RecordCount() == 0)
    return desk.messages.tell(" Certificates", "Associated Certificate not found.");
  std::string list;
  for (std::size_t i = 0; i < kMostCertificates && !certificates.Eof(); ++i, certificates.MoveNext())
    list += "\n" + std::string(textOfKind(certificates.text("TYPE"))) + certificates.text("CERTNO");
  if (desk.messages.confirm(" Certificates", "This permit has associated certificate(s):" + list +
                                                 "\n\nWould you like to see all certificates\nassociated with this "
                                                 "permit?"))
    docerts();
}

void APermits::docerts() {
  showOtherRecords(desk, kCertificates, certificatesOf(key()));
}

void APermits::doins() {
  showOtherRecords(desk, kInspections, "Select * from INSPDTL where " + columnIs("PERMIT", key()));
}

void APermits::doviols() {
  showOtherRecords(desk, kViolations, "Select * from VIOLDATA where " + columnIs("PERMIT", key()));
}

void APermits::Label28_Click() {
  if (Label28.caption.empty())
    return;
  const std::string parcel = SBL2SQL(*this);
  showOtherRecords(
      desk, kViolations,
      "Select * from VIOLDATA where " + std::string(trim(parcel.substr(0, parcel.rfind("AND")))) + " order by [RECNO]");
}

void APermits::iFee_Click() {
  if (!desk.screens.knows(kFeeScreen))
    return desk.messages.tell(" Fees", notOffered("Fees").message);
  desk.session.feeCategory = kPermitFees;
  desk.session.hop = key();
  desk.screens.open(kFeeScreen);
}

void APermits::iMap_Click() {
  const std::string place = records().text("LINK01");
  const auto comma = place.find(',');
  const std::string_view latitude = trim(std::string_view(place).substr(0, comma));
  const std::string_view longitude =
      comma == std::string::npos ? std::string_view() : trim(std::string_view(place).substr(comma + 1));
  if (!isDegrees(latitude, kMostLatitude) || !isDegrees(longitude, kMostLongitude))
    return desk.messages.tell(" Map", "This permit has no position on the map.");
  OpenDocument(desk, mapAddress(latitude, longitude));
}

}  // namespace zelvo
