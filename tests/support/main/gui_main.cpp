// The main program of tests that need an application object.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdio>

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IOLBF,
               BUFSIZ);  // a test that ends abruptly has told how far it was
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
