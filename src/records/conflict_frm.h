#pragma once

#include <functional>
#include <string>
#include <vector>

#include "form/desk.h"
#include "form/screen.h"
#include "form/screen_values.h"

namespace zelvo {

/// A field that two people gave different values.
struct DifferingField {
  Control* control;
  std::string called;  ///< as the clerk knows it
  std::string theirs, mine;
  bool keepMine;
};

/// What differs between the record as it was read, as someone else stored it meanwhile, and as it is typed here. Where
/// only one of the two changed a field, that change is proposed; where both did, what is typed here.
std::vector<DifferingField> differences(const ScreenValues& asRead, const ScreenValues& theirs,
                                        const ScreenValues& mine, const std::function<std::string(Control&)>& called);

/// Shows what someone else stored in a record beside what is typed here, and lets the user choose field by field. To be
/// shown modally; afterwards confirmed() tells whether the choice is to be stored.
class ConflictFrm : public Screen {
 public:
  ConflictFrm(Desk& desk, std::string_view explanation, std::vector<DifferingField> fields);

  bool confirmed() const { return confirmed_; }
  const std::vector<DifferingField>& fields() const { return fields_; }

  void ListView1_Click();
  void cmdMine_Click() { keepAll(true); }
  void cmdTheirs_Click() { keepAll(false); }
  void cmdOK_Click();

 private:
  void keepAll(bool mine);
  void turnSelected();
  void showFields();

  Label Label1{*this, "Label1"};
  ListView ListView1{*this, "ListView1"};
  Button cmdTurn{*this, "cmdTurn", "Take the &other value"};
  Button cmdMine{*this, "cmdMine", "Keep all &mine"};
  Button cmdTheirs{*this, "cmdTheirs", "Take all &theirs"};
  Button cmdOK{*this, "cmdOK", "&Store"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  std::vector<DifferingField> fields_;
  bool confirmed_ = false;
};

/// Lets the user choose where what someone else stored meanwhile differs from what is typed, and puts what is to stand
/// on the screen; `who` begins the explanation ("Someone else changed this permit"). False, with the typing as it was,
/// when nothing is to be stored now.
bool settleConflict(Desk& desk, std::string_view who, const ScreenValues& asRead, const ScreenValues& theirs,
                    const ScreenValues& mine);

}  // namespace zelvo
