#include "data/statement_source.h"

#include <vexnumkr/error.h>

namespace vexnumkr {
namespace {

template <class Object>
Object& required(const std::unique_ptr<Object>& object) {
  if (object == nullptr) throw Error::objectNotSet();
  return *object;
}

std::unique_ptr<Recordset> requiredRows(std::unique_ptr<Recordset> rows) {
  required(rows);
  return rows;
}

}  // namespace

Command& StatementSource::cmdSQL() const { return required(cmdSQL_); }

Connection& StatementSource::ConnWork() const { return required(ConnWork_); }

std::unique_ptr<Recordset> StatementSource::query(const std::string& text) {
  std::int32_t found = 0;
  return query(text, found);
}

std::unique_ptr<Recordset> StatementSource::query(const std::string& text, std::int32_t& found) {
  return requiredRows(send(text, found));
}

std::int32_t StatementSource::execute(const std::string& text) {
  std::int32_t recordsAffected = 0;
  send(text, recordsAffected);
  return recordsAffected;
}

// On the working connection: nothing of what the dialog's transaction has locked or changed is in
// the answer.
std::unique_ptr<Recordset> StatementSource::queryAside(const std::string& text) {
  std::int32_t found = 0;
  return requiredRows(ConnWork().Execute(text, found));
}

std::unique_ptr<Recordset> StatementSource::send(const std::string& text, std::int32_t& found) {
  Command& command = cmdSQL();
  command.CommandText(text);
  return command.Execute(found);
}

}  // namespace vexnumkr
