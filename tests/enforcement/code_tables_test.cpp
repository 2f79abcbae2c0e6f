#include "enforcement/code_tables.h"

#include <gtest/gtest.h>

namespace zelvo::testing {
namespace {

struct Row {
  const char* code;
  const char* text;
};

Session officeWithOwnKinds() {
  Session session;
  session.numberedComplaints = {"soon to come", "07 Noise at night", "12Fence"};
  session.letteredComplaints = {"no  Parking", "x Odd", "QU Never reached"};
  return session;
}

TEST(CodeTables, CategoriesAreComparedWholeAndResultsByTheirFirstLetter) {
  const Row categories[] = {{"B", "BLDG"}, {"o", "OTHER"}, {"C", "COMPLAINT"},
                            {"BX", "UNK"}, {"", "UNK"},    {"Z", "UNK"}};
  for (const Row& row : categories)
    EXPECT_EQ(ICode2Combo(row.code), row.text) << row.code;
  const Row results[] = {{"P", "Passed"},   {"f", "Failed"},  {"Exempted", "Exempt"}, {"I", "Incomplete"},
                         {"r", "Resolved"}, {"open", "Open"}, {"X", "UNK"},           {"", "UNK"}};
  for (const Row& row : results)
    EXPECT_EQ(RCode2Combo(row.code), row.text) << row.code;
}

TEST(CodeTables, NaturesOfComplaintsByTheirFirstTwoLettersElseByTheSharedTable) {
  const Session session = officeWithOwnKinds();
  const Row rows[] = {{"qu", "Quality of Life"},
                      {"MAINT", "Maintenance/Upkeep"},
                      {"Po", "Pot Holes/Roads"},
                      {"EA", "Easement"},
                      {"07", "07 Noise at night"},
                      {"no", "NO Parking"},
                      {"zz", "ZZ UNK ZZ"},
                      {"*", "* Complaint"},
                      {"", " UNK 99"}};
  for (const Row& row : rows)
    EXPECT_EQ(BCode2Combo(row.code, session), row.text) << row.code;
}

TEST(CodeTables, KindsOfComplaintWithTheOfficesOwn) {
  const Session session = officeWithOwnKinds();
  const Row rows[] = {{"*", "Complaint"},
                      {"qu", "Quality of life"},
                      {"SA", "Safety"},
                      {"ot", "Others"},
                      {"Ma", "Maintenance/Upkeep"},
                      {"7", "Noise at night"},
                      {"007", "Noise at night"},
                      {"12", "Fence"},
                      {"13", "UNK 13"},
                      {"NO ", "Parking"},
                      {"X", "Odd"},
                      {"AN", "UNK AN"},
                      {"", "UNK 99"},
                      {"0", "UNK 0"}};
  for (const Row& row : rows)
    EXPECT_EQ(complaintCategory(row.code, session), row.text) << row.code;
}

}  // namespace
}  // namespace zelvo::testing
