#pragma once

#include "data/mdb.h"
#include "data/recordset.h"
#include "documents/merge.h"
#include "form/session.h"

namespace zelvo {

/// Fills a letter's values with the permit at the recordset's current row and its owner. The counter stays.
void fillFromPermit(const Recordset& permit, mdb& parcels, const Session& session, MergeContext& context);

/// The parcel of a record as it is written in letters and listings: 12.5-3-45.
std::string parcelInLetters(const Recordset& record, ParcelParts& parts);

}  // namespace zelvo
