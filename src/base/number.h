#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zelvo {

/// The lenient number that opens a text: "12abc" is 12, " 1 2" is 12, "$5" is 0, "1,000" is 1. Never depends on the
/// locale.
double Val(std::string_view text);

/// Whether the whole text, trimmed, is a number without blanks inside ("12", "-3.5", ".5", "1e3"); then Val reads all
/// of it.
bool isNumber(std::string_view text);

/// The shortest text that reads back the same within 15 significant digits: 60 is "60", 0.1 + 0.2 is "0.3". What lies
/// more than fifteen places from the point is shown as "1E+15", "2.5E-16".
std::string numberText(double number);

/// The number in a picture of "#", "0", ",", "." and literal "$" and "%": (5, "#######.#0") is "5.00",
/// (1234.567, "$##,###,###.#0") is "$1,234.57". A "-" stands before everything. Rounds half away from zero; never cuts
/// digits to the left.
std::string numberPicture(double number, std::string_view picture);

/// Whole numbers, half to even: 0.5 is 0, 1.5 is 2, 2.5 is 2. A number out of range stops at the end of the range.
std::int16_t CInt(double number);
std::int32_t CLng(double number);

}  // namespace zelvo
