#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/parcel_screen.h"
#include "support/scripted_desk.h"

namespace zelvo::fuzz {

/// Any text as a parcel key, and any texts in the boxes of a parcel (a text cut at its line breaks): what the routines
/// of the parcel key promise of every one.
class ParcelKeyTrial {
 public:
  /// Throws Broken.
  void run(const std::string& text);

 private:
  void checkBoxes(const std::vector<std::string>& typed);
  void checkFromScreenToScreen(const std::string& key);
  void checkKey(const std::string& text);

  testing::ScriptedDesk desk_;
  TwoParcels screen_{desk_.desk};
};

}  // namespace zelvo::fuzz
