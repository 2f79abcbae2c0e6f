#pragma once

#include "form/desk.h"
#include "form/screen.h"
#include "records/list_columns.h"

namespace zelvo {

/// Chooses which columns a list shows, and in what order. To be shown modally; afterwards confirmed() tells whether the
/// choice stands.
class ColumnsFrm : public Screen {
 public:
  /// A column that can be shown, and whether it is.
  struct Choice {
    ShownColumn column;
    bool shown;
  };
  ColumnsFrm(Desk& desk, std::vector<Choice> choices, std::vector<ShownColumn> usual);

  bool confirmed() const { return confirmed_; }
  std::vector<ShownColumn> chosen() const;

 private:
  void turn();
  void move(int by);
  void takeUsual();
  void confirm();
  void showChoices();

  ListView ListView1{*this, "ListView1"};
  Button cmdTurn{*this, "cmdTurn", "Show or &hide"};
  Button cmdUp{*this, "cmdUp", "&Up"};
  Button cmdDown{*this, "cmdDown", "&Down"};
  Button cmdUsual{*this, "cmdUsual", "The u&sual ones"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  std::vector<Choice> choices_;
  std::vector<ShownColumn> usual_;
  bool confirmed_ = false;
};

}  // namespace zelvo
