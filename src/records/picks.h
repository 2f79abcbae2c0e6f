#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "form/control.h"
#include "records/pick_list.h"

namespace zelvo {

/// What a drop-down list shows for a stored value that is empty.
inline constexpr std::string_view kNoCode = "--";

/// Whether a drop-down list shows that nothing was chosen.
bool isUnpicked(std::string_view text);

/// The drop-down lists of a record page. Each stands for a hidden box, which holds what the store holds (a code) while
/// the list shows how the office says it; so the record is copied, checked and searched by boxes alone.
class Picks {
 public:
  /// The text that a stored value is shown as.
  using Saying = std::function<std::string(std::string_view stored)>;

  /// `says` empty: the list shows what is stored.
  void add(Combo& combo, TextBox& box, Saying says = {});
  /// Of the boxes into the lists, and back. A value that is shown as it was keeps its code, also one that the office
  /// has no text for; any other is cut to its column.
  void showBoxes() const;
  void fillBoxes() const;
  void clear() const;
  /// The list that stands for a box; null when it stands for itself.
  Combo* standingFor(const TextBox& box) const;
  /// The same of a list that shows what is stored.
  Combo* sayingAsStored(const TextBox& box) const;
  /// The box that a list stands for; null when it is none of these lists.
  TextBox* boxOf(const Control& list) const;

 private:
  struct Pick {
    Combo* combo;
    TextBox* box;
    Saying says;
  };
  std::vector<Pick> picks_;
};

}  // namespace zelvo
