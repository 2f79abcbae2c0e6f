#pragma once

#include <string_view>

#include "data/connection.h"

namespace zelvo {

/// Whether a permit has a certificate of occupancy, in the database of certificates. Throws StoreError when the store
/// fails.
bool hasOccupancyCertificate(Connection& certificates, std::string_view permit);

}  // namespace zelvo
