#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "data/mdb.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// Shows one parcel of the registry whole, and the ones before and behind it in the order of the keys. Opened with a
/// key as the hop value it shows that parcel, else the first one. What it changes goes through the registry.
class sblinfo : public Screen {
 public:
  sblinfo(Desk& desk, mdb& parcels);

  void IEdit_Click();
  void INew_Click();
  void cmdClear_Click();
  void iMap_Click();

 protected:
  void Form_Activate(bool first) override;

 private:
  bool openParcels();
  void readAgain();
  void hopTo(std::string key);
  bool goTo(std::string_view key);
  void offerNew(const std::string& key);
  void addParcel(const ExtendedParcel& proposed);
  void move(void (Recordset::*step)());
  void showParcel();
  void showNothing();
  void showFlags(const std::string& words);
  std::string key() const;

  Button INew{*this, "INew", "&New"};
  Button IEdit{*this, "IEdit", "&Edit"};
  Button cmdClear{*this, "cmdClear", "Clear &Flags"};
  Button IMoveFirst{*this, "IMoveFirst", "|<"};
  Button IMovePrev{*this, "IMovePrev", "<"};
  Label lblStatus{*this, "lblStatus"};
  Button IMoveNext{*this, "IMoveNext", ">"};
  Button IMoveLast{*this, "IMoveLast", ">|"};
  Button iLook{*this, "iLook", "Loo&k up.."};
  Button iMap{*this, "iMap", "&Map.."};
  Button Quit{*this, "Quit", "&Close"};
  Label lblParcel{*this, "lblParcel"};
  ControlArray<TextBox> Text1{*this, "Text1"};
  ControlGroup<TextBox> key_{Text1, {1}};
  ControlGroup<TextBox> fields_{Text1, {7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}};
  Label lblFlags{*this, "lblFlags"};
  ControlGroup<TextBox> notes_{Text1, {19}};

  mdb& parcels_;
  std::shared_ptr<Recordset> rows_;
};

}  // namespace zelvo
