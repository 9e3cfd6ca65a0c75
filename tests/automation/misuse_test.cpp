// Hosts whose objects do what none may do, while the component works with them: they fail, answer
// with nothing, let the component go, show its dialog once more, or close the connection. Whatever
// they do, the call comes back, the user is told, nothing is stored by halves, nothing stays
// behind, and the next use is as if nothing had been.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/automation/com/bstr.h"
#include "automation/hosts/hasty_user.h"
#include "automation/hosts/host_window.h"
#include "automation/hosts/prankster.h"
#include "automation/hosts/session.h"

namespace vexnumkr::test {
namespace {

using automation::ComPtr;
using automation::LateBound;
using automation::Variant;

// All that the component does with the host's objects while its user changes something of
// everything and saves; that it lets go of them is not its own to do, but may be noticed.
const std::vector<std::string> everyCall = {
    "ADODB.Command.ActiveConnection set",
    "ADODB.Command.CommandText let",
    "ADODB.Command.CommandTimeout let",
    "ADODB.Command.CommandType let",
    "ADODB.Command.Execute",
    "ADODB.Connection.BeginTrans",
    "ADODB.Connection.Close",
    "ADODB.Connection.CommandTimeout let",
    "ADODB.Connection.CommitTrans",
    "ADODB.Connection.ConnectionString",
    "ADODB.Connection.ConnectionString let",
    "ADODB.Connection.ConnectionTimeout let",
    "ADODB.Connection.CursorLocation let",
    "ADODB.Connection.Execute",
    "ADODB.Connection.IsolationLevel",
    "ADODB.Connection.IsolationLevel let",
    "ADODB.Connection.Open",
    "ADODB.Connection.RollbackTrans",
    "ADODB.Field.Value",
    "ADODB.Field.Value let",
    "ADODB.Recordset.Close",
    "ADODB.Recordset.CursorLocation let",
    "ADODB.Recordset.EOF",
    "ADODB.Recordset.Fields",
    "ADODB.Recordset.MoveFirst",
    "ADODB.Recordset.MoveNext",
    "ADODB.Recordset.Open",
    "ADODB.Recordset.Update",
    "VEXSetting.VXSettings.GetSetting",
    "VEXSetting.VXSettings.Init",
    "VEXSetting.VXSettings.SaveSetting",
    "end of ADODB.Command",
    "end of ADODB.Connection",
    "end of ADODB.Field",
    "end of ADODB.Recordset",
    "end of VEXSetting.VXSettings",
    "end of vxtComDlg.WWSDialog",
    "new ADODB.Command",
    "new ADODB.Connection",
    "new ADODB.Recordset",
    "new VEXSetting.VXSettings",
    "new vxtComDlg.WWSDialog",
    "vxtComDlg.WWSDialog.Connection let",
    "vxtComDlg.WWSDialog.MultiSelect let",
    "vxtComDlg.WWSDialog.Show",
};

// The range that the user changes, as `everything` has it then.
constexpr std::string_view changedRange = "1AN:110/111/199/-1";

// What the dialog may change, in one text.
constexpr const char* everything =
    "SELECT group_concat(Zeile, ' ') AS Inhalt FROM ("
    "SELECT Buchungskreis || NSchl || ':' || StartWert || '/' || AktuellerWert || '/' || EndWert"
    " || '/' || Aktiviert AS Zeile FROM Nummernkreise"
    " UNION SELECT Buchungskreis || NSchl || Benutzer FROM Nummernkreis_Zuordnung"
    " UNION SELECT Buchungskreis || Beschreibung FROM Nummernkreis_Buchungskreise"
    " UNION SELECT U_NSchl || Aktiviert FROM Nummernkreis_Sonderkreise ORDER BY 1)";

void execute(const char* statement) {
  const Variant text(statement);
  openConnection().call("Execute", {&text});
}

std::string stored() {
  const Variant text(everything);
  const Variant column("Inhalt");
  LateBound rows(automation::toObject(openConnection().call("Execute", {&text}).get()));
  LateBound field(automation::toObject(rows.call("Fields", {&column}).get()));
  return automation::toText(field.call("Value").get());
}

std::wstring databaseFile() {
  const std::wstring connection = environment(L"VEXNUMKR_TEST_CONNECTION");
  const std::wstring_view key = L"Database=";
  return L"Z:" + connection.substr(connection.find(key) + key.size());
}

// Once it has been used the library stays, whatever has become of its objects.
HRESULT canUnloadNow() {
  const HMODULE library = GetModuleHandleW(L"VEXNumKr.dll");
  if (library == nullptr) return S_OK;
  return reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
      reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")))();
}

class Misuse : public testing::Test {
 protected:
  void SetUp() override {
    execute("REPLACE INTO Nummernkreis_Sonderkreise VALUES ('RP', 'RE', 'Proforma', -1, 'ORC')");
    execute(
        "REPLACE INTO Nummernkreise VALUES (0, 'RP', 'Proforma', 300, 300, 399, -1, 99, 'RE', "
        "NULL)");
    connection_ = LateBound();
    ASSERT_TRUE(CopyFileW(file_.c_str(), copy_.c_str(), FALSE));
    before_ = stored();
    objectsBefore_ = prankster_.objects();
    useOnce();
    calls_ = prankster_.heard();
    after_ = stored();
    ASSERT_FALSE(user_.wasTold());
    ASSERT_NE(after_.find(changedRange), std::string::npos);
  }

  void TearDown() override { EXPECT_TRUE(CopyFileW(copy_.c_str(), file_.c_str(), FALSE)); }

  /// The host connects, starts the component, shows the dialog to its user, and lets all go.
  void useOnce() {
    EXPECT_TRUE(CopyFileW(copy_.c_str(), file_.c_str(), FALSE));
    connection_ = openConnection();
    user_.startOver();
    prankster_.hearAnew();
    work();
    EXPECT_EQ(visibleDialog(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(host_.window()));
    EXPECT_EQ(canUnloadNow(), S_FALSE);
    connection_ = LateBound();
    EXPECT_EQ(prankster_.objects(), objectsBefore_);
  }

  VARIANT_BOOL init(_VXNummernkreise& numbers) {
    IDispatch* connection = connection_.object();
    VARIANT_BOOL isReady = VARIANT_FALSE;
    EXPECT_EQ(numbers.Init(&connection, 2, name_.get(), nullptr, &isReady), S_OK);
    return isReady;
  }

  /// Each call plays the prank, the first and the last of its kind; `check` is told of its name
  /// then.
  void playedInEach(const Prankster::Prank& prank,
                    const std::function<void(const std::string& call)>& check) {
    for (const auto& [call, count] : calls_) {
      playedIn(call, 1, prank, check);
      if (count > 1) playedIn(call, count, prank, check);
    }
  }

  /// The same where the call itself comes to nothing but that. An end cannot.
  void comesToNothing(HRESULT outcome, const std::function<void(const std::string& call)>& check) {
    std::erase_if(calls_, [](const auto& call) { return call.first.starts_with("end of "); });
    playedInEach([outcome] { return outcome; }, check);
  }

  /// Whoever was told of a failure has given up, and everything is as it was; else all is stored.
  void expectWhole() {
    const bool hasSaved = wasShown_ && !user_.wasTold();
    EXPECT_EQ(stored(), hasSaved ? after_ : before_);
  }
  std::function<void(const std::string&)> whole() {
    return [this](const std::string&) { expectWhole(); };
  }

  /// Each call does what it should, after the prank.
  void playedBesides(const std::function<void()>& prank) {
    playedInEach(
        [prank]() -> std::optional<HRESULT> {
          prank();
          return std::nullopt;
        },
        whole());
  }

  const Apartment apartment_;
  const automation::Bstr name_{std::string_view("Anna")};
  const std::wstring file_ = databaseFile();
  const std::wstring copy_ = file_ + L".before";
  LateBound connection_ = openConnection();
  Prankster prankster_;
  HostWindow host_;
  HastyUser user_{host_.window()};
  ComPtr<_VXNummernkreise> numbers_;
  bool wasShown_ = false;
  long objectsBefore_ = 0;
  std::string before_;
  std::string after_;
  std::map<std::string, int> calls_;

 private:
  void work() {
    numbers_ = createNumbers();
    const Prankster::Listening listening(prankster_);
    _VXNummernkreise* const bare = numbers_.Get();
    wasShown_ = init(*bare) != VARIANT_FALSE && numbers_ != nullptr;
    if (wasShown_) {
      EXPECT_EQ(bare->ShowDialog(), S_OK);
    }
    numbers_.Reset();
  }

  void playedIn(const std::string& call, int n, const Prankster::Prank& prank,
                const std::function<void(const std::string& call)>& check) {
    SCOPED_TRACE(testing::Message() << call << ", the " << n << ". time");
    prankster_.plan(call, n, prank);
    useOnce();
    EXPECT_TRUE(prankster_.wasPlayed());
    check(call);
  }
};

TEST_F(Misuse, ReachesAllThatTheComponentUses) {
  std::vector<std::string> heard;
  for (const auto& [call, count] : calls_) heard.push_back(call);
  EXPECT_EQ(heard, everyCall);
}

TEST_F(Misuse, ACallFails) { comesToNothing(E_FAIL, whole()); }

TEST_F(Misuse, AMemberIsNotThere) { comesToNothing(DISP_E_MEMBERNOTFOUND, whole()); }

// What a host only claims to have done is believed, and what it does not deliver is empty; the
// user's own change is stored all the same, or nothing is.
TEST_F(Misuse, ACallAnswersNothing) {
  comesToNothing(S_OK, [this](const std::string& call) {
    const std::string now = stored();
    if (call == "ADODB.Connection.BeginTrans" || call == "ADODB.Connection.CommitTrans")
      EXPECT_TRUE(now == before_ || now == after_) << now;
    else if (user_.wasTold())
      EXPECT_EQ(now, before_);
    else
      EXPECT_NE(now.find(changedRange), std::string::npos) << now;
  });
}

TEST_F(Misuse, ACallLetsTheComponentGo) {
  playedBesides([this] { numbers_.Reset(); });
}

TEST_F(Misuse, ACallShowsTheDialogOnceMore) {
  playedBesides([this] {
    if (numbers_ != nullptr) {
      EXPECT_EQ(numbers_->ShowDialog(), S_OK);
    }
  });
}

TEST_F(Misuse, ACallStartsTheComponentOnceMore) {
  playedBesides([this] {
    if (numbers_ != nullptr) {
      EXPECT_EQ(init(*numbers_.Get()), VARIANT_FALSE);
    }
  });
}

TEST_F(Misuse, ACallClosesTheConnection) {
  playedBesides([this] { connection_.call("Close"); });
}

TEST_F(Misuse, ACallTakesTheHostsMessages) {
  playedBesides([this] {
    const int ticks = host_.ticks();
    EXPECT_TRUE(handleMessagesUntil([&] { return host_.ticks() > ticks; }));
  });
}

}  // namespace
}  // namespace vexnumkr::test
