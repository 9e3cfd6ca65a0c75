#include "data/table/loose_text.h"

#include <gtest/gtest.h>

#include "data/table/assigned_ranges.h"

namespace vexnumkr {
namespace {

TEST(LooseTextTest, LeavesOutCaseAccentsAndBlanksAtTheEnd) {
  EXPECT_EQ(looseText("Möhre  "), "mohre");
  EXPECT_EQ(looseText("MOHRE"), "mohre");
  EXPECT_EQ(looseText("Mo\xCC\x88hre"), "mohre") << "with a combining accent";
  EXPECT_EQ(looseText(" a b"), " a b");
  EXPECT_EQ(looseText("ŻÓŁĆ"), "zolc");
  EXPECT_EQ(looseText("Æ"), looseText("æ"));
  EXPECT_EQ(looseText("Ж"), looseText("ж"));
  EXPECT_EQ(looseText("   "), "");
  EXPECT_NE(looseText("Max"), looseText("May"));
  EXPECT_EQ(looseText("a\xC3"), looseText("A\xC3")) << "cut off in the middle of a character";
}

TEST(LooseTextTest, LeavesOutWhetherALetterIsWrittenAsSeveral) {
  EXPECT_EQ(looseText("Strauß"), looseText("STRAUSS"));
  EXPECT_EQ(looseText("STRAUẞ"), looseText("Strauss"));
  EXPECT_EQ(looseText("Jäger"), looseText("Jaeger"));
  EXPECT_EQ(looseText("Größe"), looseText("GROESSE"));
  EXPECT_EQ(looseText("Müller"), looseText("Mueller"));
  EXPECT_EQ(looseText("Œuvre"), looseText("oeuvre"));
  EXPECT_EQ(looseText("Ålborg"), looseText("Aalborg"));
  EXPECT_EQ(looseText("A\xC2\xADN"), looseText("an")) << "with a soft hyphen";
  EXPECT_NE(looseText("11"), looseText("1"));
  EXPECT_NE(looseText("Meier"), looseText("Maier"));
}

TEST(LooseTextTest, KnowsNothingOfOtherCharacters) {
  for (const char* const text : {"１", "ﬁ", "Ŀ", "٣", "日本", "½", "ĳ"})
    EXPECT_EQ(looseText(text), std::nullopt) << text;
}

TEST(LooseTextTest, NamesOfOtherCharactersMayBeTheSameAsAny) {
  LooseNames names;
  names.add("Max");
  EXPECT_FALSE(names.hasSimilar(0));
  EXPECT_EQ(names.similar("Ｍax").size(), 1U);
  names.add("日本");
  names.add("Anna");
  EXPECT_TRUE(names.hasSimilar(0));
  EXPECT_EQ(names.similar("max").size(), 2U);
  EXPECT_EQ(names.similar("日本").size(), 3U);
  EXPECT_EQ(names.similar("Eva").size(), 1U);
}

TEST(LooseTextTest, FindsNamesExactlyAndLoosely) {
  LooseNames names;
  EXPECT_EQ(names.add("Max"), 0U);
  EXPECT_EQ(names.add("Anna"), 1U);
  EXPECT_EQ(names.add("MAX"), 2U);
  EXPECT_EQ(names.add("Max"), 0U);
  EXPECT_EQ(names.find("max"), LooseNames::none);
  EXPECT_EQ(names.similar("máx").size(), 2U);
  EXPECT_TRUE(names.hasSimilar(0));
  EXPECT_FALSE(names.hasSimilar(1));
  EXPECT_TRUE(names.similar("Eva").empty());
}

TEST(AssignedRangesTest, OnlyTheDatabaseKnowsOfAssignmentsThatDifferInCaseOrAccents) {
  AssignedRanges assigned;
  for (const char* key : {"RE", "re", "AN"}) assigned.addKey(key);
  for (const char* user : {"Max", "Anna"}) assigned.addUser(user);
  assigned.add(1, "AN", "Max");
  assigned.add(2, "an ", "ÁNNA");
  assigned.add(3, "RE", "Max");
  assigned.add(4, "AN", "Somebody");
  assigned.addDoubtful(5, "AN", "Max");
  EXPECT_EQ(assigned.find(1, "AN", "Max"), Assigned::Yes);
  EXPECT_EQ(assigned.find(1, "AN", "Anna"), Assigned::No);
  EXPECT_EQ(assigned.find(2, "AN", "Anna"), Assigned::Perhaps);
  EXPECT_EQ(assigned.find(3, "RE", "Max"), Assigned::Yes);
  EXPECT_EQ(assigned.find(3, "re", "Max"), Assigned::Perhaps);
  EXPECT_EQ(assigned.find(4, "AN", "Max"), Assigned::No);
  EXPECT_EQ(assigned.find(5, "AN", "Max"), Assigned::Perhaps);
  EXPECT_EQ(assigned.find(6, "AN", "Max"), Assigned::No);
  EXPECT_EQ(assigned.find(1, "XX", "Max"), Assigned::Perhaps) << "nobody has told of the key";
}

}  // namespace
}  // namespace vexnumkr
