#pragma once

#include <array>
#include <string>
#include <vector>

#include "form/screen.h"

namespace zelvo {

/// The boxes of two parcels, as the record screens have them.
class TwoParcels : public Screen {
 public:
  explicit TwoParcels(Desk& itsDesk) : Screen(itsDesk, "TwoParcels", "Two parcels") {}

  ControlArray<TextBox> Text1{*this, "Text1", {1, 2, 3, 4, 5, 6}};
  ControlArray<TextBox> Text2{*this, "Text2", {2, 3, 4, 5, 6}};

  /// Types the five boxes of a parcel: section, block, lot, lot suffix, sub-lot; those that are not given are emptied.
  static void type(ControlArray<TextBox>& boxes, const std::vector<std::string>& typed) {
    for (std::size_t i = 0; i < 5; ++i)
      boxes(static_cast<int>(i) + 2).text = i < typed.size() ? typed[i] : "";
  }
  static std::vector<std::string> typed(const ControlArray<TextBox>& boxes) {
    std::vector<std::string> texts;
    for (int box = 2; box <= 6; ++box)
      texts.push_back(boxes(box).text);
    return texts;
  }
};

}  // namespace zelvo
