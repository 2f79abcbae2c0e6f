// zelvo-move: moves an office from its files to a server, and back.

#include <ctime>
#include <iostream>
#include <span>
#include <string>
#include <string_view>

#include "data/moving/move_office.h"

namespace {

constexpr std::string_view kUsage =
    "zelvo-move DATAFOLDER to-server \"CONNECTION TEXT\"\n"
    "zelvo-move DATAFOLDER to-files\n"
    "\n"
    "Moves the records of an office from the files of its data folder to a PostgreSQL server, or back from the\n"
    "server into files. All tables are counted and compared; the office changes over only when all came out as\n"
    "they were, and is left as it was otherwise. Nobody can store anything meanwhile; close the screens first.\n"
    "CONNECTION TEXT says how to reach the server: \"host=records.town dbname=zelvo user=clerk\".\n";

/// The time of the move, for the name of the folder in which the old things are set aside.
std::string stamp() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  char text[32];
  return {text, std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", &local)};
}

int move(std::span<char* const> words) {
  const std::string_view way = words.size() > 2 ? words[2] : "";
  const auto tell = [](const std::string& line) { std::cout << line << std::endl; };
  if (!(way == "to-server" && words.size() == 4) && !(way == "to-files" && words.size() == 3)) {
    std::cerr << kUsage;
    return 1;
  }
  const auto moved = way == "to-server" ? zelvo::moveToServer(words[1], words[3], stamp(), tell)
                                        : zelvo::moveToFiles(words[1], stamp(), tell);
  if (!moved)
    std::cerr << "zelvo-move: " << moved.error().message << "\n";
  return moved ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
  if (count == 2 && std::string_view(words[1]) == "--help") {
    std::cout << kUsage;
    return 0;
  }
  return move({words, static_cast<std::size_t>(count)});
}
