#include "app/town/people.h"

#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::string_view kFirstNames[] = {
    "Alice",  "André",  "Anna",   "Arthur",  "Beatriz", "Björn", "Caleb",    "Carmen", "Chloë",  "Clara",   "Daniel",
    "Diane",  "Dennis", "Edith",  "Elena",   "Esther",  "Felix", "François", "Frank",  "Gloria", "Harold",  "Helen",
    "Ingrid", "Irene",  "Ivan",   "Jacob",   "José",    "Joyce", "Karen",    "Kevin",  "Laura",  "Leonard", "Lucía",
    "Marcus", "María",  "Martha", "Miriam",  "Nathan",  "Noël",  "Olga",     "Oscar",  "Paula",  "Peter",   "Renée",
    "Robert", "Rosa",   "Samuel", "Siobhán", "Thomas",  "Vera",  "Victor",   "Wanda",  "Wesley", "Zoë"};
constexpr std::string_view kLastNames[] = {
    "Abbott",     "Alderman",     "Ashby",     "Barker",   "Beaumont",  "Brønsted",   "Castellano", "Chapman",
    "Coleman",    "Connolly",     "D'Amico",   "D'Angelo", "Désir",     "Dvořák",     "Ellison",    "Fairbanks",
    "Fitzgerald", "Fournier",     "Gallagher", "García",   "Goodwin",   "Hadley",     "Hargrove",   "Hoffmann",
    "Ibáñez",     "Jensen",       "Kessler",   "Kowalski", "L'Heureux", "Lefèvre",    "Lindström",  "Marsh",
    "McKenna",    "Merriweather", "Müller",    "Novák",    "Núñez",     "O'Brien",    "O'Hara",     "O'Neill",
    "Okafor",     "Pemberton",    "Petrov",    "Quigley",  "Ramírez",   "Redfern",    "Santos",     "Schröder",
    "Smith",      "St. Clair",    "Tanaka",    "Thibault", "Underhill", "Vandermeer", "Whitaker",   "Winslow",
    "Yoder",      "Zielinski"};
constexpr std::string_view kStreets[] = {
    "Mill Road",         "Ferry Street",   "Old Quarry Lane",  "Church Street",     "Maple Avenue",
    "Orchard Hill Road", "Creek Road",     "Schoolhouse Road", "North Ridge Drive", "Cooper Lane",
    "Station Street",    "Elm Street",     "Tannery Road",     "Brook Terrace",     "Hemlock Drive",
    "Van Horn Road",     "Meadow Lane",    "Glen Avenue",      "Sawyer Street",     "Pine Hollow Road",
    "Lakeview Court",    "Granite Way",    "West Shore Road",  "Birch Street",      "Hillside Terrace",
    "Foundry Street",    "Windmill Lane",  "Spring Street",    "Stone Bridge Road", "Cedar Court",
    "Heron Way",         "Prospect Street"};
constexpr std::string_view kNearTowns[] = {"Port Ellery, NY 12088", "Harrow Falls, NY 12031", "East Morrow, NY 12117",
                                           "Kettle Bridge, MA 01299", "Wyndham Corners, CT 06099"};

struct Firm {
  std::string_view name, address, mail;
};
constexpr Firm kBuilders[] = {
    {"Barker & Sons Construction", "18 Foundry Street, Alder Glen, NY 12009", "office@barkersons.example"},
    {"Connolly Home Builders, Inc.", "402 Route 9, Harrow Falls, NY 12031", "jobs@connolly.example"},
    {"Évariste Roofing", "7 Granite Way, Alder Glen, NY 12009", "roofs@evariste.example"},
    {"Fair & Square Carpentry", "61 Station Street, Alder Glen, NY 12009", "hello@fairsquare.example"},
    {"Glen Pools and Patios", "130 West Shore Road, Alder Glen, NY 12009", "sales@glenpools.example"},
    {"Harrow Valley Contracting LLC", "9 Bridge Plaza, Harrow Falls, NY 12031", "info@harrowvalley.example"},
    {"Kessler Electric", "22 Sawyer Street, Alder Glen, NY 12009", "service@kessler.example"},
    {"Northlight Solar", "5 Depot Square, Port Ellery, NY 12088", "install@northlight.example"},
    {"O'Rourke Masonry", "88 Old Quarry Lane, Alder Glen, NY 12009", "stone@orourke.example"},
    {"Peña Renovations", "14 Elm Street, Alder Glen, NY 12009", "ana@penareno.example"},
    {"Tri-County Demolition", "1 Industrial Park Road, East Morrow, NY 12117", "bids@tricounty.example"},
    {"Underhill Timber Frames", "73 Hemlock Drive, Alder Glen, NY 12009", "frames@underhill.example"}};
constexpr Firm kArchitects[] = {
    {"Ashby & Dvořák Architects", "3 Market Row, Port Ellery, NY 12088", "studio@ashbydvorak.example"},
    {"Helen Pemberton, R.A.", "40 Church Street, Alder Glen, NY 12009", "helen@pemberton.example"},
    {"Lindström Engineering, P.C.", "210 Main Street, Harrow Falls, NY 12031", "office@lindstrom.example"},
    {"Meridian Design Group", "16 Canal Street, East Morrow, NY 12117", "plans@meridian.example"},
    {"Okafor Structural, P.E.", "55 Glen Avenue, Alder Glen, NY 12009", "okafor@structural.example"}};
constexpr Firm kInsurers[] = {
    {"Hudson Ridge Mutual", "1 Insurance Plaza, Port Ellery, NY 12088", "claims@hudsonridge.example"},
    {"Builders' Common Fund", "77 Exchange Street, Kettle Bridge, MA 01299", "certs@commonfund.example"},
    {"Tradesmen Casualty Company", "900 Parkway, Wyndham Corners, CT 06099", "desk@tradesmen.example"},
    {"Glen Valley Assurance", "12 Station Street, Alder Glen, NY 12009", "agent@glenvalley.example"}};

/// The letters of a name that a mail address may have.
std::string plainLetters(std::string_view name) {
  std::string letters;
  for (const char letter : lower(name))
    if (letter >= 'a' && letter <= 'z')
      letters += letter;
  return letters;
}

/// One of the firms. A firm has one telephone at its office, its numbers beginning at `firstPhone`.
template <std::size_t count>
Person oneOf(const Firm (&firms)[count], int firstPhone, Dice& dice) {
  const std::size_t chosen = dice.below(count);
  const Firm& firm = firms[chosen];
  return {std::string(firm.name), std::string(firm.address),
          "(518) 555-01" + std::to_string(firstPhone + static_cast<int>(chosen)), phoneNumber(dice),
          std::string(firm.mail)};
}

}  // namespace

std::string phoneNumber(Dice& dice) {
  return "(518) 555-01" + std::to_string(dice.between(0, 9)) + std::to_string(dice.between(0, 9));
}

Person personAt(std::string address, Dice& dice) {
  const std::string first(dice.pick(kFirstNames)), last(dice.pick(kLastNames));
  const std::string middle = dice.chance(30) ? std::string(1, static_cast<char>('A' + dice.below(26))) + ". " : "";
  return {first + " " + middle + last, std::move(address), phoneNumber(dice), dice.chance(60) ? phoneNumber(dice) : "",
          dice.chance(50) ? plainLetters(last) + "@mail.example" : ""};
}

Person neighbour(Dice& dice) {
  const std::string_view streetName = dice.pick(kStreets);
  return personAt(
      std::to_string(dice.between(1, 480)) + " " + std::string(streetName) + ", " + std::string(dice.pick(kNearTowns)),
      dice);
}

Person builder(Dice& dice) {
  return oneOf(kBuilders, 20, dice);
}

Person architect(Dice& dice) {
  return oneOf(kArchitects, 40, dice);
}

Person insurer(Dice& dice) {
  return oneOf(kInsurers, 50, dice);
}

std::string_view street(std::size_t number) {
  return kStreets[number % std::size(kStreets)];
}

}  // namespace zelvo
