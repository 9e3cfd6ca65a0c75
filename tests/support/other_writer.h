// Somebody else at work on a SQLite file.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <string>

namespace vexnumkr::test {

/// Another process with the write lock on a file, until it is released; with "EXCLUSIVE" nobody
/// reads meanwhile, either. REQUIRES: the program
/// hold_write_lock beside this one.
class OtherWriter {
 public:
  explicit OtherWriter(const std::string& file, const char* lock = "IMMEDIATE") {
    process_.start(QCoreApplication::applicationDirPath() + QStringLiteral("/hold_write_lock"),
                   {QString::fromStdString(file), QString::fromLatin1(lock)});
    EXPECT_TRUE(process_.waitForReadyRead());
    EXPECT_EQ(process_.readLine(), "locked\n");
  }
  void release() {
    process_.closeWriteChannel();
    EXPECT_TRUE(process_.waitForFinished());
    EXPECT_EQ(process_.exitCode(), 0);
  }

 private:
  QProcess process_;
};

}  // namespace vexnumkr::test
