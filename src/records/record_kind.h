#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "form/session.h"

namespace zelvo {

/// A column of the list page.
struct ListField {
  std::string_view caption;  ///< " Permit ", with its blanks
  std::string_view column;
  int width;                      ///< in average characters
  std::string_view blank = "--";  ///< what an empty cell shows
};

/// A box that must be filled before a record is added, and how the message names it. kParcelBoxes stands for the
/// section, the block and the lot, which are named once.
struct RequiredBox {
  int box;
  std::string_view label;  ///< "--Owner"
};
inline constexpr int kParcelBoxes = 0;
inline constexpr RequiredBox kParcelRequired = {kParcelBoxes, "--S-B-L"};

/// The boxes that say of a record what its parcel says of itself; 0 for none.
struct ParcelBoxes {
  int owner = 0, address = 0, location = 0;
};

/// Where a kind of record takes its numbers from.
struct NumberingRule {
  std::string_view sequenceColumn;  ///< "BLDGPRM"
  std::string_view highWaterFile;   ///< "\phi.txt"
  std::string_view seedFile;        ///< "\pnb.txt"
  std::string NumberSeeds::*seed;
  /// The program alone gives the numbers: a taken one is replaced by the next one without a word, whoever typed it.
  bool automatic = false;
};

/// What is asked about the parcel of a record before it is stored.
struct ParcelRule {
  std::string_view question =  ///< of a parcel that is not in the registry
      "The Section, Block and Lot info cannot be found.\nIf this is a new S-B-L, click 'Yes' to add this as a new "
      "record.";
  bool needed = true;             ///< a record on a parcel that stays unregistered is not stored
  bool warnsOfViolation = true;   ///< asks before a record is stored on a parcel with an open violation
  std::string_view noNotes = {};  ///< said by the note button of such a parcel, under the question's title
};

/// What tells one kind of record from another, as far as the common pattern needs to know. The columns themselves
/// stand in the catalogue.
struct RecordKind {
  std::string_view screen;   ///< "APermits"
  std::string_view caption;  ///< of the window
  std::string_view table;    ///< "BLDGPERM"
  std::string_view noun;     ///< "permit", in the middle of a sentence
  std::string_view page;     ///< caption of the record page, with its access key: "Per&mit"
  std::string_view code;     ///< of its attachments' names: "01"
  QuerySlot slot;
  NumberingRule numbering;
  std::span<const ListField> list;
  std::span<const RequiredBox> required;
  ParcelBoxes ofParcel = {};
  ParcelRule parcel = {};
  std::span<const std::string_view> soughtWhole = {};  ///< columns that a search compares as a whole, numbers by value
  std::optional<Date> noDate = std::nullopt;           ///< the date that stands for none
  std::string_view documentFilter = "Files (*.doc;*.txt;*.pdf)|*.doc;*.txt;*.pdf|All Files|*.*";
};

}  // namespace zelvo
