// The program that makes the manual's pictures makes all of them, and none that nobody shows.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include "app/program.h"

namespace vexnumkr::test {
namespace {

std::vector<std::string> filesIn(const QString& folder) {
  std::vector<std::string> names;
  for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name))
    names.push_back(name.toStdString());
  return names;
}

TEST(ManualPictures, AreMadeByTheirProgram) {
  const QTemporaryDir folder;
  const ProgramRun run = runProgram(QStringLiteral(MANUAL_PICTURES), {folder.path()}, {});
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  const std::vector<std::string> made = filesIn(folder.path());
  EXPECT_EQ(made, filesIn(QStringLiteral(PROJECT_DIR "/docs/bilder/handbuch")));
  for (const std::string& name : made) {
    const QImage picture(folder.filePath(QString::fromStdString(name)));
    EXPECT_GT(picture.width(), 200) << name;
    EXPECT_GT(picture.height(), 80) << name;
  }
}

TEST(ManualPictures, NeedAFolder) {
  EXPECT_EQ(runProgram(QStringLiteral(MANUAL_PICTURES), {}, {}).exitCode, 2);
}

}  // namespace
}  // namespace vexnumkr::test
