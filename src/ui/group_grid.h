#pragma once

#include <map>
#include <memory>
#include <vector>

#include "ui/control_view.h"
#include "ui/layout.h"

class QGridLayout;

namespace zelvo {

/// A frame of fields; shown while it has something to show.
struct FieldGroup {
  QWidget* frame = nullptr;
  std::vector<ControlView*> views;
  void refresh() const;
};

/// A group of fields under way: captions and fields in a grid. Fields are collected first, since the last one of each
/// line takes the rest of the grid.
class GroupGrid {
 public:
  /// Fields of a stated width give way down to `least` characters.
  GroupGrid(QWidget* frame, int least);

  void add(ControlView* view, const LayoutRow& row);
  /// Puts the fields in their places; gives whether the group wants all the height it can get.
  bool finish();
  const FieldGroup& group() const { return group_; }

  /// The captions of groups that stand under each other take the same width.
  static void align(const std::vector<std::unique_ptr<GroupGrid>>& grids);

 private:
  // A field and what the layout says of it.
  struct PlacedField {
    ControlView* view;
    const LayoutRow* row;
    int line;
    int pair;  // of caption and field, counted along the line
  };
  void place(const PlacedField& field, bool last);
  void addCaption(const PlacedField& field, int column);

  FieldGroup group_;
  QGridLayout* grid_;
  int least_;
  std::vector<PlacedField> fields_;
  std::map<int, int> captionWidths_;
  bool anyCaption_ = false;
  int line_ = -1;
  int pair_ = 0;
  int pairs_ = 1;
};

}  // namespace zelvo
