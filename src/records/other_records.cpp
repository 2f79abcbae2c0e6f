#include "records/other_records.h"

#include "data/no_dbfound.h"

namespace zelvo {

void showOtherRecords(Desk& desk, const OtherRecords& records, std::string_view query) {
  if (!desk.screens.knows(records.screen))
    return desk.messages.tell(" " + std::string(records.called), notOffered(records.called).message);
  if (Screen* open = desk.screens.find(records.screen)) {
    open->userCloses();
    if (desk.screens.isOpen(*open))
      return desk.screens.bringToFront(*open);
  }
  const auto connection = databaseConnection(desk, records.file);
  if (!connection)
    throw StoreError(connection.error());
  desk.session.queryFor(records.slot) = {*connection, std::string(query)};
  desk.screens.open(records.screen);
}

void hopToRecord(Desk& desk, const OtherRecords& records, std::string_view key) {
  if (!desk.screens.knows(records.screen))
    return desk.messages.tell(" " + std::string(records.called), notOffered(records.called).message);
  desk.session.hop = key;
  if (!desk.screens.find(records.screen))
    desk.session.queryFor(records.slot).query.clear();  // all of them
  if (!desk.screens.open(records.screen))
    desk.session.hop.clear();
}

Result<std::shared_ptr<Connection>> otherDatabase(Desk& desk, std::string_view file) {
  const auto connection = databaseConnection(desk, file);
  return connection ? Connection::open(*connection) : Result<std::shared_ptr<Connection>>(connection.error());
}

Result<std::unique_ptr<Recordset>> otherRows(Desk& desk, std::string_view file, std::string_view query) {
  auto opened = otherDatabase(desk, file);
  return opened ? Recordset::open(*opened, query) : Result<std::unique_ptr<Recordset>>(opened.error());
}

}  // namespace zelvo
