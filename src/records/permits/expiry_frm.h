#pragma once

#include <optional>
#include <string_view>

#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

inline constexpr std::string_view kExpiresTooEarly = "Expiration date cannot be prior to Permit Date.";

/// Chooses the day on which a permit expires: from the calendar, or so many months from the permit date. To be shown
/// modally; afterwards chosen() is the day, nothing when it was cancelled. A day before the permit date is refused.
class ExpiryFrm : public Screen {
 public:
  /// Months are counted from today where a permit has no date.
  ExpiryFrm(Desk& desk, std::optional<Date> permitDate, std::optional<Date> present);

  std::optional<Date> chosen() const { return chosen_; }

 private:
  void take(std::optional<Date> day);

  Label Label1{*this, "Label1", "Select Expiration Date from the calendar, or click pre-set button"};
  DatePicker DTPicker1{*this, "DTPicker1"};
  Button cmd6{*this, "cmd6", "&6 months"};
  Button cmd12{*this, "cmd12", "&1 year"};
  Button cmd18{*this, "cmd18", "1&8 months"};
  Button cmd24{*this, "cmd24", "&2 years"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

  std::optional<Date> permitDate_;
  std::optional<Date> chosen_;
};

}  // namespace zelvo
