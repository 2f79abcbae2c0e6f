#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace zelvo {

/// A checklist that inspectors fill: the file that it lies in, and its rich text.
struct TownChecklist {
  std::string name;
  std::string richText;
};

/// One for every building inspection that the office makes.
std::vector<TownChecklist> townChecklists();

}  // namespace zelvo
