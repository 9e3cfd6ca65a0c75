// The number library, held against the bare driver.
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <vexnumkr/adapters.h>
#include <vexnumkr/number_check.h>
#include <vexnumkr/numbers.h>

#include "bench/bare_driver.h"
#include "bench/cases.h"
#include "bench/sample_database.h"
#include "cli/report/report_page.h"
#include "numbers/sql/statements.h"

namespace vexnumkr::bench {
namespace {

namespace statement = numbers::statement;

constexpr const char* origin = "ORB";
constexpr const char* user = "Benutzer 001";
constexpr const char* key = "T001";
constexpr std::int32_t circle = 1;
constexpr int drawsAtOnce = 50;

class NumbersCompany {
 public:
  NumbersCompany(int scale, const std::string& engine)
      : database_(scale, engine),
        bare_(database_.connectionString()),
        connection_(openQtSqlConnection(database_.connectionString())) {}

  void check() { static_cast<void>(checked(read())); }

  void report() {
    const numbers::Company company = read();
    std::ostringstream page;
    cli::writeReport(page, company, checked(company),
                     {.date = options.date, .made = {}, .database = "firma"});
  }

  /// The five tables.
  void readBare() {
    const numbers::Literals literals(*connection_);
    bare_.run(statement::circles(literals, origin));
    bare_.run(statement::ranges());
    bare_.run(statement::assignments(literals, origin));
    bare_.run(statement::specialRanges(literals, origin));
    bare_.run(statement::users());
  }

  void draw() {
    const numbers::DrawRequest request{
        .application = 1, .user = user, .key = key, .circle = circle};
    for (int i = 0; i < drawsAtOnce; ++i) numbers::draw(*connection_, request);
  }

  /// What a draw sends.
  void drawBare() {
    const numbers::Literals literals(*connection_);
    for (int i = 0; i < drawsAtOnce; ++i) {
      bare_.run(statement::assignedRanges(literals, origin, user, key, circle));
      bare_.run("BEGIN");
      bare_.run(statement::issueNumbers(literals, circle, key, 1));
      bare_.run(statement::rangeValues(literals, circle, key));
      bare_.run("COMMIT");
    }
  }

  /// Numbers enough for all draws of a measurement.
  void renewRange() { bare_.run("UPDATE Nummernkreise SET AktuellerWert = StartWert"); }

 private:
  numbers::Company read() { return numbers::readCompany(*connection_, 1); }
  static numbers::CheckResult checked(const numbers::Company& company) {
    return numbers::check(company, options);
  }

  static inline const numbers::CheckOptions options{.date = "20261121"};

  SampleDatabase database_;
  BareDriver bare_;
  std::shared_ptr<Connection> connection_;
};

using Company = std::shared_ptr<Lazy<NumbersCompany>>;

Company companyOf(int scale, const std::string& engine) {
  return lazily<NumbersCompany>([=] { return std::make_unique<NumbersCompany>(scale, engine); });
}

void addCases(Comparisons& comparisons, const Company& company, const std::string& engine) {
  const auto made = [=] { static_cast<void>(**company); };
  const auto renewed = [=] { (**company).renewRange(); };
  comparisons.push_back({"numbers/check/" + engine, "check of a company, " + engine,
                         "the bare driver reading the five tables", 2,
                         seconds([=] { (**company).check(); }, made),
                         seconds([=] { (**company).readBare(); }, made)});
  comparisons.push_back({"numbers/report/" + engine, "report on a company, " + engine,
                         "the bare driver reading the five tables", 2,
                         seconds([=] { (**company).report(); }, made),
                         seconds([=] { (**company).readBare(); }, made)});
  comparisons.push_back({"numbers/draw/" + engine, "draw, " + engine,
                         "the bare driver sending the same statements", 2.5,
                         seconds([=] { (**company).draw(); }, renewed),
                         seconds([=] { (**company).drawBare(); }, renewed)});
}

}  // namespace

void addNumbersCases(Comparisons& comparisons, const Scale& scale) {
  addCases(comparisons, companyOf(scale.company, fileEngine), fileEngine);
  for (const std::string& engine : otherEngines())
    addCases(comparisons, companyOf(scale.company, engine), engine);
}

}  // namespace vexnumkr::bench
