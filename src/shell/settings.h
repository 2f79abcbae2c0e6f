#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "form/session.h"

namespace zelvo {

// The settings of this computer, in the program folder, and the lists and seeds that all computers share, in the data
// folder. Every one of these files may be missing; the session then keeps or empties what it would have filled.

/// The path of "Zelvo.ini".
std::string settingsPath(const Session& session);

/// Reads "Zelvo.ini" and then all that hangs on it: seeds, report header, "def.txt", what is known of the tax roll, the
/// parcel layout, fee items, checklist and the office's own kinds of complaint. False when the settings are missing or
/// cut short: the session then has no data folder, and start-up falls back to the one of the program folder.
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

/// The inspection codes as their two files hold them, each in its place, none cut: what is edited and written back.
struct InspectionCodes {
  std::vector<std::string> building;  ///< at most 99
  std::vector<std::string> other;     ///< at most 30
};
InspectionCodes inspectionCodesInFiles(const Session& session);

// The writers. Each replaces a file whole or not at all, and reading it again gives the values that were written. Lines
// behind those that the program knows, entries beyond a list's limit among them, are kept; a file that is there and
// cannot be read is therefore left as it is, and the error says why.

/// "Zelvo.ini" with all its lines.
Result<void> writeSettings(const Session& session);
/// "def.txt": data folder, backup folder, the two codes sites.
Result<void> writeDefaults(const Session& session);
/// "browser.txt": the chosen browser, and whether the default one is used instead.
Result<void> writeBrowserChoice(const Session& session);
/// The five seed files of the data folder.
Result<void> writeNextNumbers(const Session& session);
/// "Inspectors.txt" of the data folder, in the spelling in which it is there.
Result<void> writeInspectors(const Session& session);
/// "bins.txt" and "oins.txt" of the data folder. ReadInspectionCodes afterwards brings them into the session.
Result<void> writeInspectionCodes(const Session& session, const InspectionCodes& codes);

}  // namespace zelvo
