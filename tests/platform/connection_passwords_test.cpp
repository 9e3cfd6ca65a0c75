#include <gtest/gtest.h>

#include <random>

#include <vexnumkr/connection_string.h>

namespace vexnumkr {

TEST(Passwords, AreMaskedWhereverTheyStand) {
  const std::string connection = "Driver=QPSQL;UID=u;PWD=geheim";
  EXPECT_EQ(withoutPasswords("geheim ist geheim", connection), "*** ist ***");
  EXPECT_EQ(withoutPasswords("alles gut", connection), "alles gut");
  EXPECT_EQ(withoutPasswords("ohne Kennwort", "Driver=QSQLITE"), "ohne Kennwort");
  EXPECT_EQ(withoutPasswords("", connection), "");
}

TEST(Passwords, OfOneOrTwoLettersAreMaskedOnlyBehindTheirKey) {
  for (const std::string password : {"a", "ab", "ä", "üö", "\"a\"", "*"}) {
    const std::string connection = "Driver=QPSQL;Database=abba;UID=ab;PWD=" + password;
    EXPECT_EQ(withoutPasswords("a table, ab, ä, üö, * is not \"a\"", connection),
              "a table, ab, ä, üö, * is not \"a\"");
    EXPECT_EQ(withoutPasswords("kein " + connection + ";x", connection),
              "kein Driver=QPSQL;Database=abba;UID=ab;PWD=***;x");
    EXPECT_EQ(withoutPasswords("password = " + password, connection), "password = ***");
  }
  EXPECT_EQ(withoutPasswords("PWD=abc", "PWD=ab"), "PWD=abc") << "that is another one";
}

TEST(Passwords, OfSeveralWordsAreMaskedAsAWholeAndWordByWord) {
  const std::string connection = "Driver=QPSQL;Database=b;Options=\"password=mein geheimwort\"";
  EXPECT_EQ(withoutPasswords("mein geheimwort!", connection), "***!");
  EXPECT_EQ(withoutPasswords("missing \"=\" after \"geheimwort\"", connection),
            "missing \"=\" after \"***\"");
  EXPECT_EQ(withoutPasswords("after \"xy\" xy", "Options=\"password=mein xy\""),
            "after \"***\" xy");
  EXPECT_EQ(maskedConnectionString(connection), "Driver=QPSQL;Database=b;Options=\"password=***\"");
}

TEST(Passwords, AmongOptionsAreFoundWhateverSeparatesThem) {
  EXPECT_EQ(maskedConnectionString("Options=\"sslmode=require password=mein wort\""),
            "Options=\"sslmode=require password=***\"");
  EXPECT_EQ(maskedConnectionString("Options=\"a=b;sslpassword=x;c=d\";UID=u"),
            "Options=\"a=b;sslpassword=***;c=d\";UID=u");
}

TEST(Passwords, AreMaskedInOdbcConnectionStringsToo) {
  const std::string connection =
      "Driver=QODBC;Database=\"DRIVER={X};Server=s;Pwd={ge;heim};UID=u\";PWD=auch";
  EXPECT_EQ(withoutPasswords("ge;heim und auch", "Driver=QODBC;PWD=auch"), "ge;heim und ***");
  EXPECT_EQ(withoutPasswords("auch", connection), "***");
  EXPECT_EQ(withoutPasswords("geheim", "Driver=QODBC;Database=\"DSN=x;Password=geheim\""), "***");
  EXPECT_EQ(maskedConnectionString(connection),
            "Driver=QODBC;Database=\"DRIVER={X};Server=s;Pwd=***;UID=u\";PWD=***");
}

TEST(Passwords, InBracesAreMaskedAsAWhole) {
  for (const char* const connection :
       {"Driver=QODBC;Database=\"DRIVER={X};Server=s;Pwd={ge;h}}eim};UID=u\"",
        "Driver=QODBC;Database=DSN=x;PWD={ge;h}}eim};UID=u",
        "Driver=QODBC;Database=DSN=x;Options=\"PWD={ge;h}}eim};UID=u\""}) {
    EXPECT_EQ(withoutPasswords("-ge;h}eim-", connection), "-***-") << connection;
    EXPECT_EQ(withoutPasswords("-{ge;h}}eim}-", connection), "-***-") << connection;
    EXPECT_EQ(withoutPasswords(connection, connection).find("eim"), std::string::npos)
        << connection;
    EXPECT_EQ(maskedConnectionString(connection).find("eim"), std::string::npos) << connection;
  }
  EXPECT_EQ(withoutPasswords("geheim", "Driver=QMYSQL;Options=PWD=geheim"), "***");
}

TEST(Passwords, MayBeginWithABraceThatNothingCloses) {
  EXPECT_EQ(withoutPasswords("{geheim u", "Driver=QPSQL;PWD={geheim;UID=u"), "*** u");
}

TEST(Passwords, MayHoldQuotesWithinQuotes) {
  const std::string connection = "Driver=QODBC;Database=\"DSN=x;PWD=ge\"\"heim\"";
  const std::string masked = "Driver=QODBC;Database=\"DSN=x;PWD=***\"";
  EXPECT_EQ(withoutPasswords(connection, connection), masked);
  EXPECT_EQ(maskedConnectionString(connection), masked);
}

TEST(Passwords, ThatLackTheirQuotesAreMaskedToTheNextKnownKey) {
  EXPECT_EQ(maskedConnectionString("Driver=A;PWD=ge;heim;UID=u"), "Driver=A;PWD=***;UID=u");
  EXPECT_EQ(maskedConnectionString("Driver=A;PWD=ge;he=im"), "Driver=A;PWD=***");
  EXPECT_EQ(maskedConnectionString("Driver=A;PWD=ge;he\"password=im;UID=u"),
            "Driver=A;PWD=***;UID=u");
  EXPECT_EQ(maskedConnectionString("Driver=A;PWD=\"ge;heim"), "Driver=A;PWD=***");
  EXPECT_EQ(maskedConnectionString("Driver=A;PWD=\"ge\"heim;UID=u"), "Driver=A;PWD=***;UID=u");
}

TEST(Passwords, OfOleDbAreFoundAsWell) {
  EXPECT_EQ(maskedConnectionString("Provider=X;Jet OLEDB:Database Password='a;b';User ID=u"),
            "Provider=X;Jet OLEDB:Database Password=***;User ID=u");
  EXPECT_EQ(maskedConnectionString("Provider=MSDASQL;Extended Properties=\"Driver={X};PWD=ab\""),
            "Provider=MSDASQL;Extended Properties=\"Driver={X};PWD=***\"");
}

TEST(Passwords, TheirRangesLieInTheText) {
  EXPECT_EQ(passwordRanges("PWD=ab;UID=u"), (std::vector<TextRange>{{4, 6}}));
  EXPECT_EQ(passwordRanges("PWD=;UID=u"), std::vector<TextRange>{});
  EXPECT_EQ(passwordRanges("PWD=\"a\";Options=\"pwd=b\""),
            (std::vector<TextRange>{{4, 7}, {21, 22}}));
}

TEST(Passwords, ADeeplyNestedTextIsReadInNoTime) {
  std::string text;
  for (int i = 0; i < 20'000; ++i) text += "a=";
  EXPECT_EQ(passwordRanges(text + "PWD=x").size(), 1U);
}

TEST(Passwords, NoComposedStringShowsOne) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const std::string characters = "ab;\"= '{}";
  const auto word = [&] {
    std::string text;
    for (auto length = random() % 6; text.size() < length;)
      text += characters[random() % characters.size()];
    return text;
  };
  for (int i = 0; i < 5'000; ++i) {
    const std::string secret = word() + "GEHEIM" + word();
    const std::string odbc = "DSN=x;PWD={" + [&] {
      std::string doubled;
      for (const char c : secret) doubled.append(c == '}' ? 2 : 1, c);
      return doubled;
    }() + "};UID=u";
    for (const ConnectionSettings& settings :
         {ConnectionSettings{.driver = "A", .database = word() + "b", .password = secret},
          ConnectionSettings{.driver = "A", .database = odbc, .options = word()}}) {
      const std::string text = composeConnectionString(settings);
      ASSERT_EQ(maskedConnectionString(text).find("GEHEIM"), std::string::npos) << text;
      ASSERT_EQ(withoutPasswords("a " + text + " b", text).find("GEHEIM"), std::string::npos)
          << text;
      ASSERT_EQ(withoutPasswords("<" + secret + ">", text), "<***>") << text;
    }
  }
}

TEST(Passwords, AnyTextHasItsRangesInOrder) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  static constexpr std::string_view pieces[] = {"PWD=", "password", "=",    ";", "\"", "{",
                                                "}",    "'",        "\"\"", "a", " ",  "Options="};
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (auto count = random() % 20; count > 0; --count)
      text += pieces[random() % std::size(pieces)];
    std::size_t at = 0;
    for (const TextRange& range : passwordRanges(text)) {
      ASSERT_LE(at, range.begin) << text;
      ASSERT_LT(range.begin, range.end) << text;
      at = range.end;
    }
    ASSERT_LE(at, text.size()) << text;
    ASSERT_NO_THROW(withoutPasswords(text, text)) << text;
  }
}

}  // namespace vexnumkr
