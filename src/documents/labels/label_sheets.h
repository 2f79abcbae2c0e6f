#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "documents/labels/label_layout.h"
#include "documents/page_layout.h"
#include "form/desk.h"

namespace zelvo {

/// What stands on a label, line by line.
using LabelText = std::vector<std::string>;

/// A name and an address block of a record as the lines of a label: the name, which may have several lines, then the
/// address line and city, state and zip as the letters have them.
LabelText labelText(std::string_view name, std::string_view addressBlock);

/// Sheets of labels as a rich-text document whose every label lies where it is on the paper.
struct LabelSheets {
  std::string rtf;
  int sheets = 0;
  SheetPlace next;  ///< the first label that is still free on the last sheet; 1, 1 when that is full
};

/// Lays labels on sheets from the start place on, row by row, and on a new sheet after the last place of one. No text
/// leaves its label, however long it is. Gives no sheets when there are no labels, or when no label of the layout lies
/// on the paper.
LabelSheets makeLabelSheets(const std::vector<LabelText>& labels, const LabelSettings& settings,
                            const FontMeasure& measure);

/// Prints labels through "\tmp.rtf" of the program folder, whatever the print options say of margins and landscape: the
/// sheet says where its labels are. Gives what was printed.
Result<LabelSheets> printLabels(Desk& desk, const std::vector<LabelText>& labels, const LabelSettings& settings,
                                std::string_view title);

}  // namespace zelvo
