#pragma once

#include <string_view>

#include "base/result.h"
#include "console/conversation.h"
#include "form/desk.h"

namespace zelvo {

/// Carries out one command of the script on the front screen, as a user would with mouse and keyboard. The error says
/// why the user could not have done it: no such control, disabled, hidden, or a value that the control does not take.
Result<void> carryOut(std::string_view command, Desk& desk, Conversation& talk);

}  // namespace zelvo
