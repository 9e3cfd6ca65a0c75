// The main program of tests on a cluster. Where the cluster's software is not installed, they say
// so and are skipped.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv) {
  constexpr int skipped = 77;
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  if (const char* const missing = std::getenv("VEXNUMKR_TEST_WITHOUT")) {
    std::printf("skipped: %s is not installed\n", missing);
    return skipped;
  }
  testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
