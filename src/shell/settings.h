#pragma once

#include <string>
#include <string_view>

#include "base/result.h"
#include "form/session.h"

namespace zelvo {

// The settings of this computer, in the program folder, and the lists and seeds that all computers share, in the data
// folder. Every one of these files may be missing; the session then keeps or empties what it would have filled.

/// The path of "Zelvo.ini".
std::string settingsPath(const Session& session);

/// Reads "Zelvo.ini" and then all that hangs on it: seeds, report header, "def.txt", what is known of the tax roll, the
/// parcel layout, fee items and checklist. False when the settings are missing or cut short: the session then has no
/// data folder, and start-up falls back to the one of the program folder.
bool ReadSettings(Session& session);
/// The same without the settings file: what the data folder itself holds.
void readSharedFiles(Session& session);

/// "forms" beside the data folder; in the program folder when the location names no folder above it.
std::string FormsFolderFor(std::string_view dataFolder, std::string_view programFolder);

void ReadNextNumbers(Session& session);
void ReadInspectors(Session& session);
/// Fills both lists of inspection codes. The list of building codes ends, at the latest, behind as many codes as there
/// are other codes: the slot after them is emptied, and the screens stop at an empty slot. Offices have arranged their
/// lists by that.
void ReadInspectionCodes(Session& session);
/// "browser.txt" of the program folder: the browser that was chosen, and "T" or "F" for the default one instead.
void readBrowserChoice(Session& session);

/// Writes "Zelvo.ini" with all its lines from the session.
Result<void> writeSettings(const Session& session);

}  // namespace zelvo
