#include "records/permits/expiry_frm.h"

namespace zelvo {

ExpiryFrm::ExpiryFrm(Desk& itsDesk, std::optional<Date> permitDate, std::optional<Date> present)
    : Screen(itsDesk, "ExpiryFrm", "Expiration Date"), permitDate_(permitDate) {
  DTPicker1.date = present;
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  const Date begin = permitDate.value_or(desk.clock.now().date);
  for (const auto& [button, months] :
       {std::pair(&cmd6, 6), std::pair(&cmd12, 12), std::pair(&cmd18, 18), std::pair(&cmd24, 24)})
    onClick(*button, [this, day = addMonths(begin, months)] { take(day); });
  onClick(cmdOK, [this] { take(DTPicker1.date); });
  onClick(cmdCancel, [this] { closeMe(); });
}

void ExpiryFrm::take(std::optional<Date> day) {
  if (!day)
    return setFocus(DTPicker1);
  if (permitDate_ && *day < *permitDate_) {
    desk.messages.tell(" Date Error", kExpiresTooEarly, Icon::Critical);
    return setFocus(DTPicker1);
  }
  chosen_ = day;
  closeMe();
}

}  // namespace zelvo
