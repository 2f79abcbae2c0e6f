#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "data/mdb.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// Edits a parcel of the registry, or adds one. Stored whole or not at all; when someone else changed the parcel
/// meanwhile the clerk hears of it, and what was typed stays on the screen. Fields that a registry of the old layout
/// lacks are disabled.
class SBLEdit : public Screen {
 public:
  /// The parcel of that key; one that is not there closes the screen with a message.
  SBLEdit(Desk& desk, std::string_view key);
  /// A new parcel, which starts with these texts.
  SBLEdit(Desk& desk, const ExtendedParcel& proposed);

  void ISave_Click();
  void ICancel_Click();

  /// The key under which it was stored; nothing when it was given up.
  const std::optional<std::string>& stored() const { return stored_; }

 protected:
  void Form_Activate(bool first) override;
  void Form_Close() override { ICancel_Click(); }

 private:
  SBLEdit(Desk& desk, std::string_view caption, ExtendedParcel parcel, bool adding);
  bool load();
  void limitBoxes(const Table& table);
  void showParcel(const Recordset& row);
  void showProposed();
  std::string box(int index) const;
  bool typed() const;

  bool keyIsRight();
  bool refuse(std::string_view title, std::string_view text, int box);
  bool mayChangeKey();
  std::string typedKey() const;
  Result<void> store();
  void tellRefused(const Error& error);

  ControlArray<TextBox> Text1{*this, "Text1"};
  ControlGroup<TextBox> parts_{Text1, {2, 3, 4, 5, 6}};
  ControlGroup<TextBox> fields_{Text1, {7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19}};
  Button ISave{*this, "ISave", "&Save"};
  Button ICancel{*this, "ICancel", "Cancel"};

  mdb parcels_;  ///< its own: the parcel must stay current here, whatever other screens look up
  ExtendedParcel before_;
  const bool adding_;
  std::map<int, std::string> shown_;  ///< what each box held at first
  std::string shownKey_;              ///< what its boxes held at first, as a key
  std::optional<std::string> stored_;
};

}  // namespace zelvo
