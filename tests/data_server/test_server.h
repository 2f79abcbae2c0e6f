#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "support/temp_folder.h"

namespace zelvo {

/// A PostgreSQL server of the tests' own, on this machine alone, in a folder that goes with it. It ends with its
/// program, however that ends.
class TestServer {
 public:
  /// The one of this program, running since it was first asked for.
  static TestServer& instance();
  ~TestServer() { stop(); }

  /// Why there is none; empty when all is well.
  const std::string& lacking() const { return lacking_; }
  /// How to reach it, as an office writes it in server.txt.
  std::string line() const;

  void start();
  /// As when its plug is pulled.
  void stop();

  /// Runs a statement as another program would; gives the first column of its first row.
  std::string elsewhere(const std::string& sql) const;

 private:
  TestServer();
  bool answers() const;

  TempFolder folder_;
  std::string programs_;
  std::string lacking_;
  int port_ = 0;
  pid_t process_ = -1;
};

}  // namespace zelvo
