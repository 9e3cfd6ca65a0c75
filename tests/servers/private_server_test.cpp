// Servers of the tests' own do not outlive them, however these end.
#include "servers/private_server.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <cstdlib>
#include <fstream>
#include <string>

#include "support/fresh_database.h"

namespace vexnumkr::test {
namespace {

// Both servers write their process id into the first line of a file.
pid_t processOf(const PrivateServer& server) {
  const std::string file = engineUnderTest() == "mariadb" ? "/pid" : "/data/postmaster.pid";
  pid_t process = 0;
  std::ifstream(server.folder() + file) >> process;
  return process;
}

TEST(PrivateServer, IsStoppedAfterATestThatIsKilled) {
  const QTemporaryDir folder;
  const std::string file = folder.filePath(QStringLiteral("process")).toStdString();
  const pid_t killedTest = ::fork();
  ASSERT_GE(killedTest, 0);
  if (killedTest == 0) {
    const PrivateServer server(engineUnderTest());
    std::ofstream(file) << processOf(server) << std::flush;
    ::raise(SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(killedTest, &status, 0), killedTest);
  ASSERT_TRUE(WIFSIGNALED(status));

  pid_t process = 0;
  std::ifstream(file) >> process;
  ASSERT_GT(process, 0);
  const std::string untilItEnds =
      "timeout 60 tail --pid=" + std::to_string(process) + " -f /dev/null";
  EXPECT_EQ(std::system(untilItEnds.c_str()), 0) << "it still runs";
}

}  // namespace
}  // namespace vexnumkr::test
