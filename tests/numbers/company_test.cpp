// Reading a company while others store.
#include <gtest/gtest.h>

#include <vexnumkr/adapters.h>
#include <vexnumkr/number_company.h>

#include "numbers/numbers_database.h"
#include "support/error_of.h"
#include "support/faults/hooked_connection.h"

namespace vexnumkr::test {
namespace {

class CompanyTest : public NumbersDatabase {
 protected:
  CompanyTest() {
    circle(1, "Werk");
    range(1, "RE", 100, 100, 199);
    assign("ALL", 1, "RE");
  }

  /// Reads while somebody else removes the range with its assignment, once the ranges are read. An
  /// engine whose file nobody writes while it is read keeps him from it.
  numbers::Company readWhileOthersSave(const std::function<void(Connection&)>& read) {
    Hooks hooks;
    hooks.beforeStatement = [&](const std::string& text) {
      if (text.find("Nummernkreis_Zuordnung") == std::string::npos) return;
      hooks.beforeStatement = nullptr;
      errorOf([&] { removeRange(); });
    };
    HookedConnection hooked(connect(), hooks);
    read(hooked);
    EXPECT_FALSE(hooks.beforeStatement) << "nobody has saved";
    return company_;
  }
  void readInto(Connection& connection) { company_ = numbers::readCompany(connection, 1); }

 private:
  void removeRange() {
    const auto other = isSqlite()
                           ? openQtSqlConnection("Driver=QSQLITE;Database=" + database().name())
                           : connect();
    other->CommandTimeout(1);
    other->BeginTrans();
    for (const char* table : {"Nummernkreise", "Nummernkreis_Zuordnung"}) {
      std::int32_t affected = 0;
      other->Execute(std::string("DELETE FROM ") + table, affected);
    }
    other->CommitTrans();
  }

  numbers::Company company_;
};

TEST_F(CompanyTest, IsReadAsItWasAtOneMoment) {
  const numbers::Company company = readWhileOthersSave([&](Connection& connection) {
    numbers::readAtOneMoment(connection, [&] { readInto(connection); });
  });
  EXPECT_EQ(company.ranges.size(), 1U);
  EXPECT_EQ(company.assignments.size(), 1U);
}

TEST_F(CompanyTest, AnErrorEndsTheReadingAndLeavesTheConnectionAsItWas) {
  connection().IsolationLevel(ado::isolated);
  EXPECT_EQ(errorOf([&] {
              numbers::readAtOneMoment(connection(),
                                       [&] { numbers::readCompany(connection(), 3); });
            }),
            5);
  EXPECT_EQ(connection().IsolationLevel(), ado::isolated);
  connection().BeginTrans();
  connection().RollbackTrans();
}

// A host's own database layer.
class WithoutOtherIsolations final : public PlainConnection {
 public:
  using PlainConnection::IsolationLevel;
  using PlainConnection::PlainConnection;
  void IsolationLevel(std::int32_t level) override {
    if (level == ado::repeatableRead) throw Error(3251, "Host", "Das gibt es hier nicht.");
    PlainConnection::IsolationLevel(level);
  }
};

TEST_F(CompanyTest, IsReadAlsoWhereThereAreNoTransactionsForIt) {
  WithoutOtherIsolations plain(connect());
  std::size_t ranges = 0;
  numbers::readAtOneMoment(plain, [&] { ranges = numbers::readCompany(plain, 1).ranges.size(); });
  EXPECT_EQ(ranges, 1U);
}

}  // namespace
}  // namespace vexnumkr::test
