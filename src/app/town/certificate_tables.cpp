// What follows on a permit: certificates, affidavits, and fees with their payments.

#include <algorithm>

#include "app/town/town_tables.h"

namespace zelvo {

namespace {

Date notInFuture(Date date) {
  return std::min(date, kTownToday);
}

struct Certificate {
  Permit permit;
  std::string sequence;
  Date issued;

  std::string year() const { return datePicture(issued, "yy"); }
};

constexpr TownCell<Certificate> kCertificateCells[] = {
    {"PERMIT", [](const Certificate& c) -> Value { return c.permit.number; }},
    {"BLDGPERMYY", [](const Certificate& c) -> Value { return c.permit.year; }},
    {"BLDGPRM", [](const Certificate& c) -> Value { return c.permit.sequence; }},
    {"CERTOCCY", [](const Certificate& c) -> Value { return c.year(); }},
    {"CERTOCCN", [](const Certificate& c) -> Value { return c.sequence; }},
    {"CERTNO", [](const Certificate& c) -> Value { return c.year() + "-" + c.sequence; }},
    {"TYPE", [](const Certificate& c) -> Value { return c.permit.work->drawn ? "O" : "C"; }},
    {"DATECO", [](const Certificate& c) -> Value { return c.issued; }},
    {"COMONTH", [](const Certificate& c) -> Value { return datePicture(c.issued, "mm"); }},
    {"CODATE", [](const Certificate& c) -> Value { return datePicture(c.issued, "dd"); }},
    {"COYEAR", [](const Certificate& c) -> Value { return c.year(); }},
    {"NAME", [](const Certificate& c) -> Value { return c.permit.parcel.owner.name; }},
    {"ADDR", [](const Certificate& c) -> Value { return c.permit.parcel.owner.address; }},
    {"PLOCN", [](const Certificate& c) -> Value { return c.permit.parcel.location; }},
    {"VD3", [](const Certificate& c) -> Value { return c.permit.filed; }},
    {"FILEMONTH", [](const Certificate& c) -> Value { return datePicture(c.permit.filed, "mm"); }},
    {"FILEDATE", [](const Certificate& c) -> Value { return datePicture(c.permit.filed, "dd"); }},
    {"FILEYEAR", [](const Certificate& c) -> Value { return datePicture(c.permit.filed, "yy"); }},
    {"SEC", [](const Certificate& c) -> Value { return c.permit.parcel.sec; }},
    {"BLK", [](const Certificate& c) -> Value { return c.permit.parcel.blk; }},
    {"LOT", [](const Certificate& c) -> Value { return c.permit.parcel.lot; }},
    {"LOD", [](const Certificate& c) -> Value { return c.permit.parcel.lod; }},
    {"SUD", [](const Certificate& c) -> Value { return c.permit.parcel.sud; }},
    {"USEBLDG", [](const Certificate& c) -> Value { return c.permit.parcel.use; }},
    {"FEE", [](const Certificate& c) -> Value { return c.permit.certificateFee; }},
    {"NOTES", [](const Certificate& c) -> Value { return c.permit.description + " completed."; }},
    {"BYUSER", [](const Certificate& c) -> Value { return c.permit.clerk; }},
    {"TSTAMP",
     [](const Certificate& c) -> Value {
       return DateTime{c.issued, c.permit.minute * 60};
     }},
};

Certificate certificateAt(const TownPlan& plan, const TownNotes& notes, std::size_t index) {
  Certificate certificate{permitAt(plan, notes.certified[index]), std::to_string(index + 1), {}};
  const auto& permit = certificate.permit;
  certificate.issued = notInFuture(addDays(permit.filed, 60 + permit.minute % 200));
  return certificate;
}

// ---- affidavits of the final cost

struct Affidavit {
  Permit permit;
  std::string number, year, sequence;
  Date signedOn;
};

constexpr TownCell<Affidavit> kAffidavitCells[] = {
    {"AFFIY", [](const Affidavit& a) -> Value { return a.year; }},
    {"AFFIN", [](const Affidavit& a) -> Value { return a.sequence; }},
    {"FILENO", [](const Affidavit& a) -> Value { return a.number; }},
    {"APPLNAME", [](const Affidavit& a) -> Value { return a.permit.parcel.owner.name; }},
    {"APPLADDR", [](const Affidavit& a) -> Value { return a.permit.parcel.owner.address; }},
    {"APPLTYPE", [](const Affidavit& a) -> Value { return a.permit.architect ? "A" : "O"; }},
    {"LOCN", [](const Affidavit& a) -> Value { return a.permit.parcel.location; }},
    {"AFFIMONTH", [](const Affidavit& a) -> Value { return datePicture(a.signedOn, "mm"); }},
    {"AFFIDATE", [](const Affidavit& a) -> Value { return datePicture(a.signedOn, "dd"); }},
    {"AFFIYEAR", [](const Affidavit& a) -> Value { return datePicture(a.signedOn, "yy"); }},
    {"DATEAFFI", [](const Affidavit& a) -> Value { return a.signedOn; }},
    {"PERMIT", [](const Affidavit& a) -> Value { return a.permit.number; }},
    {"BLDGPERMYY", [](const Affidavit& a) -> Value { return a.permit.year; }},
    {"BLDGPRM", [](const Affidavit& a) -> Value { return a.permit.sequence; }},
    {"PERMFEE", [](const Affidavit& a) -> Value { return a.permit.fee; }},
    {"ESTCOST", [](const Affidavit& a) -> Value { return a.permit.cost; }},
    {"FINCOST", [](const Affidavit& a) -> Value { return a.permit.cost * 1.25; }},
    {"ADDLFEE", [](const Affidavit& a) -> Value { return a.permit.fee * 0.25; }},
    {"COFEE", [](const Affidavit& a) -> Value { return a.permit.certificateFee; }},
    {"SEC", [](const Affidavit& a) -> Value { return a.permit.parcel.sec; }},
    {"BLK", [](const Affidavit& a) -> Value { return a.permit.parcel.blk; }},
    {"LOT", [](const Affidavit& a) -> Value { return a.permit.parcel.lot; }},
    {"LOD", [](const Affidavit& a) -> Value { return a.permit.parcel.lod; }},
    {"SUD", [](const Affidavit& a) -> Value { return a.permit.parcel.sud; }},
    {"DESC", [](const Affidavit& a) -> Value { return a.permit.description + ", final cost."; }},
    {"VD3", [](const Affidavit& a) -> Value { return a.permit.filed; }},
    {"BYUSER", [](const Affidavit& a) -> Value { return a.permit.clerk; }},
    {"TSTAMP",
     [](const Affidavit& a) -> Value {
       return DateTime{a.signedOn, a.permit.minute * 60};
     }},
};

constexpr std::size_t kPermitsAnAffidavit = 25;

// ---- fees

struct Fee {
  Permit permit;
  double charged = 0, paid = 0;
  std::string_view method;
  std::string receipt;
};

constexpr std::string_view kMethods[] = {"Check", "Check", "Cash", "Credit Card"};

Value paidPart(const Fee& fee, std::string_view picture) {
  return fee.paid > 0 ? datePicture(fee.permit.filed, picture) : "";
}

constexpr TownCell<Fee> kFeeCells[] = {
    {"PBFCASE", [](const Fee& f) -> Value { return f.permit.number; }},
    {"PBFSTATUS", [](const Fee& f) -> Value { return f.permit.voided ? "V" : "A"; }},
    {"PBFEXTRA", [](const Fee&) -> Value { return "P"; }},
    {"PBFFILEDATE", [](const Fee& f) -> Value { return f.permit.filed; }},
    {"PBFDUEDATE", [](const Fee& f) -> Value { return addDays(f.permit.filed, 30); }},
    {"PBFPAIDDATE", [](const Fee& f) -> Value { return f.paid > 0 ? Value(f.permit.filed) : Value(); }},
    {"PBFPAYMETHOD", [](const Fee& f) -> Value { return f.paid > 0 ? f.method : ""; }},
    {"PBFPAYID", [](const Fee& f) -> Value { return f.paid > 0 ? f.receipt : ""; }},
    {"PBFPAYDESC", [](const Fee& f) -> Value { return "Building permit " + f.permit.number; }},
    {"PBFAMOUNT", [](const Fee& f) -> Value { return f.charged; }},
    {"PBFPAID", [](const Fee& f) -> Value { return f.paid; }},
    {"PBFBALDUE", [](const Fee& f) -> Value { return f.charged - f.paid; }},
    {"PBFAPPNAME1", [](const Fee& f) -> Value { return f.permit.parcel.owner.name; }},
    {"PBFAPPADDR1", [](const Fee& f) -> Value { return f.permit.parcel.owner.address; }},
    {"PBFAPPEMAIL", [](const Fee& f) -> Value { return f.permit.parcel.owner.email; }},
    {"PBFAPPTEL", [](const Fee& f) -> Value { return f.permit.parcel.owner.phone; }},
    {"PBFPROJNAME", [](const Fee& f) -> Value { return f.permit.parcel.key; }},
    {"PBFPAIDMM", [](const Fee& f) -> Value { return paidPart(f, "mm"); }},
    {"PBFPAIDYY", [](const Fee& f) -> Value { return paidPart(f, "yy"); }},
    {"PBFDUEMM", [](const Fee& f) -> Value { return datePicture(addDays(f.permit.filed, 30), "mm"); }},
    {"PBFDUEYY", [](const Fee& f) -> Value { return datePicture(addDays(f.permit.filed, 30), "yy"); }},
    {"BYUSER", [](const Fee& f) -> Value { return f.permit.clerk; }},
    {"TSTAMP",
     [](const Fee& f) -> Value {
       return DateTime{f.permit.filed, f.permit.minute * 60};
     }},
};

Fee feeAt(const TownPlan& plan, std::size_t index) {
  Dice dice(plan.seed, Subject::Fee, index);
  Fee fee;
  fee.permit = permitAt(plan, index);
  fee.charged = fee.permit.fee + fee.permit.reviewFee;
  fee.paid = dice.chance(90) ? fee.charged : dice.chance(50) ? 25 : 0;
  fee.method = dice.pick(kMethods);
  fee.receipt = std::to_string(1000 + index);
  return fee;
}

}  // namespace

NumberSeries affidavits(const TownPlan& plan) {
  return NumberSeries(plan.permits.count() / kPermitsAnAffidavit);
}

Result<void> fillCertificates(TableFiller& filler, const TownPlan& plan, const TownNotes& notes) {
  return filler.fill<Certificate>("CERTOCCU", kCertificateCells, notes.certified.size(),
                                  [&](std::size_t index) { return certificateAt(plan, notes, index); });
}

Result<void> fillAffidavits(TableFiller& filler, const TownPlan& plan) {
  const NumberSeries series = affidavits(plan);
  return filler.fill<Affidavit>("AFFIDAVI", kAffidavitCells, series.count(), [&](std::size_t index) {
    return Affidavit{permitAt(plan, index * kPermitsAnAffidavit), series.number(index), series.year(index),
                     std::to_string(series.sequence(index)), series.date(index)};
  });
}

Result<void> fillFees(TableFiller& filler, const TownPlan& plan) {
  return filler.fill<Fee>("PBFEES", kFeeCells, plan.permits.count(),
                          [&](std::size_t index) { return feeAt(plan, index); });
}

}  // namespace zelvo
