#include "data/catalogue.h"

#include <gtest/gtest.h>

#include <set>

#include "base/text.h"

namespace zelvo {
namespace {

TEST(Catalogue, TablesAreSoundInThemselves) {
  int index = 0;
  for (const Table& table : catalogue()) {
    SCOPED_TRACE(table.name);
    const bool numbered = table.index >= 0;
    EXPECT_EQ(table.index, numbered ? index++ : -1);
    EXPECT_EQ(table.logicalName.size(), numbered ? 12u : 0u);
    EXPECT_EQ(findTableOfFile(upper(table.file)), &table);
    EXPECT_EQ(findTable(lower(table.name)), &table);
    std::set<std::string_view> names;
    for (const Column& column : table.columns) {
      EXPECT_TRUE(names.insert(column.name).second) << column.name << " stands twice";
      EXPECT_EQ(column.length == -1, column.type == ColumnType::Memo || column.type == ColumnType::Counter)
          << column.name;
      EXPECT_NE(column.length, 0) << column.name;
    }
    EXPECT_TRUE(table.key.empty() || table.find(table.key)) << table.key;
    EXPECT_TRUE(table.find(table.browseOrder)) << table.browseOrder;
    for (const std::string_view columns : table.indexes)
      for (const std::string& column : split(columns, ','))
        EXPECT_TRUE(table.find(column)) << column;
  }
  EXPECT_EQ(index, 13);
}

TEST(Catalogue, DescribesFieldsAsTheScreensShowThem) {
  const struct {
    std::string_view table;
    std::size_t number;
    std::string_view name;
    int box, length;
    ColumnType type;
  } fields[] = {
      {"BLDGPERM", 1, "PERMIT", 1, 20, ColumnType::Text},      {"BLDGPERM", 8, "SEC", 2, 8, ColumnType::Text},
      {"BLDGPERM", 33, "BEDROOMS", 37, 8, ColumnType::Text},   {"BLDGPERM", 39, "APPXCOST", 12, 8, ColumnType::Number},
      {"BLDGPERM", 48, "VD3", -2, 8, ColumnType::Date},        {"BLDGPERM", 54, "NOTES", 42, -1, ColumnType::Memo},
      {"BLDGPERM", 66, "RFEE", 0, 8, ColumnType::Number},      {"FPARCEL", 1, "FSEQ", 0, -1, ColumnType::Counter},
      {"FPARCEL", 20, "FOWNEMAIL", 15, 40, ColumnType::Text},  {"FPARCEL", 37, "TSTAMP", 0, 8, ColumnType::Date},
      {"ZONEDAT", 26, "ZBLDGEMPID", 20, 20, ColumnType::Text}, {"ZONEDAT", 48, "ZSTORIES", 35, 5, ColumnType::Text},
      {"ZONEDAT", 70, "ZSEWAGE", 50, 15, ColumnType::Text},    {"ZONEDAT", 91, "TSTAMP", 0, 8, ColumnType::Date},
  };
  EXPECT_EQ(fieldDescriptors("BLDGPERM").size(), 66u);
  EXPECT_EQ(fieldDescriptors("FPARCEL").size(), 37u);
  EXPECT_EQ(fieldDescriptors("ZONEDAT").size(), 91u);
  EXPECT_TRUE(fieldDescriptors("INSPDTL").empty());
  EXPECT_TRUE(fieldDescriptors("NOSUCH").empty());
  for (const auto& field : fields) {
    SCOPED_TRACE(field.name);
    const Column& column = fieldDescriptors(field.table)[field.number - 1];
    EXPECT_EQ(column.name, field.name);
    EXPECT_EQ(column.box, field.box);
    EXPECT_EQ(column.length, field.length);
    EXPECT_EQ(column.type, field.type);
  }
}

TEST(Catalogue, ParcelTableHasTwoLayouts) {
  const Table& old = *findTable("SBL");
  EXPECT_EQ(old.columns.size(), 13u);
  EXPECT_EQ(old.find("MAILING"), nullptr);
  EXPECT_EQ(findTableOfFile("sbl18.mdb"), &extendedParcelTable());
  EXPECT_EQ(extendedParcelTable().columns.size(), 18u);
  EXPECT_EQ(extendedParcelTable().position("gislink"), old.position("GISLINK"));
  EXPECT_EQ(findTable("sbl18"), nullptr);
}

TEST(Catalogue, KeepsTheBlanksOfLogicalNames) {
  EXPECT_EQ(findTable("BLDGPERM")->logicalName, "Permits     ");
  EXPECT_EQ(findTable("FPARCEL")->logicalName, "FireInsDB   ");
  EXPECT_EQ(findTable("CERTOCCU")->logicalName, "Certificates");
}

}  // namespace
}  // namespace zelvo
