#pragma once

#include <functional>
#include <string_view>

#include "form/desk.h"
#include "form/screen.h"
#include "shell/backup/progress.h"

namespace zelvo {

/// Shows how far some long work is, and lets the user cancel it between two files. To be shown modally: the work begins
/// when the screen comes up, and the screen closes when it is done.
class ProgressFrm : public Screen, private Progress {
 public:
  using Work = std::function<Result<void>(Progress&)>;
  ProgressFrm(Desk& desk, std::string_view caption, std::string_view explanation, Work work);

  /// What became of the work; after the screen was closed.
  const Result<void>& outcome() const { return outcome_; }
  void cmdCancel_Click();

 protected:
  void Form_Activate(bool first) override;
  void Form_Close() override { cmdCancel_Click(); }

 private:
  Result<void> goesOn(std::string_view what, double done) override;
  Result<void> doWork();

  Label lblWhat{*this, "lblWhat"};
  Label lblBar{*this, "lblBar", "0 %"};
  Label lblStep{*this, "lblStep"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  Work work_;
  Result<void> outcome_;
  bool cancelled_ = false;
};

}  // namespace zelvo
