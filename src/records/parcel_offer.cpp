#include "records/parcel_offer.h"

#include "base/text.h"
#include "data/lookup/roll.h"
#include "records/field_copy.h"

namespace zelvo {

namespace {

/// The registry and the roll have their words for a text that nobody knows.
std::string known(std::string_view text) {
  text = trim(text);
  return text == "UNK" || text == "?" ? "" : std::string(text);
}

// The registry of the old layout cuts its texts; where the roll has the whole text, that is the one.
std::string better(const std::string& registered, const std::string& onRoll) {
  const bool cut = alike(left(onRoll, length(registered)), registered);
  return cut ? onRoll : registered;
}

}  // namespace

void ParcelOffer::forget() {
  parcel_.clear();
  offered_.clear();
}

std::string ParcelOffer::offer(const Session& session, mdb& parcels, const std::string& key) {
  if (key == parcel_)
    return "";
  parcel_ = key;
  const auto registered = parcels.SBLExists(key);
  if (!registered)
    return "";
  const bool there = *registered;
  const ExtendedParcel roll = parcelFromRoll(session, key);
  const std::string onRoll = known(roll.assoc) + known(roll.location) + known(roll.mailing);
  ParcelFacts facts{known(roll.assoc), known(roll.mailing), known(roll.location)};
  if (there)
    facts = {better(known(parcels.assoc), facts.owner), better(known(parcels.mailing), facts.address),
             better(known(parcels.location), facts.location)};
  const auto before = offered_;
  fill(facts);
  if (offered_ == before || offered_.empty())
    return "";
  return std::string("Offered from the ") + (there ? "parcel registry" : "") +
         (there && !onRoll.empty() ? " and the " : "") + (onRoll.empty() ? "" : "tax roll") +
         ". Type over what is not right.";
}

void ParcelOffer::fill(const ParcelFacts& facts) {
  fillBox(boxes_.owner, known(facts.owner));
  fillBox(boxes_.address, known(facts.address));
  fillBox(boxes_.location, known(facts.location));
}

void ParcelOffer::fillBox(int box, std::string_view text) {
  const std::string stands = boxText(screen_, box);
  const auto before = offered_.find(box);
  const bool mayFill = stands.empty() || (before != offered_.end() && before->second == stands);
  if (!mayFill || (text.empty() && stands.empty()))
    return;
  setBoxText(screen_, box, text);
  const TextBox* held = dynamic_cast<const TextBox*>(screen_.find("Text1", box));
  if (held && !text.empty())
    offered_[box] = trim(held->text);
  else
    offered_.erase(box);
}

}  // namespace zelvo
