#include "adapters/qtsql/rows/packed_fields.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "adapters/qtsql/rows/field_value.h"
#include "contract/database_language.h"

namespace vexnumkr::qtsql {
namespace {

std::vector<QVariant> fieldsOfAllKinds() {
  return {QStringLiteral("gr\u00FC\u00DF"),
          QStringLiteral(""),
          QString(QChar(u'\0')) + QLatin1String("x"),
          QByteArray("ABC"),
          QByteArray(""),
          QByteArray("\xFC", 1),
          7,
          std::numeric_limits<int>::min(),
          std::numeric_limits<qlonglong>::min(),
          2147483648LL,
          qulonglong{7},
          std::numeric_limits<qulonglong>::max(),
          QVariant(QMetaType::fromType<QString>()),
          QVariant(QMetaType::fromType<int>()),
          QVariant(),
          true,
          12.5,
          QVariant::fromValue<unsigned char>(200)};
}

PackedFields packed(const std::vector<QVariant>& fields) {
  PackedFields all;
  for (const QVariant& field : fields) all.add(field);
  return all;
}

void expectSame(const QVariant& a, const QVariant& b) {
  EXPECT_EQ(a.typeId(), b.typeId());
  EXPECT_EQ(a.isNull(), b.isNull());
  EXPECT_EQ(a, b);
}

TEST(PackedFields, ComeBackAsTheyWereAdded) {
  const std::vector<QVariant> fields = fieldsOfAllKinds();
  const PackedFields all = packed(fields);
  ASSERT_EQ(all.size(), fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    SCOPED_TRACE(i);
    expectSame(all.at(i), fields[i]);
  }
}

TEST(PackedFields, AreTheSameValuesToTheComponent) {
  const std::vector<QVariant> fields = fieldsOfAllKinds();
  const PackedFields all = packed(fields);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    SCOPED_TRACE(i);
    if (fields[i] == QVariant(QByteArray("\xFC", 1)))
      EXPECT_EQ(test::errorOf([&] { (void)all.value(i); }).number(), 3024);
    else
      EXPECT_EQ(test::shown(all.value(i)), test::shown(toValue(fields[i])));
  }
}

TEST(PackedFields, CanBeSetToAnyKindAndAgain) {
  const std::vector<QVariant> fields = fieldsOfAllKinds();
  PackedFields all = packed(fields);
  for (std::size_t i = 0; i < fields.size(); ++i)
    for (const QVariant& other : fields) {
      all.set(i, other);
      expectSame(all.at(i), other);
    }
}

TEST(PackedFields, StayWhereTheyAreWhenAllMove) {
  PackedFields all = packed({QStringLiteral("a"), QByteArray("b"), 12.5});
  const PackedFields moved = std::move(all);
  EXPECT_EQ(moved.at(0), QStringLiteral("a"));
  EXPECT_EQ(moved.at(1), QByteArray("b"));
  EXPECT_EQ(moved.at(2), 12.5);
}

// A text that came from the fields does not point into them.
TEST(PackedFields, WhatIsTakenOutOutlivesThem) {
  QVariant text;
  Value value;
  {
    const PackedFields all = packed({QString(5000, QChar(u'x'))});
    text = all.at(0);
    value = all.value(0);
  }
  EXPECT_EQ(text, QString(5000, QChar(u'x')));
  EXPECT_EQ(value, Value(std::string(5000, 'x')));
}

}  // namespace
}  // namespace vexnumkr::qtsql
