#pragma once

#include <array>
#include <string_view>

namespace zelvo {

// Months and days are named in English always, whatever the computer is set to: letters of the office are.

inline constexpr std::array<std::string_view, 12> monthNames = {"January",   "February", "March",    "April",
                                                                "May",       "June",     "July",     "August",
                                                                "September", "October",  "November", "December"};
inline constexpr std::array<std::string_view, 7> dayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                             "Thursday", "Friday", "Saturday"};

}  // namespace zelvo
