#include "data/postgres/server.h"

#include <cstring>

#include "base/text.h"

namespace zelvo::postgres {

namespace {

constexpr int oldestServer = 120000;  // the first one that compares text case-blind by itself

// The line of the office may say otherwise, except for the encoding. A computer that was switched off, or a network
// that swallows everything, is given up after a while.
constexpr const char* keywords[] = {"connect_timeout",
                                    "tcp_user_timeout",
                                    "keepalives_idle",
                                    "keepalives_interval",
                                    "keepalives_count",
                                    "application_name",
                                    "dbname",
                                    "client_encoding",
                                    nullptr};

PGconn* connectBy(const std::string& line) {
  const char* values[] = {"8", "15000", "10", "5", "3", "Zelvo", line.c_str(), "UTF8", nullptr};
  return PQconnectdbParams(keywords, values, 1);
}

/// A line that cannot be read is not repeated: it may hold a password.
bool canBeRead(const std::string& line) {
  PQconninfoOption* options = PQconninfoParse(line.c_str(), nullptr);
  PQconninfoFree(options);
  return options != nullptr;
}

std::string nameOf(PGconn* connection) {
  const char* host = connection ? PQhost(connection) : nullptr;
  return host && *host ? "\"" + std::string(host) + "\"" : "of this data folder";
}

}  // namespace

// ---- answers

bool Answer::ok() const {
  switch (PQresultStatus(result_.get())) {
    case PGRES_COMMAND_OK:
    case PGRES_TUPLES_OK:
    case PGRES_COPY_IN:
      return true;
    default:
      return false;
  }
}

std::string_view Answer::text(int row, int column) const {
  return {PQgetvalue(result_.get(), row, column), static_cast<std::size_t>(PQgetlength(result_.get(), row, column))};
}

std::string_view Answer::field(int code) const {
  const char* text = PQresultErrorField(result_.get(), code);
  return text ? std::string_view(text) : std::string_view();
}

// ---- connecting

Result<void> Server::connect() {
  if (!canBeRead(place_.connection))
    return fileError(FileDeed::Read, path_, Trouble::BadInput, "the line in server.txt beside it cannot be understood",
                     "Write there how to reach the server, as host=records.town dbname=zelvo user=clerk.");
  connection_.reset(connectBy(place_.connection));
  if (lost())
    return notReached(path_, nameOf(connection_.get()), connection_ ? PQerrorMessage(connection_.get()) : "no memory");
  PQsetNoticeProcessor(
      connection_.get(), [](void*, const char*) {}, nullptr);
  auto prepared = prepareForUse();
  if (!prepared)
    connection_.reset();
  return prepared;
}

Result<void> Server::prepareForUse() {
  const char* encoding = PQparameterStatus(connection_.get(), "server_encoding");
  if (PQserverVersion(connection_.get()) < oldestServer || !encoding || std::string_view(encoding) != "UTF8")
    return fileError(FileDeed::Read, path_, Trouble::NotOurs,
                     "the server's database is older than version 12 or does not hold all letters",
                     "Have a database made there with the encoding UTF8, and name it in server.txt.");
  return execute(
      "set search_path = \"" + place_.schema +
      "\"; set datestyle = 'ISO, MDY'; set lock_timeout = " + std::to_string(patience_.count()) +
      "; set extra_float_digits = 1; set client_min_messages = warning; set standard_conforming_strings = on; "
      "set default_transaction_isolation = 'read committed'");
}

// ---- asking

PGresult* Server::send(const std::string& sql, const std::vector<Parameter>& parameters, Form form) {
  if (parameters.empty() && form == Form::Text)
    return PQexec(connection_.get(), sql.c_str());
  std::vector<const char*> values;
  values.reserve(parameters.size());
  for (const Parameter& parameter : parameters)
    values.push_back(parameter ? parameter->c_str() : nullptr);
  return PQexecParams(connection_.get(), sql.c_str(), static_cast<int>(values.size()), nullptr, values.data(), nullptr,
                      nullptr, static_cast<int>(form));
}

Result<Answer> Server::tryOut(const std::string& sql, const std::vector<Parameter>& parameters, Form form) {
  if (lost())
    if (auto connected = connect(); !connected)
      return connected.error();
  const bool wasIdle = idle();
  Answer answer(send(sql, parameters, form));
  if (!lost())
    return answer;
  if (!wasIdle)
    return brokeOff(FileDeed::Write, path_, sql == "commit" ? BrokeWhile::Keeping : BrokeWhile::Working);
  if (auto connected = connect(); !connected)
    return connected.error();
  answer = Answer(send(sql, parameters, form));
  return lost() ? Result<Answer>(brokeOff(FileDeed::Read, path_, BrokeWhile::Working)) : std::move(answer);
}

Result<Answer> Server::ask(FileDeed deed, const std::string& sql, const std::vector<Parameter>& parameters, Form form) {
  auto answer = tryOut(sql, parameters, form);
  if (answer && !answer->ok())
    return troubleOf(deed, *answer);
  return answer;
}

Result<void> Server::execute(const std::string& sql) {
  const auto answer = ask(FileDeed::Write, sql);
  return answer ? Result<void>() : answer.error();
}

Error Server::troubleOf(FileDeed deed, const Answer& answer) const {
  return serverError(deed, path_, answer.state(),
                     answer.message().empty() ? PQerrorMessage(connection_.get()) : answer.message());
}

// ---- many rows

Result<void> Server::copy(std::string_view lines) {
  if (PQputCopyData(connection_.get(), lines.data(), static_cast<int>(lines.size())) == 1)
    return {};
  return brokeOff(FileDeed::Write, path_, BrokeWhile::Working);
}

Result<Answer> Server::endCopy(bool failed) {
  PQputCopyEnd(connection_.get(), failed ? "given up" : nullptr);
  Answer answer(PQgetResult(connection_.get()));
  while (PGresult* more = PQgetResult(connection_.get()))
    PQclear(more);
  return lost() ? Result<Answer>(brokeOff(FileDeed::Write, path_, BrokeWhile::Working)) : std::move(answer);
}

}  // namespace zelvo::postgres
