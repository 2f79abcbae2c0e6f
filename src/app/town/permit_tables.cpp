// The building permits, with the insurance certificates and contacts that belong to them.

#include <algorithm>

#include "app/town/office_lists.h"
#include "app/town/town_tables.h"

namespace zelvo {

namespace {

Value stamp(const Permit& permit) {
  return DateTime{permit.filed, permit.minute * 60};
}

// Rooms and bedrooms are one box of the screen, and so one number.
Value rooms(const Permit& permit) {
  return std::to_string(permit.parcel.rooms);
}

const Person& architectOf(const Permit& permit) {
  static const Person nobody;
  return permit.architect ? *permit.architect : nobody;
}

constexpr TownCell<Permit> kPermitCells[] = {
    {"PERMIT", [](const Permit& p) -> Value { return p.number; }},
    {"JOB", [](const Permit& p) -> Value { return "J" + p.year + p.sequence; }},
    {"BIN", [](const Permit& p) -> Value { return std::to_string(1'000'000 + p.parcel.index); }},
    {"STATUS", [](const Permit& p) -> Value { return p.voided ? "V" : ""; }},
    {"VIOLOPEN", [](const Permit& p) -> Value { return p.closed ? "C" : "O"; }},
    {"BLDGPERMYY", [](const Permit& p) -> Value { return p.year; }},
    {"BLDGPRM", [](const Permit& p) -> Value { return p.sequence; }},
    {"SEC", [](const Permit& p) -> Value { return p.parcel.sec; }},
    {"BLK", [](const Permit& p) -> Value { return p.parcel.blk; }},
    {"LOT", [](const Permit& p) -> Value { return p.parcel.lot; }},
    {"LOD", [](const Permit& p) -> Value { return p.parcel.lod; }},
    {"SUB", [](const Permit&) -> Value { return ""; }},
    {"SUD", [](const Permit& p) -> Value { return p.parcel.sud; }},
    {"OWNNAME1", [](const Permit& p) -> Value { return p.parcel.owner.name; }},
    {"OWNADDR1", [](const Permit& p) -> Value { return p.parcel.owner.address; }},
    {"OWNPHONE", [](const Permit& p) -> Value { return p.parcel.owner.phone; }},
    {"OWNCELL", [](const Permit& p) -> Value { return p.parcel.owner.cell; }},
    {"EM1", [](const Permit& p) -> Value { return p.parcel.owner.email; }},
    {"ARCHNAME1", [](const Permit& p) -> Value { return architectOf(p).name; }},
    {"ARCHADDR1", [](const Permit& p) -> Value { return architectOf(p).address; }},
    {"ARCHPHONE", [](const Permit& p) -> Value { return architectOf(p).phone; }},
    {"ARCHCELL", [](const Permit& p) -> Value { return architectOf(p).cell; }},
    {"EM2", [](const Permit& p) -> Value { return architectOf(p).email; }},
    {"BLDGNAME1", [](const Permit& p) -> Value { return p.builder.name; }},
    {"BLDGADDR1", [](const Permit& p) -> Value { return p.builder.address; }},
    {"BLDGPHONE", [](const Permit& p) -> Value { return p.builder.phone; }},
    {"BLDGCELL", [](const Permit& p) -> Value { return p.builder.cell; }},
    {"EM3", [](const Permit& p) -> Value { return p.builder.email; }},
    {"LOCN1", [](const Permit& p) -> Value { return p.parcel.location; }},
    {"FILEMONTH", [](const Permit& p) -> Value { return datePicture(p.filed, "mm"); }},
    {"FILEDATE", [](const Permit& p) -> Value { return datePicture(p.filed, "dd"); }},
    {"FILEYEAR", [](const Permit& p) -> Value { return datePicture(p.filed, "yy"); }},
    {"MATL", [](const Permit& p) -> Value { return p.work->material; }},
    {"DIMBLDG", [](const Permit& p) -> Value { return p.dimensions; }},
    {"DIMLOT",
     [](const Permit& p) -> Value { return std::to_string(p.parcel.width) + " x " + std::to_string(p.parcel.depth); }},
    {"PRMFOR", [](const Permit& p) -> Value { return p.work->permitFor; }},
    {"USEBLDG", [](const Permit& p) -> Value { return p.parcel.use; }},
    {"DATA1", [](const Permit& p) -> Value { return p.description; }},
    {"STORIES", [](const Permit& p) -> Value { return std::to_string(p.parcel.stories); }},
    {"ROOMS", rooms},
    {"BEDROOMS", rooms},
    {"FAMILIES", [](const Permit& p) -> Value { return std::to_string(p.parcel.families); }},
    {"TOILETS", [](const Permit& p) -> Value { return std::to_string(p.parcel.baths); }},
    {"BATHS", [](const Permit& p) -> Value { return std::to_string(p.parcel.baths); }},
    {"HEATPLT1", [](const Permit& p) -> Value { return p.parcel.heating; }},
    {"REMARKS1", [](const Permit& p) -> Value { return p.work->drawn ? "Sealed plans on file" : ""; }},
    {"FILEFEE", [](const Permit& p) -> Value { return p.fee; }},
    {"APPXCOST", [](const Permit& p) -> Value { return p.cost; }},
    {"FEE2", [](const Permit& p) -> Value { return p.reviewFee; }},
    {"COFEE", [](const Permit& p) -> Value { return p.certificateFee; }},
    {"RFEE", [](const Permit& p) -> Value { return p.parcel.business ? 25 : 0; }},
    {"UNITTYPE", [](const Permit& p) -> Value { return p.parcel.families > 2 ? "A" : ""; }},
    {"UNITNO", [](const Permit& p) -> Value { return p.parcel.families > 2 ? std::to_string(p.minute % 8 + 1) : ""; }},
    {"ZONED", [](const Permit& p) -> Value { return p.parcel.zone; }},
    {"WKTOBEG", [](const Permit& p) -> Value { return datePicture(addDays(p.filed, 14), "mm/dd/yy"); }},
    {"VD2", [](const Permit& p) -> Value { return addDays(p.filed, -10); }},
    {"VD3", [](const Permit& p) -> Value { return p.filed; }},
    {"VD4", [](const Permit& p) -> Value { return p.expires; }},
    {"VD5", [](const Permit& p) -> Value { return p.filed; }},
    {"FILENO", [](const Permit& p) -> Value { return p.sequence; }},
    {"NOTES", [](const Permit& p) -> Value { return p.notes; }},
    {"MM2", [](const Permit& p) -> Value { return p.work->drawn ? "1" : ""; }},
    {"LINK01", [](const Permit& p) -> Value { return p.parcel.coordinates; }},
    {"LINK02", [](const Permit& p) -> Value { return p.minute % 10 == 0 && !p.closed ? "|Call owner" : " "; }},
    {"BYUSER", [](const Permit& p) -> Value { return p.clerk; }},
    {"TSTAMP", stamp},
};

/// An insurance certificate, or a contact, of a permit.
struct Attached {
  Permit permit;
  Person firm;
  std::string number;
  std::string_view kind;
  Date from, to;
  bool exempt = false;
};

// The end of what has no end, by the office's custom.
constexpr Date kNoEnd = {2298, 12, 31};

constexpr TownCell<Attached> kInsuranceCells[] = {
    {"RECNO", [](const Attached& a) -> Value { return a.permit.number; }},
    {"INSCO1", [](const Attached& a) -> Value { return a.exempt ? "" : a.firm.name; }},
    {"IADDR1", [](const Attached& a) -> Value { return a.exempt ? "" : a.firm.address; }},
    {"IPHONE1", [](const Attached& a) -> Value { return a.exempt ? "" : a.firm.phone; }},
    {"ITYP1", [](const Attached& a) -> Value { return a.exempt ? "Exempt" : a.kind; }},
    {"IFR1", [](const Attached& a) -> Value { return a.from; }},
    {"ITO1", [](const Attached& a) -> Value { return a.to; }},
    {"ISSUED", [](const Attached& a) -> Value { return a.permit.builder.name; }},
    {"ICERT", [](const Attached& a) -> Value { return a.exempt ? "" : a.number; }},
    {"IPROJ", [](const Attached& a) -> Value { return a.permit.description; }},
    {"INOTES",
     [](const Attached& a) -> Value {
       return a.exempt ? "Owner does the work alone and has no employees." : "Town named as additional insured.";
     }},
};

constexpr TownCell<Attached> kContactCells[] = {
    {"RECNO", [](const Attached& a) -> Value { return a.permit.number; }},
    {"CINSCO1", [](const Attached& a) -> Value { return a.firm.name; }},
    {"CIADDR1", [](const Attached& a) -> Value { return a.firm.address; }},
    {"CIPHONE1", [](const Attached& a) -> Value { return a.firm.phone; }},
    {"CITYP1", [](const Attached& a) -> Value { return a.kind; }},
    {"CIFR1", [](const Attached& a) -> Value { return a.from; }},
    {"CITO1", [](const Attached&) -> Value { return kNoEnd; }},
    {"CISSUED", [](const Attached& a) -> Value { return a.permit.builder.name; }},
    {"CICERT", [](const Attached& a) -> Value { return a.number; }},
    {"CIPROJ", [](const Attached& a) -> Value { return a.permit.description; }},
    {"CINOTES", [](const Attached&) -> Value { return "Works under the builder."; }},
    {"EXTRA1", [](const Attached&) -> Value { return "P"; }},
};

constexpr std::size_t kPermitsAnInsurance = 2, kPermitsAContact = 5;

Attached insuranceAt(const TownPlan& plan, std::size_t index) {
  Dice dice(plan.seed, Subject::Insurance, 2 * index);
  Attached insurance;
  insurance.permit = permitAt(plan, index * kPermitsAnInsurance);
  insurance.firm = insurer(dice);
  insurance.kind = dice.pick(kInsuranceTypes);
  insurance.number = "GL-" + std::to_string(100'000 + dice.below(900'000));
  insurance.exempt = dice.chance(8);
  insurance.from = addDays(insurance.permit.filed, -dice.between(5, 300));
  insurance.to = insurance.exempt || dice.chance(10) ? kNoEnd : addDays(insurance.from, 365);
  return insurance;
}

Attached contactAt(const TownPlan& plan, std::size_t index) {
  Dice dice(plan.seed, Subject::Insurance, 2 * index + 1);
  Attached contact;
  contact.permit = permitAt(plan, index * kPermitsAContact);
  contact.firm = neighbour(dice);
  contact.kind = dice.pick(kContactTypes);
  contact.number = "L" + std::to_string(dice.between(1000, 9999));
  contact.from = contact.permit.filed;
  return contact;
}

constexpr std::size_t share(std::size_t permits, std::size_t each) {
  return (permits + each - 1) / each;
}

}  // namespace

Result<void> fillPermits(TableFiller& filler, const TownPlan& plan, TownNotes& notes) {
  return filler.fill<Permit>("BLDGPERM", kPermitCells, plan.permits.count(), [&](std::size_t index) {
    Permit permit = permitAt(plan, index);
    notes.parcels[permit.parcel.index].permits.push_back(static_cast<std::uint32_t>(index));
    if (permit.closed && !permit.voided && permit.work->certified)
      notes.certified.push_back(static_cast<std::uint32_t>(index));
    return permit;
  });
}

Result<void> fillInsurances(TableFiller& filler, const TownPlan& plan) {
  return filler.fill<Attached>("INSBASE", kInsuranceCells, share(plan.permits.count(), kPermitsAnInsurance),
                               [&](std::size_t index) { return insuranceAt(plan, index); });
}

Result<void> fillContacts(TableFiller& filler, const TownPlan& plan) {
  return filler.fill<Attached>("CONBASE", kContactCells, share(plan.permits.count(), kPermitsAContact),
                               [&](std::size_t index) { return contactAt(plan, index); });
}

}  // namespace zelvo
