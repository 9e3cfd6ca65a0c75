// What a user waits for over a network: opening the dialog, and OK after one change.
#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include <vexnumkr/adapters.h>

#include "bench/bare_driver.h"
#include "bench/cases.h"
#include "bench/relay.h"
#include "bench/sample_database.h"
#include "bench/session.h"
#include "bench/table_models.h"

namespace vexnumkr::bench {
namespace {

using Milliseconds = std::chrono::milliseconds;

constexpr int sampleScale = 0;
constexpr double mostRoundTrips = 30;

// A company on a server, a host that is connected to it over a network, and an editor beside it.
class Remote {
 public:
  Remote(int scale, const std::string& engine, Milliseconds roundTripTime)
      : database_(scale, engine),
        relay_(database_.serverSocket(), roundTripTime),
        connectionString_(database_.connectionString("127.0.0.1", relay_.port())),
        host_(openQtSqlConnection(connectionString_)),
        bare_(connectionString_) {
    // The first save of a company stores more than what has changed.
    open();
    save();
  }

  double roundTripSeconds() const { return relay_.roundTripSeconds(); }
  int takeRoundTrips() { return relay_.takeRoundTrips(); }

  void open() {
    session_ = std::make_unique<Session>(host_, DatabaseAccess::inSets);
    session_->load();
    session_->begin();
  }
  void save() {
    session_->changeOneValue();
    session_->saveChanges();
    session_.reset();
  }
  void close() {
    if (session_) session_->session().rollBackTransaction();
    session_.reset();
  }
  // What opening and OK take, one after the other.
  void work() {
    open();
    save();
  }

  void openEditor() { editor_ = loadTables(bare_.database()); }
  void saveEditor() {
    changeRows(*editor_.front(), 1);
    submit(bare_.database(), editor_);
    editor_.clear();
  }

 private:
  SampleDatabase database_;
  Relay relay_;
  const std::string connectionString_;
  std::shared_ptr<Connection> host_;
  BareDriver bare_;
  std::unique_ptr<Session> session_;
  TableModels editor_;
};

using LazyRemote = std::shared_ptr<Lazy<Remote>>;

LazyRemote remote(int scale, const std::string& engine, Milliseconds roundTripTime) {
  return lazily<Remote>([=] { return std::make_unique<Remote>(scale, engine, roundTripTime); });
}

void addRoundTripCases(Comparisons& comparisons, const std::string& engine) {
  const LazyRemote far = remote(sampleScale, engine, Milliseconds(10));
  comparisons.push_back({"network/" + engine,
                         "opened, one value changed, OK, sample, " + engine + " 10 ms away",
                         "the round-trip time", mostRoundTrips,
                         seconds([=] { (**far).work(); }, [=] { static_cast<void>(**far); }),
                         [=] { return (**far).roundTripSeconds(); }});
  comparisons.push_back({"trips/" + engine, "round trips of that, " + engine, "one", mostRoundTrips,
                         [=] {
                           (**far).takeRoundTrips();
                           (**far).work();
                           return static_cast<double>((**far).takeRoundTrips());
                         },
                         [] { return 1.0; }, Unit::Count});
}

// Against the editor on QSqlTableModel.
void addWaitingCases(Comparisons& comparisons, const std::string& engine, const std::string& name,
                     int scale, Milliseconds roundTripTime) {
  const LazyRemote company = remote(scale, engine, roundTripTime);
  const std::string at =
      engine + ", " + name + ", " + std::to_string(roundTripTime.count()) + " ms";
  const std::string id = engine + "/" + name + "/" + std::to_string(roundTripTime.count());
  const auto after = [=](void (Remote::*work)(), void (Remote::*before)()) {
    return seconds([=] { ((**company).*work)(); }, [=] { ((**company).*before)(); });
  };
  comparisons.push_back({"open/" + id, "open, " + at, "the editor on QSqlTableModel", noLimit,
                         seconds([=] { (**company).open(); }, [=] { (**company).close(); }),
                         seconds([=] { (**company).openEditor(); }, [=] { (**company).close(); })});
  comparisons.push_back({"ok/" + id, "OK after one change, " + at, "the editor's", noLimit,
                         after(&Remote::save, &Remote::open),
                         after(&Remote::saveEditor, &Remote::openEditor)});
}

}  // namespace

void addNetworkCases(Comparisons& comparisons, const Scale& scale) {
  if (otherEngines().empty()) return;
  for (const char* const engine : {"postgresql", "mariadb"}) addRoundTripCases(comparisons, engine);
  const std::array companies = {std::pair("sample", sampleScale),
                                std::pair("tenth", scale.smallerCompany),
                                std::pair("large", scale.company)};
  for (const auto& [name, size] : companies)
    for (const int roundTripTime : {0, 2, 10})
      addWaitingCases(comparisons, "postgresql", name, size, Milliseconds(roundTripTime));
}

}  // namespace vexnumkr::bench
