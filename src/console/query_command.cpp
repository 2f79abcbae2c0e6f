#include "console/query_command.h"

#include <string>

#include "base/files.h"
#include "console/show_command.h"
#include "data/recordset.h"

namespace zelvo {

namespace {

Result<void> refuseRequest(std::string_view dataFolder, std::string_view file, std::string_view query) {
  if (file.empty() || query.empty())
    return Error{Trouble::BadInput,
                 "query needs a database file and a query, as: query db1.mdb Select * from BLDGPERM"};
  if (fileNameOf(file) != file)
    return Error{Trouble::BadInput, "\"" + std::string(file) + "\" is no file name of the data folder"};
  if (dataFolder.empty())
    return Error{Trouble::NotFound, "the data folder is not known yet"};
  return {};
}

}  // namespace

Result<void> showQuery(std::string_view dataFolder, std::string_view file, std::string_view query, Conversation& talk) {
  if (auto refused = refuseRequest(dataFolder, file, query); !refused)
    return refused;
  const auto connection = Connection::open(connectionText(joinPath(dataFolder, file)));
  if (!connection)
    return connection.error();
  const auto opened = Recordset::open(*connection, query);
  if (!opened)
    return opened.error();
  const Recordset& rows = **opened;
  const auto cell = [&rows](std::size_t row, std::size_t column) { return rows.cell(row, column).text(); };
  sayRows(file, rows.RecordCount(), rows.fieldCount(), cell, talk);
  return {};
}

}  // namespace zelvo
