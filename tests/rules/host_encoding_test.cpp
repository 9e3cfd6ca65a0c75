// Hosts that talk to their server in another encoding than UTF-8, and texts that are in none: what
// a save reports as stored reads the same to everybody, and otherwise nothing is stored.
#include "rules/saving_session.h"

namespace vexnumkr::test {
namespace {

class HostEncodingTest : public SavingSession {
 protected:
  void SetUp() override {
    company();
    editedTable();
    before_ = stored();
  }

  void describe(const std::string& text) {
    change(table().findCircle(2), [&](RangeRow& row) { row.NBezeichnung = table().text(text); });
    table().sort(RowOrder::display);
  }
  // As the host may have set it on the connection that it hands over.
  void speak(const std::string& encoding) {
    session().rollBackTransaction();
    std::int32_t affected = 0;
    realConnection(*hostConnection())
        .Execute(
            (database().schema() == "mariadb" ? "SET NAMES " : "SET client_encoding = ") + encoding,
            affected);
    session().beginTransaction();
  }
  std::string describedAs() {
    return select("SELECT NBezeichnung FROM Nummernkreise WHERE Buchungskreis = 2").at(0);
  }
  Texts encodings() {
    return database().schema() == "mariadb" ? Texts{"latin1", "gbk", "cp1250"}
                                            : Texts{"LATIN1", "GBK", "WIN1250"};
  }
  std::string unicode() { return database().schema() == "mariadb" ? "utf8mb4" : "'UTF8'"; }

  Texts before_;
};

TEST_F(HostEncodingTest, PlainTextsAreStoredInAnyEncoding) {
  int nr = 0;
  for (const std::string& encoding : encodings()) {
    const std::string text = "Rechnung " + std::to_string(++nr);
    describe(text);
    session().blnChanged(true);
    speak(encoding);
    EXPECT_TRUE(save()) << encoding;
    EXPECT_EQ(boxes(), std::vector<Box>{});
    EXPECT_EQ(describedAs(), text);
    session().beginTransaction();
  }
}

TEST_F(HostEncodingTest, OtherTextsAreStoredAsTheyAreOrNothingIs) {
  const std::string text = "Geb\xC3\xBChr \xE2\x82\xAC \xC5\x81";
  for (const std::string& encoding : encodings()) {
    describe(text);
    speak(encoding);
    if (save()) {
      EXPECT_EQ(describedAs(), text) << encoding;
      EXPECT_EQ(boxes(), std::vector<Box>{});
      session().beginTransaction();
      session().blnChanged(true);
    } else {
      EXPECT_EQ(boxes().size(), 1U) << encoding;
      EXPECT_EQ(stored(), before_) << encoding;
    }
  }
  speak(unicode());
  EXPECT_TRUE(save());
  EXPECT_EQ(describedAs(), text);
}

TEST_F(HostEncodingTest, ATextThatIsNoUtf8IsNeverStored) {
  for (const char* const text :
       {"Geb\xFChr", "\xED\xA0\x80", "\xC3", "Rechnung \xF5\x80\x80\x80"}) {
    describe(text);
    EXPECT_FALSE(save()) << text;
    EXPECT_EQ(boxes().size(), 1U) << text;
    EXPECT_EQ(stored(), before_) << text;
  }
  describe("Gebühr");
  EXPECT_TRUE(save());
  EXPECT_EQ(describedAs(), "Gebühr");
}

}  // namespace
}  // namespace vexnumkr::test
