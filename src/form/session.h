#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "form/ports.h"

namespace zelvo {

/// A user as the list holds them: each text scrambled.
struct User {
  std::string name;
  std::string password;
  std::string access;

  bool operator==(const User&) const = default;
};

struct Municipality {
  std::string name, address, city, state, zip, telephone;
};

/// The five number seeds as the files hold them; "-1" means that the program chooses the number.
struct NumberSeeds {
  std::string permit = "-1", inspection = "-1", affidavit = "-1", certificate = "-1", violation = "-1";
};

/// One slot of the table of current queries: which database a record screen reads, and how.
struct CurrentQuery {
  std::string connection;
  std::string query;
};

/// The slots of the table of current queries.
enum class QuerySlot : std::size_t {
  Permits = 1,
  Inspections = 2,
  Affidavits = 3,
  Certificates = 4,
  Violations = 5,
  Zoning = 8,
  FireInspections = 9
};

/// What start-up finds out and the whole program reads: one object, made in main and handed down. Folders are kept
/// without a separator at their end.
struct Session {
  std::string programFolder;
  std::string dataFolder;  ///< the master database folder, or what stands in for it
  std::string formsFolder;
  std::string backupFolder;
  std::string logLine;  ///< the step of start-up being performed
  DateTime startTime;
  Date today;

  std::string userId = "Unknown";
  std::string rights;  ///< "ADMIN", "SUPERVISOR", "USER", "INSPECTOR"
  bool signedIn = false;
  std::size_t userSlot = 0;  ///< from 1
  bool administrator = false;
  bool restrictedUser = false;
  std::vector<User> users;

  Municipality municipality;
  bool masterComputer = false;
  int backupOption = 0;  ///< 0 prompt, 1 automatic, 2 manual
  bool hideDesktop = false;
  std::uint32_t desktopColour = 0;
  std::string desktopPicture;
  std::string stateLaw, localLaw;
  bool checkScreenSize = false;
  bool screenChanged = false;  ///< the display was switched and is to be restored

  NumberSeeds seeds;
  std::vector<std::string> inspectors;
  std::array<std::string, 101> buildingCodes;  ///< slots 1 to 99, one empty slot behind the last
  std::array<std::string, 32> otherCodes;      ///< slots 1 to 30
  /// The kinds of complaint that the office added, each line a code and its text: "07 Noise", "NO Noise".
  std::vector<std::string> numberedComplaints, letteredComplaints;
  std::vector<std::string> feeItems;
  std::vector<std::string> checklist;
  int parcelLayout = 13;  ///< 13 or 18: the fields of the parcel table
  bool rollImported = false;
  std::string onlineCodesAddress, localCodesAddress;
  std::string reportHeader;  ///< rich text of "gTitle.rtf"

  std::string defaultBrowser;  ///< with one trailing blank; empty when none
  bool defaultBrowserFound = false;
  std::string selectedBrowser;
  std::string useDefaultBrowser;  ///< "T" or "F"

  /// By the number of the database, the connection texts of those that the user located himself; empty for the others,
  /// which lie in the data folder.
  std::array<std::string, 16> connections;
  std::array<CurrentQuery, 17> queries;  ///< slots 1 to 16
  std::string hop;                       ///< the key of the record that the next screen is to show
  std::string feeCategory;               ///< the letter of the fees that the fee screen is asked for: "P" of a permit
  bool parcelLookupOff = false;          ///< on while a batch of records is processed: parcels are not searched
  PrintOptions print;

  std::optional<std::string> ended;  ///< why the program ends; handlers and faces leave when it is set

  CurrentQuery& queryFor(QuerySlot slot) { return queries[static_cast<std::size_t>(slot)]; }
};

}  // namespace zelvo
