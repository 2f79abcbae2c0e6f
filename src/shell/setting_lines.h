#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
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
    Copy     ///< written for other programs; read from elsewhere
  };
  std::string_view name;
  SettingMember member;
  Kind kind = Kind::AsItStands;
};

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
    {"backup on exit (0 prompt, 1 automatic, 2 manual)", &Session::backupOption},
    {"master computer", &Session::masterComputer},
    {"hide desktop", &Session::hideDesktop},
    {"desktop colour", &Session::desktopColour},
    {"desktop picture", &Session::desktopPicture},
    {"state law", &Session::stateLaw},
    {"local law", &Session::localLaw},
    {"check screen size", &Session::checkScreenSize},
    {"location of the forms", &Session::formsFolder, SettingLine::Kind::Folder},
}};
inline constexpr std::size_t kNeededSettingLines = 15;

/// "def.txt" in the program folder. Its first line repeats the location of the databases.
inline constexpr std::array<SettingLine, 4> kDefaultLines = {{
    {"location of the databases", &Session::dataFolder, SettingLine::Kind::Copy},
    {"location of the backup", &Session::backupFolder, SettingLine::Kind::Folder},
    {"address of the online codes", &Session::onlineCodesAddress},
    {"address of the local codes", &Session::localCodesAddress},
}};

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
/// out.
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

/// The two lists of inspection codes, one code a line, blank lines kept.
inline constexpr std::string_view kBuildingCodesFile = "bins.txt";
inline constexpr std::string_view kOtherCodesFile = "oins.txt";
inline constexpr std::size_t kBuildingCodeLimit = 99;
inline constexpr std::size_t kOtherCodeLimit = 30;

}  // namespace zelvo
