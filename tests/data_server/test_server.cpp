#include "test_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <libpq-fe.h>
#include <pwd.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

namespace zelvo {

namespace {

using namespace std::chrono_literals;

/// Debian keeps each version in a folder of its own, outside the search path.
std::string newestPrograms() {
  std::string newest;
  std::error_code none;
  for (const auto& version : std::filesystem::directory_iterator("/usr/lib/postgresql", none))
    if (const auto programs = version.path() / "bin"; std::filesystem::exists(programs / "initdb"))
      newest = std::max(newest, programs.string());
  return newest;
}

int freePort() {
  const int found = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  ::bind(found, reinterpret_cast<sockaddr*>(&address), size);
  ::getsockname(found, reinterpret_cast<sockaddr*>(&address), &size);
  ::close(found);
  return ntohs(address.sin_port);
}

/// The server refuses to run as the administrator of a computer.
void becomeNobody() {
  const passwd* nobody = ::getuid() == 0 ? ::getpwnam("nobody") : nullptr;
  if (nobody && (::setgid(nobody->pw_gid) != 0 || ::setuid(nobody->pw_uid) != 0))
    ::_exit(1);
}

pid_t startProgram(const std::string& log, std::vector<std::string> words) {
  const pid_t process = ::fork();
  if (process != 0)
    return process;
  becomeNobody();
  ::prctl(PR_SET_PDEATHSIG, SIGQUIT);
  const int output = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(output, STDERR_FILENO);
  std::vector<char*> arguments;
  for (std::string& word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  ::execv(arguments.front(), arguments.data());
  ::_exit(1);
}

bool endedWell(pid_t process) {
  int status = 0;
  return ::waitpid(process, &status, 0) == process && status == 0;
}

}  // namespace

TestServer& TestServer::instance() {
  static TestServer server;
  return server;
}

TestServer::TestServer() : programs_(newestPrograms()), port_(freePort()) {
  if (programs_.empty()) {
    lacking_ = "No PostgreSQL server is installed on this machine.";
    return;
  }
  if (const passwd* nobody = ::getpwnam("nobody"); nobody && ::getuid() == 0)
    if (::chown(folder_.path().c_str(), nobody->pw_uid, nobody->pw_gid) != 0)
      lacking_ = "The folder of the server could not be given to its user.";
  const pid_t making =
      startProgram(folder_.file("log"), {programs_ + "/initdb", "-D", folder_.file("records"), "-U", "clerk", "-E",
                                         "UTF8", "--locale=C.UTF-8", "--auth=trust", "--no-sync"});
  if (!endedWell(making))
    throw std::runtime_error("initdb failed: " + folder_.read("log"));
  start();
}

void TestServer::start() {
  process_ =
      startProgram(folder_.file("log"), {programs_ + "/postgres", "-D", folder_.file("records"), "-p",
                                         std::to_string(port_), "-c", "listen_addresses=127.0.0.1", "-c",
                                         "unix_socket_directories=", "-c", "fsync=off", "-c", "shared_buffers=16MB"});
  for (int waited = 0; waited < 500 && !answers(); ++waited)
    std::this_thread::sleep_for(20ms);
  if (!answers())
    throw std::runtime_error("the server does not answer: " + folder_.read("log"));
}

bool TestServer::answers() const {
  return PQping(line().c_str()) == PQPING_OK;
}

void TestServer::stop() {
  if (process_ <= 0)
    return;
  ::kill(process_, SIGQUIT);
  ::waitpid(process_, nullptr, 0);
  process_ = -1;
}

std::string TestServer::line() const {
  return "host=127.0.0.1 port=" + std::to_string(port_) + " user=clerk dbname=postgres password=secret";
}

std::string TestServer::elsewhere(const std::string& sql) const {
  const std::unique_ptr<PGconn, void (*)(PGconn*)> connection(PQconnectdb(line().c_str()), &PQfinish);
  PQsetNoticeProcessor(
      connection.get(), [](void*, const char*) {}, nullptr);
  const std::unique_ptr<PGresult, void (*)(PGresult*)> result(PQexec(connection.get(), sql.c_str()), &PQclear);
  if (PQresultStatus(result.get()) == PGRES_COMMAND_OK)
    return "";
  if (PQresultStatus(result.get()) != PGRES_TUPLES_OK)
    throw std::runtime_error(PQerrorMessage(connection.get()));
  return PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "";
}

}  // namespace zelvo
