#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/temp_folder.h"

namespace zelvo::testing {

/// A fresh sample town, and the console at work in it as a program of its own.
class SampleTown : public ::testing::Test {
 protected:
  SampleTown() {
    const std::string make = std::string(ZELVO_BIN) + "/zelvo-town '" + town() + "' 2>/dev/null";
    EXPECT_EQ(std::system(make.c_str()), 0);
  }

  std::string town() const { return folder.file("town"); }
  std::string data(std::string_view name) const { return town() + "/data/" + std::string(name); }

  /// What the console prints for a script, its errors included; `before` stands before its command line.
  std::string run(std::string_view script, const std::string& before = "", const std::string& program = "program") {
    const std::string scriptFile = folder.file(program + "-script.txt");
    folder.write(program + "-script.txt", script);
    const std::string command = before + " " + ZELVO_BIN + "/zelvo-console --program-folder '" + town() + "/" +
                                program + "' --now '03/09/2026 10:15' '" + scriptFile + "' 2>/dev/null";
    FILE* console = ::popen(command.c_str(), "r");
    std::string output;
    char piece[4096];
    for (std::size_t got; (got = std::fread(piece, 1, sizeof piece, console)) > 0;)
      output.append(piece, got);
    ::pclose(console);
    return output;
  }

  /// The script of a clerk who signs in and opens the building permits.
  static std::string asClerk(std::string_view script) {
    return "set Text1 clerk\nset Text2 CLERK\nclick cmdOK\nclick permits\n" + std::string(script);
  }

  /// Begins a permit that lacks nothing, on a parcel that nobody registered.
  static std::string newPermit() {
    return "click INew\nset Text1(2) 999.5\nset Text1(3) 3\nset Text1(4) 45\n"
           "set Text1(18) O'Brien, Zoë\nset Text1(17) 12 Mill Road, Alder Glen, NY 12009\n"
           "set Text1(34) 14 Mill Road\n";
  }

  /// The text on the pages of a printed document; nothing where no pages can be made.
  std::string pagesOf(const std::string& rtf) {
    const std::string pdf = folder.file("pages.pdf"), text = folder.file("pages.txt");
    const std::string make = std::string(ZELVO_BIN) + "/zelvo-letter pdf '" + rtf + "' '" + pdf +
                             "' 2>/dev/null && pdftotext -layout '" + pdf + "' '" + text + "'";
    return std::system(make.c_str()) == 0 ? folder.read("pages.txt") : "";
  }

  TempFolder folder;
};

/// The lines of an output that begin so.
inline std::string linesWith(std::string_view output, std::string_view beginning) {
  std::string found;
  for (std::size_t at = 0; at < output.size();) {
    const std::size_t end = std::min(output.find('\n', at), output.size() - 1);
    const auto line = output.substr(at, end + 1 - at);
    if (line.starts_with(beginning))
      found += line;
    at = end + 1;
  }
  return found;
}

}  // namespace zelvo::testing
