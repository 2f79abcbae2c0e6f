#include "data/premises.h"

#include "data/server_folder.h"
#include "test_server.h"

namespace zelvo {

std::string furnish(const std::string& folder) {
  const TestServer& server = TestServer::instance();
  if (server.lacking().empty()) {
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "/server.txt") << server.line() << "\r\n";
  }
  return server.lacking();
}

void spoil(const TempFolder& folder, std::string_view) {
  TestServer::instance().elsewhere("drop schema " + serverPlace(folder.path())->schema + " cascade");
}

std::string soundness(const TempFolder& folder, std::string_view) {
  const std::string schema = serverPlace(folder.path())->schema;
  try {
    TestServer::instance().elsewhere("create extension if not exists amcheck schema public");
    TestServer::instance().elsewhere(
        "select count(public.bt_index_check(indexrelid, true)::text) from pg_index join "
        "pg_class on pg_class.oid = indrelid where relnamespace = '" +
        schema + "'::regnamespace");
    return TestServer::instance().elsewhere("select coalesce(min(msg), 'ok') from pg_class, lateral " +
                                            std::string("public.verify_heapam(pg_class.oid) where relkind = 'r' and ") +
                                            "relnamespace = '" + schema + "'::regnamespace");
  } catch (const std::runtime_error& damage) {
    return damage.what();
  }
}

namespace {

struct PulledPlug : Outage {
  PulledPlug() { TestServer::instance().stop(); }
  ~PulledPlug() override { TestServer::instance().start(); }
};

}  // namespace

std::unique_ptr<Outage> loseContact(const TempFolder&, std::string_view) {
  return std::make_unique<PulledPlug>();
}

}  // namespace zelvo
