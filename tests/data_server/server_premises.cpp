#include "data/premises.h"

#include "data/server_folder.h"
#include "test_server.h"

namespace zelvo {

std::string furnish(const TempFolder& folder) {
  const TestServer& server = TestServer::instance();
  if (server.lacking().empty())
    folder.write("server.txt", server.line() + "\r\n");
  return server.lacking();
}

void spoil(const TempFolder& folder, std::string_view) {
  TestServer::instance().elsewhere("drop schema " + serverPlace(folder.path())->schema + " cascade");
}

}  // namespace zelvo
