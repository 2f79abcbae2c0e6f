#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/recordset.h"
#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

/// A parcel that was looked up, as the registry or the tax roll knows it.
struct FoundParcel {
  std::string key;  ///< *12-0-0-3-45*
  std::string owner, location, mailing;
};

/// Whether a look-up was opened by the user, and then shows what he takes, or by a screen that waits for the parcel.
enum class LookupFor { Itself, Asker };

/// What tells one look-up from another.
struct LookupKind {
  struct Shown {
    std::string_view caption, column;
    int width;  ///< in average characters
  };
  std::string_view screen, caption;
  std::string_view file, table, order;
  std::string_view key, owner, location, mailing;  ///< the columns of what is taken
  std::string_view switchButton;                   ///< the one that leads here from the other look-ups
  std::string_view firstBox;
  std::span<const Shown> list;
};

/// Looks parcels up by an example: what is typed into the boxes is sought, blank boxes find all. The parcels found are
/// listed, however many; one is taken by Enter or a double click. A look-up changes nothing in the store.
class ParcelLookup : public Screen {
 public:
  ParcelLookup(Desk& desk, const LookupKind& kind, LookupFor whom);

  void iFind_Click();
  void cmdTake_Click();

  /// What the user took; nothing while the screen is open, or when it was given up.
  const std::optional<FoundParcel>& taken() const { return taken_; }
  /// The look-up that the user went on to; empty when there is none.
  std::string_view wentOnTo() const { return wentOnTo_; }
  /// Starts with what stands in the same boxes of another screen, and finds it at once.
  void startWith(const Screen& other);

 protected:
  void Form_Activate(bool first) override;

  /// The conditions of the boxes that are filled; empty for all rows.
  virtual std::string conditions() const = 0;
  /// Opens the database that is searched. An error says why there is nothing to search, and the screen says so.
  virtual Result<std::shared_ptr<Connection>> reach();
  /// Called when the table is known.
  virtual void prepare(const Table&) {}

  const LookupKind& kind() const { return kind_; }
  /// What the user should know of the table that is searched; empty for nothing.
  void note(std::string_view text);

  ControlArray<TextBox> Text1{*this, "Text1", {2, 3, 4, 5, 6}};
  TextBox Text2{*this, "Text2"};  ///< a name
  TextBox Text5{*this, "Text5"};  ///< a location
  Button iFind{*this, "iFind", "&Find"};
  Label lblNote{*this, "lblNote"};
  Label lblCount{*this, "lblCount"};
  ListView ListView1{*this, "ListView1"};
  Button cmdKey{*this, "cmdKey", "By S-B-&L"};
  Button cmdAddress{*this, "cmdAddress", "By &Address"};
  Button cmdContact{*this, "cmdContact", "By &Contact"};
  Button cmdRoll{*this, "cmdRoll", "By &Roll Entry"};
  Button cmdTake{*this, "cmdTake", "&Take"};
  Button cmdClose{*this, "cmdClose", "Close"};

 private:
  void leadTo(Button& button, std::string_view screen);
  void openTable();
  void showColumns(const Table* table);
  void findAgain();
  void listRows();
  void goOnTo(std::string_view screen);
  std::string query() const;
  std::string countText() const;

  const LookupKind& kind_;
  const LookupFor whom_;
  bool findAtOnce_ = false;
  std::shared_ptr<Connection> connection_;
  std::vector<LookupKind::Shown> shown_;  ///< of the kind's list, what the table holds
  std::shared_ptr<Recordset> rows_;
  std::optional<FoundParcel> taken_;
  std::string_view wentOnTo_;
};

/// Lets the user look a parcel up, by its key to begin with, and from there by address, contact or roll entry. Starts
/// with the key that stands on the asking screen. Nothing when it is given up.
std::optional<FoundParcel> lookUpParcel(Desk& desk, const Screen& asker);

}  // namespace zelvo
