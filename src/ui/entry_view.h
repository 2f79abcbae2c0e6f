#pragma once

#include "ui/control_view.h"
#include "ui/style.h"

namespace zelvo {

/// The view of a box that is typed into: how it takes the focus, and how it looks while it only shows.
template <class Box>
class EntryView : public ControlView {
 public:
  EntryView(Control& control, UserActions& actions, Box* box) : ControlView(control, actions), widget_(box) {
    watchFocus(widget_);
  }
  QWidget* widget() const override { return widget_; }
  void takeFocus(bool selectAll) override {
    widget_->setFocus(Qt::OtherFocusReason);
    if (selectAll)
      widget_->selectAll();
  }

 protected:
  void showLocked() {
    if (widget_->isReadOnly() != control_.locked)
      widget_->setReadOnly(control_.locked);
    if (const Ground ground = groundOf(control_); ground_ != ground)
      showGround(widget_, ground_ = ground);
  }

  Box* widget_;

 private:
  Ground ground_ = Ground::Paper;
};

}  // namespace zelvo
