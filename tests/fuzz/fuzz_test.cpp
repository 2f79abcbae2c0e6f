#include <gtest/gtest.h>

#include <random>

#include "base/text.h"
#include "data/dialect_cases.h"
#include "data/parcel_key.h"
#include "data/recordset.h"
#include "fuzz/dialect_trial.h"
#include "fuzz/parcel_key_trial.h"
#include "fuzz/promise.h"
#include "support/temp_folder.h"

namespace zelvo::fuzz {
namespace {

/// Texts of pieces, the same in every run.
class Dice {
 public:
  std::size_t below(std::size_t end) { return random_() % end; }

  std::string text(std::span<const std::string_view> pieces, std::size_t most) {
    std::string text;
    for (std::size_t count = below(most + 1); count > 0; --count)
      text += pieces[below(pieces.size())];
    return text;
  }

  /// A text with something in it taken out, put in or said twice.
  std::string changed(std::string text, std::span<const std::string_view> pieces) {
    const std::size_t at = below(text.size() + 1), count = below(6);
    if (below(3) == 0)
      return text.erase(at, count);
    if (below(2) == 0)
      return text.insert(at, text.substr(below(text.size() + 1), 12));
    return text.replace(at, std::min(count, text.size() - at), pieces[below(pieces.size())]);
  }

 private:
  std::mt19937 random_{20260309};
};

template <class Trial>
void tryOut(Trial& trial, const std::string& text) {
  try {
    trial.run(text);
  } catch (const Broken& broken) {
    ADD_FAILURE() << broken.what() << "\n" << text;
  }
}

constexpr std::string_view queryPieces[] = {"Select * from BLDGPERM",
                                            " where ",
                                            " order by ",
                                            " and ",
                                            " AND",
                                            " or ",
                                            "not ",
                                            " like ",
                                            " is ",
                                            "null",
                                            "(",
                                            ")",
                                            "[PERMIT]",
                                            "[VD3]",
                                            "FEE",
                                            "MONTH",
                                            "=",
                                            "<>",
                                            "<",
                                            "'",
                                            "''",
                                            "'x'",
                                            "'[z'",
                                            "#",
                                            "#1/2/25#",
                                            "3",
                                            "-",
                                            ".5",
                                            "%",
                                            "[!a]",
                                            "[",
                                            "]",
                                            "\xC3\x89",
                                            "\xFF",
                                            " ",
                                            "12e",
                                            "1e999",
                                            ",",
                                            ";",
                                            "\n"};

TEST(AnyTextAtAll, IsAQueryThatIsAnsweredOrRefused) {
  Dice dice;
  DialectTrial trial;
  for (const char* broken : {"\xAB", "\xC3", "x\xE2\x82", "\xFF\xFE"})  // bytes that are no letter are themselves
    tryOut(trial, broken);
  for (int round = 0; round < 40; ++round)
    for (const dialect::Case& row : dialect::conditionCases) {
      std::string query = (round % 2 ? "Select * from BLDGPERM where " : "") + std::string(row.query);
      for (int change = 0; change <= round / 10; ++change)
        query = dice.changed(query, queryPieces);
      tryOut(trial, query);
    }
  for (int i = 0; i < 3000; ++i)
    tryOut(trial, dice.text(queryPieces, 12));
}

constexpr std::string_view keyPieces[] = {"0",        "-0",   "-",  ".",  "/",  "1",       "12",       "45",
                                          "A",        "b",    " ",  "'",  "\n", "\t",      "\xC3\x89", "\xC3\xA9",
                                          "\xC3\x9F", "\xFF", "--", "./", ".-", "-0-0-0-0"};

TEST(AnyTextAtAll, IsAParcelKeyThatKeepsItsPromises) {
  Dice dice;
  ParcelKeyTrial trial;
  for (int i = 0; i < 100000; ++i)
    tryOut(trial, dice.text(keyPieces, i % 2 ? 12 : 30));
}

// A record holds what was typed into it, so its key is the one that the screen makes.
TEST(AnyTextAtAll, InTheFieldsOfARecordMakesItsKey) {
  TempFolder folder;
  ASSERT_TRUE(createDatabase(folder.file("db1.mdb"), *findTable("BLDGPERM")).ok());
  const auto rows =
      Recordset::open(*Connection::open(connectionText(folder.file("db1.mdb"))), "Select * from BLDGPERM");
  ASSERT_TRUE(rows.ok());
  Dice dice;
  Recordset& permits = **rows;
  permits.AddNew();
  for (int i = 0; i < 20000; ++i) {
    std::vector<std::string> expected;
    for (const char* field : {"SEC", "SUD", "SECA", "BLK", "LOT", "LOD", "SUB", "SED"}) {
      const std::string typed = dice.text(keyPieces, 4);
      if (permits.table().find(field))
        permits.set(field, typed);
      const std::string held(trim(left(typed, 8)));
      expected.push_back(permits.table().find(field) && !held.empty() ? upper(held) : "0");
    }
    ParcelParts parts;
    ASSERT_EQ(currentSBL(permits, parts), join(expected, "-"));
  }
}

}  // namespace
}  // namespace zelvo::fuzz
