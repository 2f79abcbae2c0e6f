#include <gtest/gtest.h>

#include "base/text.h"
#include "permit_office.h"

namespace zelvo::testing {
namespace {

// ---- what the parcel says of itself

class ParcelOffered : public PermitOffice {
 protected:
  ParcelOffered() {
    EXPECT_TRUE(parcels.SBLAdd("12-5-0-3-45", "", "Whitcombe-Saunders, Clara", "", "3 Mill Road").ok());
    EXPECT_TRUE(parcels.SBLAdd("12-5-0-3-46", "", "UNK", "", "5 Mill Road").ok());
    at.click(permits, "INew");
  }
  void importRoll() {
    ASSERT_TRUE(createDatabase(path("rps.mdb"), *findTable("RPS")).ok());
    auto roll = look("rps.mdb", "Select * from RPS");
    for (const auto& [key, owner] :
         {std::pair("12-5-0-3-45", "Whitcombe-Saunders, Clara M"), std::pair("12-5-0-3-47", "Lopez, Ana")}) {
      roll->AddNew();
      roll->set("RSBLF", key), roll->set("RASSOC", owner), roll->set("RADDR1", "PO Box 7"), roll->set("RLOCN1", "?");
      ASSERT_TRUE(roll->Update().ok());
    }
  }
  void typeParcel(std::string_view lot) {
    at.set(permits, "Text1(2)", "12.5");
    at.set(permits, "Text1(3)", "3");
    at.set(permits, "Text1(4)", lot);
    at.leave(permits, "Text1(4)");
  }
  std::string offered() {
    return at.shown(permits, "Text1(18)") + "|" + at.shown(permits, "Text1(17)") + "|" + at.shown(permits, "Text1(34)");
  }
  APermits& permits = open();
};

TEST_F(ParcelOffered, OwnerAndLocationOnceTheParcelIsTyped) {
  at.set(permits, "Text1(2)", "12.5");
  at.leave(permits, "Text1(2)");
  EXPECT_EQ(offered(), "||") << "half a key is no parcel";
  typeParcel("45");
  EXPECT_EQ(offered(), "Whitcombe-Saunders,||3 Mill Road");
  EXPECT_EQ(permits.status, "Offered from the parcel registry. Type over what is not right.");
  typeParcel("46");
  EXPECT_EQ(offered(), "||5 Mill Road") << "what another parcel said goes, an unknown owner is none";
  at.set(permits, "Text1(34)", "corner lot");
  typeParcel("45");
  EXPECT_EQ(offered(), "Whitcombe-Saunders,||corner lot") << "what was typed stays";
  at.set(permits, "Text1(18)", "");
  at.leave(permits, "Text1(4)");
  EXPECT_EQ(offered(), "||corner lot") << "what was cleared is not offered twice";
}

TEST_F(ParcelOffered, TheRollKnowsTheAddressAndTheWholeName) {
  importRoll();
  typeParcel("45");
  EXPECT_EQ(offered(), "Whitcombe-Saunders, Clara M|PO Box 7|3 Mill Road");
  EXPECT_EQ(permits.status, "Offered from the parcel registry and the tax roll. Type over what is not right.");
  typeParcel("47");
  EXPECT_EQ(offered(), "Lopez, Ana|PO Box 7|");
  EXPECT_EQ(permits.status, "Offered from the tax roll. Type over what is not right.");
  typeParcel("48");
  EXPECT_EQ(offered(), "||");
}

// ---- what was typed before

class TypedBeforeOffered : public PermitOffice {
 protected:
  TypedBeforeOffered() {
    const char* permits[][3] = {{"26-1", "Hollis & Daughters", "Smith"},
                                {"26-2", "Holm, Per", "SMITHSON"},
                                {"26-3", "Hollis & Daughters", "Smythe"},
                                {"26-4", "Holt Bros", "  "}};
    for (const auto& permit : permits) {
      addOther(permit[0]);
      auto row = permitsNow();
      row->MoveLast();
      row->set("BLDGNAME1", permit[1]), row->set("OWNNAME1", permit[2]), row->set("ZONED", "Hol");
      EXPECT_TRUE(row->Update().ok());
    }
  }
  std::string offers(Screen& permits, int box, std::string_view typed) {
    auto& text = dynamic_cast<TextBox&>(*permits.find("Text1", box));
    at.set(permits, text.id(), typed);
    return join(permits.offersFor(text), "|");
  }
};

TEST_F(TypedBeforeOffered, TheMostUsualFirstThenTheLatest) {
  APermits& permits = open();
  at.click(permits, "INew");
  struct Row {
    int box;
    const char* typed;
    const char* offered;
  };
  const Row rows[] = {{26, "hol", "Hollis & Daughters|Holt Bros|Holm, Per"},
                      {26, "Holt", "Holt Bros"},
                      {26, "Holt Bros", ""},
                      {26, "x", ""},
                      {26, "", ""},
                      {18, "smith", "SMITHSON|Smith"},
                      {18, "%", ""},
                      {1, "26", ""},
                      {2, "1", ""}};
  for (const Row& row : rows)
    EXPECT_EQ(offers(permits, row.box, row.typed), row.offered) << row.box << " " << row.typed;
}

TEST_F(TypedBeforeOffered, ListsAndTheBoxesOfOtherNamesOfferToo) {
  ASSERT_TRUE(writeLines(path("pt.txt"), {"Dwelling", "Deck", "Demolition"}).ok());
  auto row = permitsNow();
  row->set("PRMFOR", "Den"), row->set("DATA1", "Two dormers"), row->set("MATL", "Cedar"),
      row->set("LINK02", "|call back");
  row->set("HEATPLT1", "Oil burner");
  ASSERT_TRUE(row->Update().ok());
  APermits& permits = open();
  const auto offered = [&](const char* control, std::string_view typed) {
    at.set(permits, control, typed);
    return join(permits.offersFor(at.control(permits, control)), "|");
  };
  EXPECT_EQ(join(permits.offersFor(at.control(permits, "Combo2")), "|"), "") << "nobody types yet";
  at.click(permits, "INew");
  EXPECT_EQ(offered("Combo2", "de"), "Deck|Demolition|Den") << "the office's own list comes first";
  EXPECT_EQ(offered("Combo2", "Deck"), "");
  EXPECT_EQ(offered("Combo3", "tw"), "Two dormers");
  EXPECT_EQ(offered("Text4", "c"), "Cedar");
  EXPECT_EQ(offered("Text5", "ca"), "call back") << "without the mark of its column";
  EXPECT_EQ(offered("TextHeat", "oil"), "Oil burner");
}

TEST_F(TypedBeforeOffered, WhatWasJustAddedIsOfferedInTheNextRecordAndASearchForgetsNothing) {
  APermits& permits = open();
  at.click(permits, "INew");
  EXPECT_EQ(offers(permits, 18, "Zim"), "");
  typePermit(permits, "Zimmer, Ute");
  expectNewParcel();
  at.click(permits, "IAdd");
  at.click(permits, "ILocate");
  EXPECT_EQ(offers(permits, 18, "Zim"), "Zimmer, Ute");
  at.click(permits, "ILocate");
  at.click(permits, "IMoveLast");
  at.click(permits, "IEdit");
  EXPECT_EQ(offers(permits, 18, "Smy"), "Smythe");
}

}  // namespace
}  // namespace zelvo::testing
