#pragma once

#include <array>
#include <string_view>

#include "base/date.h"

namespace zelvo {

/// The end of what has no end, by the office's custom; screens and listings show it as "N/A".
inline constexpr Date kNoEndDate = {2298, 12, 31};
inline constexpr std::string_view kNoEndText = "N/A";
/// A type that says that none is needed: then the reason stands in the notes.
inline constexpr std::string_view kExempt = "Exempt";

/// The text boxes of a page of rows that belong to a record, by their index.
enum SubBox { kNameBox = 1, kAddressBox, kPhoneBox, kNumberBox, kHolderBox, kProjectBox, kNotesBox };
inline constexpr std::size_t kSubBoxes = kNotesBox;

/// Rows of a table of their own that belong to a record by its key in "RECNO": what tells insurance from contacts.
struct SubRecordKind {
  std::string_view table;  ///< "INSBASE"
  std::string_view noun;   ///< "insurance", in the middle of a sentence
  std::string_view page;   ///< caption of its page
  std::string_view name;   ///< part of its controls' names: "Ins" for iNewIns, TextIns(1), ListViewIns
  std::string_view types;  ///< file of the data folder with the types to choose from, one a line: "\pit.txt"
  std::array<std::string_view, kSubBoxes> columns;  ///< of the boxes, in their order
  std::string_view type, from, to;
  std::string_view mark;                       ///< what stands in "EXTRA1"; may be empty
  std::string_view nameCaption, notesCaption;  ///< of the list
  std::string_view nameMissing, typeMissing;   ///< "--Insurance Company", "--Insurance Type"
};

}  // namespace zelvo
