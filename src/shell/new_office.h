#pragma once

#include <string>
#include <string_view>

#include "base/result.h"

namespace zelvo {

/// Whether nobody has worked with this program folder yet: it holds neither settings nor a user. Settings or a user
/// list that are there and cannot be read belong to an office, whatever is wrong with them.
bool isNewOffice(std::string_view programFolder);

/// What has to be known before an office can begin.
struct NewOffice {
  std::string municipality;
  std::string dataFolder;  ///< a whole path; may hold the databases of an office that this computer joins
  std::string administrator;
  std::string password;
};

/// Makes the program folder ready for work: the folders, blank databases where there are none yet, the first user, and
/// the settings. The computer is the master one unless the data folder holds databases already. All of it or nothing:
/// when something cannot be made, what was made before goes again.
Result<void> beginOffice(std::string_view programFolder, const NewOffice& office);

}  // namespace zelvo
