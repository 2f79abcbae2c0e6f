#pragma once

#include <libpq-fe.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/postgres/trouble.h"
#include "data/postgres/values.h"
#include "data/server_folder.h"

namespace zelvo::postgres {

/// What the server answered.
class Answer {
 public:
  explicit Answer(PGresult* result) : result_(result, &PQclear) {}

  bool ok() const;
  int rows() const { return PQntuples(result_.get()); }
  bool isNull(int row, int column) const { return PQgetisnull(result_.get(), row, column) != 0; }
  std::string_view text(int row, int column) const;
  std::string_view state() const { return field(PG_DIAG_SQLSTATE); }
  std::string_view message() const { return field(PG_DIAG_MESSAGE_PRIMARY); }
  std::string_view detail() const { return field(PG_DIAG_MESSAGE_DETAIL); }

 private:
  std::string_view field(int code) const;
  std::unique_ptr<PGresult, void (*)(PGresult*)> result_;
};

/// A connection to the server, working in the schema of one data folder. What is asked outside a transaction changes
/// nothing, so that a connection that was lost meanwhile is made anew and the same asked again.
class Server {
 public:
  Server(std::string path, ServerPlace place, std::chrono::milliseconds patience)
      : path_(std::move(path)), place_(std::move(place)), patience_(patience) {}

  const std::string& path() const { return path_; }
  const std::string& schema() const { return place_.schema; }

  Result<void> connect();

  enum class Form { Text = 0, Binary = 1 };
  /// Whatever the server says, good or bad; an error only when it says nothing. Answer::ok tells.
  Result<Answer> tryOut(const std::string& sql, const std::vector<Parameter>& parameters, Form form = Form::Text);
  /// A bad answer is an error of the deed.
  Result<Answer> ask(FileDeed deed, const std::string& sql, const std::vector<Parameter>& parameters = {},
                     Form form = Form::Text);
  /// Statements without parameters, several at once.
  Result<void> execute(const std::string& sql);

  /// After a "copy ... from stdin": its lines, and its end. With `failed` the server is told to forget them.
  Result<void> copy(std::string_view lines);
  Result<Answer> endCopy(bool failed);

  bool idle() const { return status() == PQTRANS_IDLE; }
  /// A transaction is open and can go on.
  bool inTransaction() const { return status() == PQTRANS_INTRANS; }
  bool lost() const { return !connection_ || PQstatus(connection_.get()) != CONNECTION_OK; }

  Error troubleOf(FileDeed deed, const Answer& answer) const;

 private:
  PGTransactionStatusType status() const { return PQtransactionStatus(connection_.get()); }
  Result<void> prepareForUse();
  PGresult* send(const std::string& sql, const std::vector<Parameter>& parameters, Form form);

  std::string path_;
  ServerPlace place_;
  std::chrono::milliseconds patience_;
  std::unique_ptr<PGconn, void (*)(PGconn*)> connection_{nullptr, &PQfinish};
};

}  // namespace zelvo::postgres
