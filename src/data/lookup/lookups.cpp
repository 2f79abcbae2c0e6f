#include "data/lookup/lookups.h"

#include "base/text.h"
#include "data/lookup/parcel_search.h"
#include "data/lookup/roll.h"

namespace zelvo {

namespace {

constexpr LookupKind::Shown kKeyList[] = {
    {" S-B-L ", "SBLF", 18},    {" Name ", "ASSOC", 24},  {" Location ", "LOCN1", 34},
    {" Permit ", "PERMIT", 11}, {" Flags ", "FLAGS", 26},
};
constexpr LookupKind::Shown kAddressList[] = {
    {" Location ", "LOCN1", 34}, {" S-B-L ", "SBLF", 18},  {" Name ", "ASSOC", 24},
    {" Permit ", "PERMIT", 11},  {" Flags ", "FLAGS", 26},
};
constexpr LookupKind::Shown kContactList[] = {
    {" Name ", "ASSOC", 24},     {" Contact ", "CONTACT", 22}, {" S-B-L ", "SBLF", 18},
    {" Location ", "LOCN1", 30}, {" Mailing ", "MAILING", 30},
};
constexpr LookupKind::Shown kRollList[] = {
    {" S-B-L ", "RSBLF", 18},
    {" Name ", "RASSOC", 30},
    {" Location ", "RLOCN1", 34},
    {" Mailing ", "RADDR1", 34},
};

constexpr LookupKind kByKey{"sblloc",    "Find Parcel by S-B-L",
                            "\\sbl.mdb", "SBL",
                            "SBLF",      "SBLF",
                            "ASSOC",     "LOCN1",
                            "MAILING",   "cmdKey",
                            "Text1(2)",  kKeyList};
constexpr LookupKind kByAddress{"adloc",     "Find Parcel by Address",
                                "\\sbl.mdb", "SBL",
                                "LOCN1",     "SBLF",
                                "ASSOC",     "LOCN1",
                                "MAILING",   "cmdAddress",
                                "Text5",     kAddressList};
constexpr LookupKind kByContact{"conloc",    "Find Parcel by Contact",
                                "\\sbl.mdb", "SBL",
                                "ASSOC",     "SBLF",
                                "ASSOC",     "LOCN1",
                                "MAILING",   "cmdContact",
                                "Text2",     kContactList};
constexpr LookupKind kByRoll{"rpsloc",    "Find Parcel on the Tax Roll",
                             "\\rps.mdb", "RPS",
                             "RSBLF",     "RSBLF",
                             "RASSOC",    "RLOCN1",
                             "RADDR1",    "cmdRoll",
                             "Text1(2)",  kRollList};

void addTo(std::string& conditions, const std::string& condition) {
  if (!condition.empty())
    conditions += (conditions.empty() ? "" : " AND ") + condition;
}

/// A blank box asks for nothing.
std::string holdsTyped(std::string_view column, const TextBox& box) {
  return trim(box.text).empty() ? "" : holds(column, box.text);
}

}  // namespace

sblloc::sblloc(Desk& itsDesk, LookupFor whom) : ParcelLookup(itsDesk, kByKey, whom) {
  Text2.visible = Text5.visible = false;
}

std::string sblloc::conditions() const {
  return keyCondition(*this, kind().key);
}

adloc::adloc(Desk& itsDesk, LookupFor whom) : ParcelLookup(itsDesk, kByAddress, whom) {
  for (TextBox& box : Text1)
    box.visible = false;
  Text2.visible = false;
  Text5.tip = "Any part of the address. % stands for any letters, _ for one, [a-d] for one of these";
}

std::string adloc::conditions() const {
  return holdsTyped("LOCN1", Text5);
}

conloc::conloc(Desk& itsDesk, LookupFor whom) : ParcelLookup(itsDesk, kByContact, whom) {
  for (TextBox& box : Text1)
    box.visible = false;
  Text5.visible = false;
  Text2.tip = "Any part of the name. % stands for any letters, _ for one, [a-d] for one of these";
}

void conloc::prepare(const Table& table) {
  hasContacts_ = table.find("CONTACT") != nullptr;
  if (!hasContacts_)
    note("The parcel registry has the old layout, which holds no contacts: the owners are searched.");
}

std::string conloc::conditions() const {
  const std::string owner = holdsTyped("ASSOC", Text2);
  return owner.empty() || !hasContacts_ ? owner : "(" + owner + " OR " + holdsTyped("CONTACT", Text2) + ")";
}

rpsloc::rpsloc(Desk& itsDesk, LookupFor whom) : ParcelLookup(itsDesk, kByRoll, whom) {}

std::string rpsloc::conditions() const {
  std::string all = keyCondition(*this, kind().key);
  addTo(all, holdsTyped("RASSOC", Text2));
  addTo(all, holdsTyped("RLOCN1", Text5));
  return all;
}

Result<std::shared_ptr<Connection>> rpsloc::reach() {
  return openRoll(desk.session);
}

std::unique_ptr<ParcelLookup> makeLookup(Desk& desk, std::string_view name, LookupFor whom) {
  if (name == kByKey.screen)
    return std::make_unique<sblloc>(desk, whom);
  if (name == kByAddress.screen)
    return std::make_unique<adloc>(desk, whom);
  if (name == kByContact.screen)
    return std::make_unique<conloc>(desk, whom);
  return name == kByRoll.screen ? std::make_unique<rpsloc>(desk, whom) : nullptr;
}

}  // namespace zelvo
