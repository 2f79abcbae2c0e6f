#pragma once

#include <string>
#include <string_view>

#include "base/result.h"
#include "data/dialect/statement_writer.h"

struct sqlite3;

namespace zelvo::fuzz {

/// Any text as a query and as a condition: it is read, or refused with the text in the message; it is written alike for
/// both engines; and what is written is a statement that a small database answers.
class DialectTrial {
 public:
  DialectTrial();
  DialectTrial(const DialectTrial&) = delete;
  DialectTrial& operator=(const DialectTrial&) = delete;
  ~DialectTrial();

  /// Throws Broken.
  void run(const std::string& text);

 private:
  using Written = Result<dialect::BoundStatement>;

  void check(const Written& file, const Written& server, std::string_view text);
  void answer(const dialect::BoundStatement& statement);

  sqlite3* database_ = nullptr;
};

}  // namespace zelvo::fuzz
