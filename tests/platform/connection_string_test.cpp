#include <gtest/gtest.h>

#include <random>
#include <regex>

#include <vexnumkr/connection_string.h>

#include "contract/database_language.h"

namespace vexnumkr {

using test::errorOf;

namespace {

/// What a connection string is, said once more with regular expressions.
std::vector<ConnectionPair> pairsByExpressions(const std::string& text) {
  static const std::regex entry("[; ]*([^;=]*)(;|$|=) *");
  static const std::regex enclosed("\"((?:[^\"]|\"\")*)\"(?!\") *(?=;|$)");
  static const std::regex unclosed("\"((?:[^\"]|\"\")*)$");
  static const std::regex plain("([^;]*?) *(?=;|$)");
  static const std::regex twoQuotes("\"\"");
  constexpr auto here = std::regex_constants::match_continuous;
  std::vector<ConnectionPair> pairs;
  std::smatch found;
  for (auto at = text.cbegin(); at != text.cend();) {
    EXPECT_TRUE(std::regex_search(at, text.cend(), found, entry, here));
    const std::string key = found[1];
    at = found[0].second;
    if (found[2] != "=") continue;
    const bool hasMarks = std::regex_search(at, text.cend(), found, enclosed, here) ||
                          std::regex_search(at, text.cend(), found, unclosed, here);
    if (!hasMarks) {
      EXPECT_TRUE(std::regex_search(at, text.cend(), found, plain, here));
    }
    const std::string value = found[1];
    pairs.push_back({std::string(trimBlanks(key)),
                     hasMarks ? std::regex_replace(value, twoQuotes, "\"") : value, 0, 0});
    at = found[0].second;
  }
  return pairs;
}

/// Texts made of what matters in connection strings.
class RandomTexts {
 public:
  explicit RandomTexts(unsigned seed) : random_(seed) {}

  std::string next() {
    static constexpr std::string_view pieces[] = {
        "Driver",    "=", "=",  ";",        ";",        "\"",       "\"",
        "\"\"",      " ", "{",  "}",        "'",        "PWD",      "pwd=",
        "Database=", "a", "b;", "password", "Options=", "\xC3\xA4", "\xFF"};
    std::string text;
    for (auto count = random_() % 16; count > 0; --count)
      text += pieces[random_() % std::size(pieces)];
    return text;
  }

 private:
  std::mt19937 random_;
};

std::string shown(const std::vector<ConnectionPair>& pairs) {
  std::string text;
  for (const ConnectionPair& pair : pairs) text += '<' + pair.key + '|' + pair.value + '>';
  return text;
}

}  // namespace

TEST(ConnectionString, NamesDriverAndDatabase) {
  const ConnectionSettings settings = parseConnectionString("Driver=QSQLITE;Database=/a/b.db");
  EXPECT_EQ(settings.driver, "QSQLITE");
  EXPECT_EQ(settings.database, "/a/b.db");
  EXPECT_EQ(settings.server, "");
  EXPECT_EQ(settings.port, 0);
  EXPECT_EQ(settings.user, "");
  EXPECT_EQ(settings.password, "");
}

TEST(ConnectionString, TakesKeysInAnyCaseAndOrder) {
  const ConnectionSettings settings = parseConnectionString(
      "pwd=geheim;UID=Max;options=sslmode=require;server=db.example;PORT=5432;dataBASE=firma;"
      "driver=QPSQL");
  EXPECT_EQ(settings, (ConnectionSettings{.driver = "QPSQL",
                                          .database = "firma",
                                          .server = "db.example",
                                          .port = 5432,
                                          .user = "Max",
                                          .password = "geheim",
                                          .options = "sslmode=require"}));
}

TEST(ConnectionString, IgnoresBlanksAndEmptyPairs) {
  const ConnectionSettings settings =
      parseConnectionString(" ; Driver = QSQLITE ;; Database =  /a b/c.db  ; ;");
  EXPECT_EQ(settings.driver, "QSQLITE");
  EXPECT_EQ(settings.database, "/a b/c.db");
}

TEST(ConnectionString, TakesValuesInQuotesAsTheyStand) {
  const auto database = [](const std::string& value) {
    return parseConnectionString("Driver=QSQLITE;Database=" + value + ";UID=x").database;
  };
  EXPECT_EQ(database("\"/a;b.db\""), "/a;b.db");
  EXPECT_EQ(database(" \"  /a \" "), "  /a ");
  EXPECT_EQ(database("\"a \"\"b\"\" c\""), "a \"b\" c");
  EXPECT_EQ(database("\"\"\"\""), "\"");
  EXPECT_EQ(database("\"a=b\""), "a=b");
}

TEST(ConnectionString, TakesOtherValuesAsTheyStandToo) {
  const auto database = [](const std::string& value) {
    return parseConnectionString("Driver=QSQLITE;Database=" + value).database;
  };
  EXPECT_EQ(database("a=b=c"), "a=b=c");
  EXPECT_EQ(database("a\"b\"c"), "a\"b\"c");
  EXPECT_EQ(database("/Größe/ß€.db"), "/Größe/ß€.db");
  EXPECT_EQ(database(":memory:"), ":memory:");
}

TEST(ConnectionString, AllowsAnEmptyPassword) {
  EXPECT_EQ(parseConnectionString("Driver=A;Database=b;PWD=;UID=\"\"").password, "");
}

TEST(ConnectionString, SaysWhatIsWrong) {
  const auto text = [](const std::string& malformed) {
    const Error error = errorOf([&] { parseConnectionString(malformed); });
    EXPECT_EQ(error.number(), 3001);
    return error.description();
  };
  const std::string prefix = "Verbindungszeichenfolge: ";
  EXPECT_EQ(text(""), prefix + "Der Schlüssel Driver fehlt.");
  EXPECT_EQ(text("Database=b"), prefix + "Der Schlüssel Driver fehlt.");
  EXPECT_EQ(text("Driver=A"), prefix + "Der Schlüssel Database fehlt.");
  EXPECT_EQ(text("Driver=A;Database= "), prefix + "Der Schlüssel Database fehlt.");
  EXPECT_EQ(text("Driver=A;/a/b.db"), prefix + "In Eintrag 2 fehlt das Gleichheitszeichen.");
  EXPECT_EQ(text("Driver=A;Datei;Database=b"),
            prefix + "In Eintrag 2 fehlt das Gleichheitszeichen.");
  EXPECT_EQ(text("Driver=A;Datei=b"),
            prefix +
                "Eintrag 2 hat einen unbekannten Schlüssel; erlaubt "
                "sind Driver, Database, Server, Port, UID, PWD und Options.");
  EXPECT_EQ(text("Driver=A;Database=b;DRIVER=c"),
            prefix + "Der Schlüssel Driver kommt mehrmals vor.");
  EXPECT_EQ(text("Driver=A;Database=\"b"),
            prefix + "Der Wert von Database hat kein schließendes Anführungszeichen.");
  EXPECT_EQ(text("Driver=A;Database=\"b\"\""),
            prefix + "Der Wert von Database hat kein schließendes Anführungszeichen.");
  EXPECT_EQ(text("Driver=A;Database=\"b\"c;UID=x"),
            prefix + "Hinter dem schließenden Anführungszeichen von Database steht weiterer Text.");
  EXPECT_EQ(text(std::string("Driver=A;Database=b\0c", 20)),
            prefix + "Nullzeichen sind nicht erlaubt.");
  for (const char* const port :
       {"", "0", "-1", "65536", "12a", "+1", "1.5", "99999999999999999999"})
    EXPECT_EQ(text(std::string("Driver=A;Database=b;Port=") + port),
              prefix + "Port muss eine Zahl von 1 bis 65535 sein.");
}

std::string serversIn(const std::string& server, std::uint16_t port = 0) {
  std::string text;
  ConnectionSettings settings;
  settings.server = server;
  settings.port = port;
  for (const ServerAddress& address : serverAddresses(settings))
    text += (text.empty() ? "" : " | ") + address.server + " " + std::to_string(address.port);
  return text;
}

TEST(ConnectionString, NamesOneServerOrSeveral) {
  EXPECT_EQ(serversIn(""), " 0");
  EXPECT_EQ(serversIn("db", 3306), "db 3306");
  EXPECT_EQ(serversIn("db:3307", 3306), "db 3307");
  EXPECT_EQ(serversIn("a:1, b ,c:65535", 7), "a 1 | b 7 | c 65535");
  EXPECT_EQ(serversIn("/run/a:5,/run/b"), "/run/a:5 0 | /run/b 0");
  EXPECT_EQ(serversIn("fd00::3"), "fd00::3 0");
  EXPECT_EQ(serversIn("[fd00::3]:3307,[fd00::4]", 1), "fd00::3 3307 | fd00::4 1");
}

TEST(ConnectionString, SaysWhichServersAreNone) {
  const auto text = [](const std::string& servers) {
    return errorOf([&] { parseConnectionString("Driver=A;Database=b;Server=" + servers); })
        .description();
  };
  for (const char* const servers : {",", "a,", ",a", "a,,b", "a, ,b", "a,:1"})
    EXPECT_EQ(text(servers),
              "Verbindungszeichenfolge: In der Aufzählung der Server fehlt ein Name.")
        << servers;
  for (const char* const servers : {"a:", "a:0", "a:x,b", "a,b:65536", "[::1]:", "a,[::1]:x"})
    EXPECT_EQ(
        text(servers),
        "Verbindungszeichenfolge: Der Port eines Servers muss eine Zahl von 1 bis 65535 sein.")
        << servers;
}

TEST(ConnectionString, NeverRepeatsAPassword) {
  for (const char* const malformed :
       {"Driver=A;PWD=ge;heim", "Driver=A;PWD=ge;heim=x;Database=b", "Driver=A;PWD=heim;PWD=heim",
        "Driver=A;PWD=\"heim", "Driver=A;PWD=\"ge\"heim;Database=b", "PWD=heim",
        "Driver=A;Database=b;Port=1;PWD=ge;Port=heim"}) {
    const Error error = errorOf([&] { parseConnectionString(malformed); });
    EXPECT_EQ(error.description().find("heim"), std::string::npos) << error.description();
  }
}

TEST(ConnectionString, IsComposedOfWhatIsSet) {
  ConnectionSettings file;
  file.driver = "QSQLITE";
  file.database = "/a/b.db";
  EXPECT_EQ(composeConnectionString(file), "Driver=QSQLITE;Database=/a/b.db");
  EXPECT_EQ(composeConnectionString({.driver = "QPSQL",
                                     .database = "firma",
                                     .server = "db",
                                     .port = 5432,
                                     .user = "Max",
                                     .password = "a;b\"c "}),
            "Driver=QPSQL;Database=firma;Server=db;Port=5432;UID=Max;PWD=\"a;b\"\"c \"");
}

TEST(ConnectionString, ComposedTextsParseToTheSameSettings) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const std::string characters = "ab;\"= '\\ä";
  const auto word = [&](std::size_t least) {
    std::string text;
    for (std::size_t length = least + random() % 6; text.size() < length;)
      text += characters[random() % characters.size()];
    return text;
  };
  for (int i = 0; i < 2000; ++i) {
    const ConnectionSettings settings{.driver = word(1),
                                      .database = word(1),
                                      .server = word(0),
                                      .port = static_cast<std::uint16_t>(random()),
                                      .user = word(0),
                                      .password = word(0),
                                      .options = word(0)};
    const std::string text = composeConnectionString(settings);
    EXPECT_EQ(parseConnectionString(text), settings) << text;
  }
}

TEST(ConnectionString, WhateverItIsItIsReadToItsEnd) {
  for (const char* const text : {"\"\"a;b", "\"Driver=QSQLITE\";Database=x;abc", "=", ";=;", "a",
                                 "a=\"", "a=\"\"\"", "a={;"})
    EXPECT_EQ(shown(connectionPairs(text)), shown(pairsByExpressions(text))) << text;
}

TEST(ConnectionString, PairsArePassedOverWhereTheyAreNone) {
  EXPECT_EQ(shown(connectionPairs(";;quatsch;Driver=X; UID = u ;")), "<Driver|X><UID|u>");
  EXPECT_EQ(shown(connectionPairs("A=\"b\"c;D=e")), "<A|\"b\"c><D|e>");
}

TEST(ConnectionString, OthersHaveOtherMarks) {
  const char* const text = "A={b;}}c} ;D='e;f'";
  EXPECT_EQ(shown(connectionPairs(text)), "<A|{b><D|'e>");
  EXPECT_EQ(shown(connectionPairs(text, ConnectionSyntax::odbc)), "<A|b;}c><D|'e>");
  EXPECT_EQ(shown(connectionPairs(text, ConnectionSyntax::oleDb)), "<A|b;}c><D|e;f>");
  EXPECT_EQ(shown(connectionPairs("PWD={geheim;UID=u", ConnectionSyntax::odbc)),
            "<PWD|{geheim><UID|u>");
}

TEST(ConnectionString, ValuesAreFoundByKeysInAnyCase) {
  EXPECT_EQ(connectionValue("driver=X; DATABASE = /a b/c.db ;Database=y", "Database"), "/a b/c.db");
  EXPECT_EQ(connectionValue("Driver=X", "PWD"), "");
}

TEST(ConnectionString, NamesASqliteFile) {
  EXPECT_EQ(sqliteConnectionString("/tmp/a.db"), "Driver=QSQLITE;Database=/tmp/a.db");
  EXPECT_EQ(sqliteConnectionString("/tmp/a;b.db"), "Driver=QSQLITE;Database=\"/tmp/a;b.db\"");
}

TEST(ConnectionString, AnyTextIsReadAsTheModelReadsIt) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomTexts texts(seed);
  for (int i = 0; i < 20'000; ++i) {
    const std::string text = texts.next();
    const std::vector<ConnectionPair> pairs = connectionPairs(text);
    ASSERT_EQ(shown(pairs), shown(pairsByExpressions(text))) << text;
    for (const ConnectionPair& pair : pairs) {
      ASSERT_LE(pair.begin, pair.end) << text;
      ASSERT_LE(pair.end, text.size()) << text;
    }
  }
}

TEST(ConnectionString, WhatIsReadStrictlyIsReadAlike) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomTexts texts(seed);
  int strict = 0;
  for (int i = 0; i < 5'000; ++i) {
    const std::string text = "Driver=D;Database=b;" + texts.next();
    try {
      const ConnectionSettings settings = parseConnectionString(text);
      ++strict;
      ASSERT_EQ(settings.password, connectionValue(text, "PWD")) << text;
      ASSERT_EQ(settings.options, connectionValue(text, "Options")) << text;
    } catch (const Error& error) {
      ASSERT_EQ(error.number(), 3001) << text;
    }
  }
  EXPECT_GT(strict, 50);
}

}  // namespace vexnumkr
