#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "data/connection.h"
#include "data/mdb.h"

namespace zelvo {

/// The imported tax roll. Trouble::NotFound, in words for the user, when none was imported; nothing is made then.
Result<std::shared_ptr<Connection>> openRoll(const Session& session);

/// What the roll knows of a parcel, as the registry would hold it ("?" counts as unknown); only the key when the parcel
/// is not on the roll, or there is none.
ExtendedParcel parcelFromRoll(const Session& session, std::string_view key);

}  // namespace zelvo
