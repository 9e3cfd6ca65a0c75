#include "hosting/session.h"

#include "data/booking_circles.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using Lines = std::vector<std::string>;

class SessionTest : public test::CoreSession {};

TEST_F(SessionTest, TheOriginFollowsTheApplicationCodeAtOnce) {
  EXPECT_EQ(session().Herkunft(), "") << "before anything was handed over";
  const struct {
    std::int32_t application;
    const char* own;
    const char* other;
  } codes[] = {{1, "ORB", "ORC"}, {2, "ORC", "ORB"}, {0, "", ""},
               {3, "", ""},       {-1, "", ""},      {1, "ORB", "ORC"}};
  for (const auto& code : codes) {
    session().LngApplication(code.application);
    EXPECT_EQ(session().Herkunft(), code.own) << code.application;
    EXPECT_EQ(source().origin().andereHerkunft(), code.other) << code.application;
  }
}

TEST_F(SessionTest, WithoutOriginEveryFilterAsksForNone) {
  for (const std::int32_t application : {0, 3}) {
    start(application);
    const Lines sent = script().takeStatements();
    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent.back(),
              "conn: SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise WHERE "
              "Herkunft=''");
  }
}

template <class Getter>
std::int32_t errorOf(Getter get) {
  try {
    get();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

TEST_F(SessionTest, BeforeInitEverythingIsEmpty) {
  EXPECT_EQ(session().LngApplication(), 0);
  EXPECT_EQ(session().strUser(), "");
  EXPECT_EQ(session().strVerarbeitungsdatum(), "");
  EXPECT_FALSE(session().blnChanged());
  EXPECT_EQ(session().sharedConn(), nullptr);
}

TEST_F(SessionTest, AnObjectThatIsNotThereRaisesError91) {
  EXPECT_EQ(errorOf([this] { session().Conn(); }), 91);
  EXPECT_EQ(errorOf([this] { session().colUser(); }), 91);
  EXPECT_EQ(errorOf([this] { session().source().ConnWork(); }), 91);
  EXPECT_EQ(errorOf([this] { session().source().cmdSQL(); }), 91);
  EXPECT_EQ(errorOf([this] { session().XArray().size(); }), 91);
  EXPECT_EQ(errorOf([this] { session().Buchungskreise().size(); }), 91);
  EXPECT_EQ(errorOf([this] { session().dlgBuchungskreise(); }), 91);
}

TEST_F(SessionTest, StatementsOfTheComponentGoThroughTheGuardAndTheHostsDoNot) {
  session().Conn(hostConnection());
  EXPECT_EQ(session().sharedConn(), hostConnection());
  EXPECT_EQ(errorOf([this] {
              std::int32_t affected = 0;
              session().Conn().Execute("DELETE FROM Nummernkreise", affected);
            }),
            3001);
  EXPECT_EQ(errorOf([this] {
              std::int32_t affected = 0;
              session().sharedConn()->Execute("DELETE FROM Nummernkreise", affected);
            }),
            0);
}

}  // namespace
}  // namespace vexnumkr
