#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "form/session.h"

namespace zelvo {

// The settings files know no names: the order of their lines is their format. These tables are that format, for whoever
// reads or writes the files.

/// Where the session keeps what a line says, and so how the line is read: texts as they stand, numbers leniently, flags
/// as a number that is not 0.
using SettingMember = std::variant<std::string Session::*, std::string Municipality::*, int Session::*, bool Session::*,
                                   std::uint32_t Session::*>;

struct SettingLine {
  enum class Kind {
    AsItStands,
    Trimmed,
    Folder,  ///< trimmed, and without a separator at its end
    Copy,    ///< written for other programs; read from elsewhere
    Choice   ///< "F", or "T" for whatever else stands there
  };
  std::string_view name;
  SettingMember member;
  Kind kind = Kind::AsItStands;
  std::string_view preset = "";  ///< the line as a new office begins with it
};

/// A file of the program folder, with its lines. What stands behind them is kept when the file is written.
struct SettingFile {
  std::string_view file;
  std::span<const SettingLine> lines;
};

/// The most that any of the files described here may hold, in bytes. A longer one is none of the office's lists, and is
/// not read.
inline constexpr std::size_t kSettingFileLimit = 1u << 20;

/// "Zelvo.ini" in the program folder. A file of the first fifteen lines is complete; the last one may be missing or
/// blank, and the forms folder then stands beside the data folder.
inline constexpr std::array<SettingLine, 16> kSettingLines = {{
    {"location of the databases", &Session::dataFolder, SettingLine::Kind::Folder},
    {"municipality", &Municipality::name},
    {"address", &Municipality::address},
    {"city", &Municipality::city},
    {"state", &Municipality::state},
    {"zip code", &Municipality::zip},
    {"telephone", &Municipality::telephone},
    {"backup on exit (0 prompt, 1 automatic, 2 manual)", &Session::backupOption, SettingLine::Kind::AsItStands, "0"},
    {"master computer", &Session::masterComputer, SettingLine::Kind::AsItStands, "1"},
    {"hide desktop", &Session::hideDesktop, SettingLine::Kind::AsItStands, "0"},
    {"desktop colour", &Session::desktopColour, SettingLine::Kind::AsItStands, "0"},
    {"desktop picture", &Session::desktopPicture, SettingLine::Kind::AsItStands, "NONE"},
    {"state law", &Session::stateLaw, SettingLine::Kind::AsItStands, "NYS Uniform Fire Prevention and Building Code"},
    {"local law", &Session::localLaw},
    {"check screen size", &Session::checkScreenSize, SettingLine::Kind::AsItStands, "0"},
    {"location of the forms", &Session::formsFolder, SettingLine::Kind::Folder},
}};
inline constexpr std::size_t kNeededSettingLines = 15;
inline constexpr SettingFile kSettingsFile = {"Zelvo.ini", kSettingLines};

/// "def.txt" in the program folder. Its first line repeats the location of the databases.
inline constexpr std::array<SettingLine, 4> kDefaultLines = {{
    {"location of the databases", &Session::dataFolder, SettingLine::Kind::Copy},
    {"location of the backup", &Session::backupFolder, SettingLine::Kind::Folder},
    {"address of the online codes", &Session::onlineCodesAddress},
    {"address of the local codes", &Session::localCodesAddress},
}};
inline constexpr SettingFile kDefaultsFile = {"def.txt", kDefaultLines};

/// "browser.txt" in the program folder.
inline constexpr std::array<SettingLine, 2> kBrowserLines = {{
    {"browser", &Session::selectedBrowser, SettingLine::Kind::Trimmed},
    {"use the default browser", &Session::useDefaultBrowser, SettingLine::Kind::Choice, "T"},
}};
inline constexpr SettingFile kBrowserFile = {"browser.txt", kBrowserLines};

/// A file of the data folder whose one line is where a kind of record begins its numbers; "-1" leaves that to the
/// program.
struct SeedFile {
  std::string_view file;
  std::string NumberSeeds::*seed;
};
inline constexpr std::array<SeedFile, 5> kSeedFiles = {{
    {"pnb.txt", &NumberSeeds::permit},
    {"inb.txt", &NumberSeeds::inspection},
    {"anb.txt", &NumberSeeds::affidavit},
    {"cnb.txt", &NumberSeeds::certificate},
    {"vnb.txt", &NumberSeeds::violation},
}};

/// A file of the data folder that lists one entry a line. Blank lines are skipped; what is beyond the limit is left
/// out, and kept in the file.
struct ListFile {
  std::string_view file;
  std::vector<std::string> Session::*list;
  std::size_t limit;
  bool trimmed;
  bool emptyWhenMissing;  ///< else the list stays as it was
};
inline constexpr ListFile kInspectorsFile = {"Inspectors.txt", &Session::inspectors, 50, false, true};
inline constexpr ListFile kFeesFile = {"fees.txt", &Session::feeItems, 30, true, true};
inline constexpr ListFile kChecklistFile = {"clist.txt", &Session::checklist, 20, true, false};
inline constexpr ListFile kNumberedComplaintsFile = {"ccatn.txt", &Session::numberedComplaints, 100, true, true};
inline constexpr ListFile kLetteredComplaintsFile = {"ccatl.txt", &Session::letteredComplaints, 31, true, true};

/// The two lists of inspection codes, one code a line, blank lines kept.
struct CodeFile {
  std::string_view file;
  std::size_t limit;
};
inline constexpr CodeFile kBuildingCodesFile = {"bins.txt", 99};
inline constexpr CodeFile kOtherCodesFile = {"oins.txt", 30};

}  // namespace zelvo
