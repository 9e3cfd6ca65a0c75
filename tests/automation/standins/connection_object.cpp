#include "automation/standins/connection_object.h"

#include <vexnumkr/adapters.h>
#include <vexnumkr/connection_string.h>

#include "automation/standins/qt_application.h"
#include "automation/standins/recordset_object.h"

namespace vexnumkr::standins {

using automation::Variant;

namespace {

std::string throughOdbc(const std::string& connectionString) {
  ConnectionSettings settings;
  settings.driver = "QODBC";
  settings.database = connectionString;
  return composeConnectionString(settings);
}

std::string givenText(const Call& call, std::size_t index) {
  return call.isGiven(index) ? call.text(index) : std::string();
}

}  // namespace

const IID ConnectionObject::id = {
    0x2d2f0d0a, 0x7a3e, 0x4b0e, {0x9c, 0x51, 0x0e, 0x8a, 0x6d, 0x3b, 0x11, 0x02}};

ConnectionObject::ConnectionObject()
    : DispatchObject("ADODB.Connection"), database_(createQtSqlConnection()) {
  requireQtApplication();
  addProperties();
  addMethods();
}

void ConnectionObject::addProperties() {
  property(
      L"ConnectionString", [this](Call& call) { call.answer(Variant(connectionString_)); },
      [this](Call& call) {
        const std::string text = call.text(0);
        database_->ConnectionString(throughOdbc(text));
        connectionString_ = text;
      });
  property(
      L"IsolationLevel", [this](Call& call) { call.answer(Variant(database_->IsolationLevel())); },
      [this](Call& call) { database_->IsolationLevel(call.number(0)); });
  property(
      L"CommandTimeout", [this](Call& call) { call.answer(Variant(commandTimeout_)); },
      [this](Call& call) { database_->CommandTimeout(commandTimeout_ = call.number(0)); });
  property(
      L"ConnectionTimeout", [this](Call& call) { call.answer(Variant(connectionTimeout_)); },
      [this](Call& call) { database_->ConnectionTimeout(connectionTimeout_ = call.number(0)); });
  property(
      L"CursorLocation", [this](Call& call) { call.answer(Variant(cursorLocation_)); },
      [this](Call& call) { database_->CursorLocation(cursorLocation_ = call.number(0)); });
}

void ConnectionObject::addMethods() {
  method(L"Open", [this](Call& call) { open(call); });
  method(L"Close", [this](Call&) { database_->Close(); });
  method(L"Execute", [this](Call& call) { execute(call); });
  // ADO answers how deep transactions are nested.
  method(L"BeginTrans", [this](Call& call) {
    database_->BeginTrans();
    call.answer(Variant(std::int32_t{1}));
  });
  method(L"CommitTrans", [this](Call&) { database_->CommitTrans(); });
  method(L"RollbackTrans", [this](Call&) { database_->RollbackTrans(); });
}

void ConnectionObject::open(const Call& call) {
  if (const std::string given = givenText(call, 0); !given.empty()) {
    database_->ConnectionString(throughOdbc(given));
    connectionString_ = given;
  }
  const std::int32_t options = call.isGiven(3) ? call.number(3) : ado::unspecified;
  database_->Open(givenText(call, 1), givenText(call, 2), options);
}

void ConnectionObject::execute(const Call& call) {
  std::int32_t recordsAffected = 0;
  std::unique_ptr<Recordset> rows = database_->Execute(call.text(0), recordsAffected);
  call.deliver(1, Variant(recordsAffected));
  call.answer(RecordsetObject::make(std::move(rows), *this).Get());
}

}  // namespace vexnumkr::standins
