#include "console/options.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace zelvo {
namespace {

TEST(ConsoleOptions, ReadsFolderTimeAndScript) {
  const TempFolder folder;
  const auto options =
      readConsoleOptions({"--now", "03/09/2026 10:15", "--program-folder", folder.path() + "/./", "day.txt"}, "/opt");
  ASSERT_TRUE(options.ok()) << options.error().message;
  EXPECT_EQ(options->programFolder, folder.path());
  EXPECT_EQ(options->now, (DateTime{{2026, 3, 9}, 10 * 3600 + 15 * 60}));
  EXPECT_EQ(options->script, "day.txt");
}

TEST(ConsoleOptions, StandsInTheFolderOfTheProgramWithoutAny) {
  const auto options = readConsoleOptions({}, "/opt/zelvo/");
  ASSERT_TRUE(options.ok());
  EXPECT_EQ(options->programFolder, "/opt/zelvo");
  EXPECT_TRUE(options->script.empty());
  EXPECT_FALSE(options->now);
}

TEST(ConsoleOptions, RefusesWhatItCannotRead) {
  const struct {
    std::string name;
    std::vector<std::string> arguments;
    std::string says;
  } rows[] = {
      {"an unknown option", {"--quiet"}, "The option \"--quiet\" is not known. See --help."},
      {"a folder that is missing", {"--program-folder"}, "--program-folder needs a value behind it. See --help."},
      {"a folder that is not there",
       {"--program-folder", "/no/such"},
       "The program folder \"/no/such\" is not there. Give the folder that holds Zelvo.ini."},
      {"no such day",
       {"--now", "02/30/2026 10:15"},
       "\"02/30/2026 10:15\" is no date and time. Write it as \"03/09/2026 10:15\"."},
      {"two scripts", {"a", "b"}, "One script is carried out at a time; \"b\" is a second one."},
  };
  for (const auto& row : rows) {
    const auto options = readConsoleOptions(row.arguments, "/opt");
    ASSERT_FALSE(options.ok()) << row.name;
    EXPECT_EQ(options.error().message, row.says) << row.name;
  }
}

}  // namespace
}  // namespace zelvo
