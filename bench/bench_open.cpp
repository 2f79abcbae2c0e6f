// Opens the building permits as their screen does, goes to the last and back to one by its number, and ends: the whole
// process is measured from outside.

#include <iostream>

#include "data/recordset.h"

namespace {

using namespace zelvo;

Result<std::string> locationOf(const char* path, const std::string& permit) {
  const auto connection = Connection::open(connectionText(path));
  if (!connection)
    return connection.error();
  const auto opened = Recordset::open(*connection, "Select * from BLDGPERM order by PERMIT");
  if (!opened)
    return opened.error();
  Recordset& permits = **opened;
  permits.MoveLast();
  const std::string last = permits.text("PERMIT");
  permits.MoveFirst();
  const auto found = permits.Find("[PERMIT] = '" + permit + "'");
  if (!found)
    return found.error();
  if (!*found)
    return Error{Trouble::NotFound, "There is no permit " + permit + " in " + path + "."};
  return std::to_string(permits.RecordCount()) + " permits, the last " + last + "; " + permit + " is at " +
         permits.text("LOCN1");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "Usage: bench_open DATABASE PERMIT\n";
    return 2;
  }
  const auto told = locationOf(arguments[1], arguments[2]);
  (told ? std::cout : std::cerr) << (told ? *told : told.error().message) << "\n";
  return told ? 0 : 1;
}
