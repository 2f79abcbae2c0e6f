#include "records/pick_list.h"

#include "base/files.h"
#include "base/text.h"

namespace zelvo {

std::vector<std::string> pickList(const Session& session, std::string_view file) {
  std::vector<std::string> entries;
  for (const std::string& line : readLines(joinPath(session.dataFolder, file)).valueOr({}))
    if (!trim(line).empty())
      entries.emplace_back(trim(line));
  return entries;
}

}  // namespace zelvo
