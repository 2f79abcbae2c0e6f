#pragma once

#include <string_view>
#include <vector>

#include "documents/labels/label_sheets.h"

namespace zelvo {

/// How a screen prints labels: the user says in the label set-up what lies in the printer, the labels go onto it, and
/// the set-up then stands at the first label that is still free, so that a sheet that was begun is used up.
class LabelPrinter {
 public:
  /// Both must outlive it; the settings are those that the office's label set-up shows.
  LabelPrinter(Desk& desk, LabelSettings& settings) : desk_(desk), settings_(settings) {}

  /// Whether labels were printed: false when the user cancelled the set-up, and nothing changed then. An error says
  /// what stood in the way; the first free label then stays where it was.
  Result<bool> print(const std::vector<LabelText>& labels, std::string_view title);

 private:
  Desk& desk_;
  LabelSettings& settings_;
};

}  // namespace zelvo
