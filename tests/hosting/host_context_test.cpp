#include "hosting/host_context.h"

#include "data/booking_circles.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using Lines = std::vector<std::string>;

class HostContextTest : public test::CoreSession {};

TEST_F(HostContextTest, TheOriginFollowsTheApplicationCodeAtOnce) {
  EXPECT_EQ(context().Herkunft(), "") << "before anything was handed over";
  const struct {
    std::int32_t application;
    const char* own;
    const char* other;
  } codes[] = {{1, "ORB", "ORC"}, {2, "ORC", "ORB"}, {0, "", ""},
               {3, "", ""},       {-1, "", ""},      {1, "ORB", "ORC"}};
  for (const auto& code : codes) {
    context().LngApplication(code.application);
    EXPECT_EQ(context().Herkunft(), code.own) << code.application;
    EXPECT_EQ(context().andereHerkunft(), code.other) << code.application;
  }
}

TEST_F(HostContextTest, WithoutOriginEveryFilterAsksForNone) {
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

TEST_F(HostContextTest, BeforeInitEverythingIsEmpty) {
  EXPECT_EQ(context().LngApplication(), 0);
  EXPECT_EQ(context().strUser(), "");
  EXPECT_EQ(context().strVerarbeitungsdatum(), "");
  EXPECT_EQ(context().strFilterUser(), "");
  EXPECT_EQ(context().strFilterBuchungskreis(), "");
  EXPECT_FALSE(context().blnChanged());
  EXPECT_EQ(context().sharedConn(), nullptr);
}

TEST_F(HostContextTest, AnObjectThatIsNotThereRaisesError91) {
  EXPECT_EQ(errorOf([this] { context().Conn(); }), 91);
  EXPECT_EQ(errorOf([this] { context().colUser(); }), 91);
  EXPECT_EQ(errorOf([this] { context().ConnWork(); }), 91);
  EXPECT_EQ(errorOf([this] { context().cmdSQL(); }), 91);
  EXPECT_EQ(errorOf([this] { context().XArray(); }), 91);
  EXPECT_EQ(errorOf([this] { context().Buchungskreise(); }), 91);
  EXPECT_EQ(errorOf([this] { context().dlgBuchungskreise(); }), 91);
  EXPECT_EQ(errorOf([this] { context().sftNummernkreise(); }), 91);
}

TEST_F(HostContextTest, FieldsKeepWhatWasStored) {
  context().strUser("Max");
  context().strVerarbeitungsdatum("31.12.2025");
  context().strFilterUser("Anna");
  context().strFilterBuchungskreis("Nord");
  context().blnChanged(true);
  context().Conn(hostConnection());
  EXPECT_EQ(context().strUser(), "Max");
  EXPECT_EQ(context().strVerarbeitungsdatum(), "31.12.2025");
  EXPECT_EQ(context().strFilterUser(), "Anna");
  EXPECT_EQ(context().strFilterBuchungskreis(), "Nord");
  EXPECT_TRUE(context().blnChanged());
  EXPECT_EQ(context().sharedConn(), hostConnection());
}

}  // namespace
}  // namespace vexnumkr
