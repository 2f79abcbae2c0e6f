#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/town/permit.h"
#include "app/town/table_filler.h"

namespace zelvo {

/// What is noted while records are made, because later ones follow from it.
struct TownNotes {
  struct OfParcel {
    std::vector<std::uint32_t> permits;  ///< their numbers from 0, the oldest first
    std::int8_t violation = 0, failed = 0;
    std::string note;  ///< of the flag that was raised last
  };
  std::vector<OfParcel> parcels;
  std::vector<std::uint32_t> certified;  ///< the permits that ended with a certificate
};

// Each makes one database. The permits come first and the parcel registry, which carries the flags, last.
Result<void> fillPermits(TableFiller& filler, const TownPlan& plan, TownNotes& notes);
Result<void> fillInsurances(TableFiller& filler, const TownPlan& plan);
Result<void> fillContacts(TableFiller& filler, const TownPlan& plan);
Result<void> fillCertificates(TableFiller& filler, const TownPlan& plan, const TownNotes& notes);
Result<void> fillAffidavits(TableFiller& filler, const TownPlan& plan);
Result<void> fillFees(TableFiller& filler, const TownPlan& plan);
Result<void> fillZoning(TableFiller& filler, const TownPlan& plan);
Result<void> fillInspections(TableFiller& filler, const TownPlan& plan, TownNotes& notes);
Result<void> fillViolations(TableFiller& filler, const TownPlan& plan, TownNotes& notes);
Result<void> fillActions(TableFiller& filler, const TownPlan& plan);
Result<void> fillFireProperties(TableFiller& filler, const TownPlan& plan);
Result<void> fillFireInspections(TableFiller& filler, const TownPlan& plan);
Result<void> fillMeetings(TableFiller& filler);
Result<void> fillParcels(TableFiller& filler, const TownPlan& plan, const TownNotes& notes);

// How many records of a kind a town has, and so which number is next.
NumberSeries zoningPermits(const TownPlan& plan);
std::size_t inspectionCount(const TownPlan& plan);
std::size_t violationCount(const TownPlan& plan);
NumberSeries affidavits(const TownPlan& plan);

}  // namespace zelvo
