#pragma once

#include <string>

#include "base/result.h"
#include "data/recordset.h"
#include "form/session.h"
#include "records/record_kind.h"

namespace zelvo {

/// The next number of a kind of record: one more than the last stored, unless the high-water file, or a seed that the
/// office set in its preferences, says otherwise. The file is what keeps two computers apart between opening and
/// adding.
class Numbering {
 public:
  Numbering(Session& session, const NumberingRule& rule) : session_(session), rule_(rule) {}

  /// Works out the next number as a screen is opened; the recordset is left on its first record. A high-water file that
  /// is missing is made; where it cannot be, the screen still opens and noteTaken tells of it. Gives what is wrong with
  /// the file or the seed that is passed over because it holds no whole number; empty when all is well.
  std::string open(Recordset& records);

  const std::string& next() const { return next_; }
  bool automatic() const { return rule_.automatic; }
  /// One further: the number was taken.
  void bump();
  /// Writes to the file that is used that the next number is given away to a record which is being stored, unless
  /// another computer has written a higher one there already. To be called while the store is held for writing, so that
  /// computers take turns.
  Result<void> noteTaken() const;
  /// The record is stored: one further, the seed too. One that could not be stored keeps its number for the next try.
  void moveOn();
  /// Reads the file again: another computer may be further by now.
  void catchUp();

 private:
  bool seeded() const;
  std::string unusable() const;
  std::string filePath() const;

  Session& session_;
  const NumberingRule& rule_;
  std::string next_ = "1";
};

}  // namespace zelvo
