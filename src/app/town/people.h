#pragma once

#include <array>
#include <string>
#include <string_view>

#include "app/town/dice.h"

namespace zelvo {

inline constexpr std::string_view kTownName = "Town of Alder Glen";
inline constexpr std::string_view kTownCity = "Alder Glen, NY 12009";

/// Whom a letter goes to. Addresses are one line, "12 Mill Road, Alder Glen, NY 12009".
struct Person {
  std::string name, address, phone, cell, email;
};

/// A person who lives at the address.
Person personAt(std::string address, Dice& dice);
/// A person from somewhere near the town.
Person neighbour(Dice& dice);
Person builder(Dice& dice);
Person architect(Dice& dice);
Person insurer(Dice& dice);

/// The numbers of telephones that are kept free for stories.
std::string phoneNumber(Dice& dice);
/// Streets of the town, over and over.
std::string_view street(std::size_t number);

inline constexpr std::array<std::string_view, 4> kInspectors = {"Ruth Calloway", "Émile Bastien", "Walt O'Rourke",
                                                                "Dana Whitlock"};
inline constexpr std::array<std::string_view, 3> kClerks = {"clerk", "admin", "inspector"};

}  // namespace zelvo
