#pragma once

#include <string>
#include <string_view>

#include "data/catalogue.h"
#include "form/session.h"
#include "records/record_kind.h"

namespace zelvo {

/// Which records a screen shows, and in what order: the screen's slot of the table of current queries, where the menu
/// and other screens put what they want to see. What the list adds of its own, a filter and another order, lies over
/// that and goes when something else is asked for.
class RecordQuery {
 public:
  RecordQuery(Session& session, const RecordKind& kind);

  const CurrentQuery& current() const { return slot_; }
  /// The whole table, where nobody put another query there.
  void complete();
  void connectTo(std::string_view connection) { slot_.connection = connection; }
  bool showsWholeTable() const;
  void showWholeTable();
  /// The query that shows it.
  std::string wholeTable() const;
  /// The records that answer a condition, in the order of the whole table. A trailing "AND" is cut.
  void showMatching(std::string_view condition);
  /// Back to what was shown before, when a query turned out to be of no use.
  void show(std::string_view query) { slot_.query = query; }

  /// Of the records that were asked for only those that answer a condition too, in the order of a column; either may be
  /// empty.
  void arrange(std::string_view filter, std::string_view column, bool descending);

 private:
  CurrentQuery& slot_;
  const Table& table_;
  std::string askedFor_;  ///< without filter and order of the list
  std::string arranged_;  ///< with them
};

}  // namespace zelvo
