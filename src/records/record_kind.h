#pragma once

#include <span>
#include <string>
#include <string_view>

#include "form/session.h"

namespace zelvo {

/// A column of the list page.
struct ListField {
  std::string_view caption;  ///< " Permit ", with its blanks
  std::string_view column;
  int width;  ///< in average characters
};

/// A box that must be filled before a record is added, and how the message names it.
struct RequiredBox {
  int box;
  std::string_view label;  ///< "--Owner"
};

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
};

}  // namespace zelvo
