// Draws numbers like one of many hosts: drawing_program USER KEY COUNT [AHEAD], the database in
// VEXNUMKR_CONNECTION. Each number is a line on standard output, written when it is committed. With
// AHEAD it draws no more than that many before it has read a line for each of them.
#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include <vexnumkr/adapters.h>
#include <vexnumkr/numbers.h>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc < 4 || argc > 5) return 2;
  const int count = std::atoi(argv[3]);
  const int ahead = argc > 4 ? std::atoi(argv[4]) : count;
  try {
    const auto connection =
        vexnumkr::openQtSqlConnection(qEnvironmentVariable("VEXNUMKR_CONNECTION").toStdString());
    const vexnumkr::numbers::DrawRequest request{.application = 1, .user = argv[1], .key = argv[2]};
    std::string line;
    for (int drawn = 0; drawn < count; ++drawn) {
      if (drawn >= ahead && !std::getline(std::cin, line)) return 0;
      std::printf("%d\n", vexnumkr::numbers::draw(*connection, request).first);
      std::fflush(stdout);
    }
  } catch (const vexnumkr::Error& error) {
    std::fprintf(stderr, "%s (%d)\n", error.what(), error.number());
    return 1;
  }
  return 0;
}
