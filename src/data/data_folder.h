#pragma once

#include "data/catalogue.h"
#include "form/desk.h"

namespace zelvo {

/// Finds the databases at start-up: the folder of the settings, or the program folder's "\databases" when that folder
/// holds no database at all; every missing one of the eight main files is replaced by its blank from "\wrk" (made from
/// the catalogue when the blank is missing too). One message when anything was not where it should be. Afterwards the
/// session's data folder and parcel layout number are set. An error says which file could not be put in place and why.
Result<void> resolveDataFolder(Desk& desk);

/// The layout of the parcel table that "sblversion.txt" of a data folder tells: 18, or 13 when it tells nothing else.
int parcelLayoutIn(std::string_view dataFolder);

/// Makes the blank databases of a "\wrk" folder that are not there yet.
Result<void> makeBlanks(std::string_view programFolder);

/// Puts a copy of a table's blank, which is made when it is missing, where nothing is yet; a file that another computer
/// put there first is as good.
Result<void> putBlank(std::string_view programFolder, const Table& table, const std::string& path);

/// The full path of a database of the data folder, made from its blank when it is missing: the screens of the databases
/// that start-up does not look after call it before they open.
Result<std::string> ensureDatabase(const Session& session, std::string_view file);

}  // namespace zelvo
