#include "app/components/settings_store.h"

#include <gtest/gtest.h>

#include <QFile>

#include <vexnumkr/error.h>

#include "app/sample_database.h"
#include "support/faults/engine_waits.h"
#include "support/other_writer.h"

namespace vexnumkr::app {
namespace {

using test::Row;

class Settings : public testing::Test {
 protected:
  Settings() { store_.Init(0, *connection_); }

  std::string get(const std::string& key, const std::string& fallback = "?") {
    std::string value = "untouched";
    store_.GetSetting("Buchungskreise", key, value, "Standard", "Standard", fallback);
    return value;
  }

  void save(const std::string& key, const std::string& value) {
    store_.SaveSetting("Buchungskreise", key, value, "Standard");
  }

  std::string ownFile() const { return database_.folder() + "/firma-einstellungen.db"; }
  bool ownFileExists() const { return QFile::exists(QString::fromStdString(ownFile())); }
  std::vector<Row> stored() const {
    return test::rowsOf(ownFile(), "SELECT * FROM Einstellungen ORDER BY rowid");
  }

  test::SampleDatabase database_;
  std::shared_ptr<Connection> connection_ = database_.connect();
  TableSettings store_;
};

TEST_F(Settings, HaveTheirDefaultsAndNoFileAtFirst) {
  EXPECT_EQ(get("OnNewAN", "0"), "0");
  EXPECT_EQ(get("OnNewAN", ""), "");
  EXPECT_FALSE(ownFileExists());
}

TEST_F(Settings, LieInATableBesideTheDatabase) {
  save("ONNewAN", "1");
  EXPECT_EQ(stored(),
            (std::vector<Row>{{"Buchungskreise", "ONNewAN", "Standard", "Standard", "1"}}));
  EXPECT_EQ(database_.rows("SELECT name FROM sqlite_master WHERE name='Einstellungen'"),
            std::vector<Row>{});
  EXPECT_EQ(test::rowsOf(ownFile(), "SELECT name FROM pragma_table_info('Einstellungen')"),
            (std::vector<Row>{{"Bereich"}, {"Schluessel"}, {"Profil"}, {"Benutzer"}, {"Wert"}}));
}

TEST_F(Settings, AreFoundUnderAnySpelling) {
  save("ONNewAN", "1");
  EXPECT_EQ(get("OnNewAN"), "1");
  EXPECT_EQ(get("onnewan"), "1");
  EXPECT_EQ(get("ONNewAB"), "?");
}

TEST_F(Settings, KeepTheSpellingStoredFirst) {
  save("OnNewÄn", "0");
  save("ONNEWÄN", "1");
  EXPECT_EQ(stored(),
            (std::vector<Row>{{"Buchungskreise", "OnNewÄn", "Standard", "Standard", "1"}}));
}

TEST_F(Settings, AreSeenByTheNextStore) {
  save("ONNewBS", "1");
  TableSettings next;
  next.Init(0, *connection_);
  std::string value;
  next.GetSetting("Buchungskreise", "OnNewBS", value, "Standard", "Standard", "0");
  EXPECT_EQ(value, "1");
}

TEST_F(Settings, TakeTextsAsTheyAre) {
  for (const std::string text : {"it's", "'; DROP TABLE Einstellungen; --", " ä ", ""}) {
    save("Text", text);
    EXPECT_EQ(get("text"), text);
  }
}

TEST_F(Settings, TellSectionsProfilesAndUsersApart) {
  save("Farbe", "1");
  store_.SaveSetting("Anderes", "Farbe", "2", "Standard");
  store_.SaveSetting("Buchungskreise", "Farbe", "3", "Messe");
  EXPECT_EQ(get("Farbe"), "1");
  std::string value;
  store_.GetSetting("anderes", "Farbe", value, "Standard", "Standard", "?");
  EXPECT_EQ(value, "2");
  store_.GetSetting("Buchungskreise", "Farbe", value, "Messe", "Standard", "?");
  EXPECT_EQ(value, "3");
  store_.GetSetting("Buchungskreise", "Farbe", value, "Standard", "Becker", "?");
  EXPECT_EQ(value, "?");
}

TEST_F(Settings, AreSavedWhileTheDatabaseHasItsWriter) {
  const auto dialog = database_.connect();
  std::int32_t changed = 0;
  dialog->BeginTrans();
  dialog->Execute("DELETE FROM tblUser", changed);
  save("ONNewAN", "1");
  dialog->RollbackTrans();
  EXPECT_EQ(get("OnNewAN"), "1");
}

TEST_F(Settings, AreMadeWhenAnotherStoreHasMadeTheFileMeanwhile) {
  TableSettings other;
  other.Init(0, *connection_);
  other.SaveSetting("Buchungskreise", "A", "1", "Standard");
  save("B", "2");
  EXPECT_EQ(stored().size(), 2U);
  EXPECT_EQ(get("A"), "1");
}

TEST_F(Settings, OfAFolderThatIsNotWritableFailByNumber) {
  QFile::rename(QString::fromStdString(database_.folder()),
                QString::fromStdString(database_.folder() + "x"));
  try {
    save("A", "1");
    ADD_FAILURE() << "saved without a folder";
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 75);
  }
  QFile::rename(QString::fromStdString(database_.folder() + "x"),
                QString::fromStdString(database_.folder()));
}

TEST_F(Settings, OfAFileThatIsNoDatabaseFail) {
  QFile file(QString::fromStdString(ownFile()));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray(4096, 'x'));
  file.close();
  EXPECT_EQ(get("A", "0"), "0");
  EXPECT_THROW(save("A", "1"), Error);
}

class Told final : public LockWait {
 public:
  explicit Told(test::OtherWriter& other) : other_(other) {}
  void Begins() override { ++waits; }
  void Lasts() override {
    if (!released_) other_.release();
    released_ = true;
  }
  void Ends() noexcept override {}

  int waits = 0;

 private:
  test::OtherWriter& other_;
  bool released_ = false;
};

TEST_F(Settings, TellOfTheirWaitsWhoeverIsToldOfThoseOfTheConnection) {
  save("A", "1");
  test::OtherWriter other(ownFile());
  Told told(other);
  connection_->OnLockWait(&told);
  store_.Init(0, *connection_);
  save("A", "2");
  EXPECT_EQ(told.waits, 1);
  EXPECT_EQ(get("A"), "2");
}

// Once for all settings, and what could not be read is not overwritten by what is shown instead.
TEST_F(Settings, OfALockedFileFailAtTheBeginningAndAreLeftAlone) {
  constexpr std::int32_t busy = 5;
  constexpr std::int32_t objectNotSet = 91;
  const auto numberOf = [](const std::function<void()>& call) {
    try {
      call();
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  };
  save("A", "1");
  test::OtherWriter other(ownFile(), "EXCLUSIVE");
  const test::EngineWaits waits;
  EXPECT_EQ(numberOf([&] { store_.Init(0, *connection_); }), busy);
  EXPECT_EQ(numberOf([&] { get("A"); }), objectNotSet);
  EXPECT_EQ(numberOf([&] { save("A", "0"); }), objectNotSet);
  EXPECT_EQ(waits.milliseconds(), 5000);
  other.release();
  EXPECT_EQ(numberOf([&] { save("A", "0"); }), objectNotSet);
  store_.Init(0, *connection_);
  EXPECT_EQ(get("A"), "1");
}

TEST_F(Settings, OfADatabaseInMemoryLieInIt) {
  const auto memory = connection_->createConnection();
  memory->ConnectionString("Driver=QSQLITE;Database=:memory:");
  memory->Open("", "", ado::unspecified);
  TableSettings store;
  store.Init(0, *memory);
  store.SaveSetting("S", "K", "V", "Standard");
  std::string value;
  store.GetSetting("s", "k", value, "Standard", "Standard", "");
  EXPECT_EQ(value, "V");
}

TEST(UnboundSettings, Fail) {
  TableSettings store;
  std::string value;
  EXPECT_THROW(store.GetSetting("S", "K", value, "Standard", "Standard", ""), Error);
  EXPECT_THROW(store.SaveSetting("S", "K", "V", "Standard"), Error);
}

TEST(SettingsFile, LiesBesideTheDatabase) {
  EXPECT_EQ(settingsFile("/daten/firma.db"), "/daten/firma-einstellungen.db");
  EXPECT_EQ(settingsFile("/daten.alt/firma"), "/daten.alt/firma-einstellungen");
  EXPECT_EQ(settingsFile("/daten/firma.2026.db"), "/daten/firma.2026-einstellungen.db");
  EXPECT_EQ(settingsFile("firma.db"), "./firma-einstellungen.db");
}

}  // namespace
}  // namespace vexnumkr::app
