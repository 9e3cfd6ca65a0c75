// Draws numbers like one of many hosts: drawing_program USER KEY COUNT, the database in
// VEXNUMKR_CONNECTION. Each number is a line on standard output, written when it is committed.
#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>

#include <vexnumkr/adapters.h>
#include <vexnumkr/numbers.h>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc != 4) return 2;
  try {
    const auto connection =
        vexnumkr::openQtSqlConnection(qEnvironmentVariable("VEXNUMKR_CONNECTION").toStdString());
    const vexnumkr::numbers::DrawRequest request{.application = 1, .user = argv[1], .key = argv[2]};
    for (int left = std::atoi(argv[3]); left > 0; --left) {
      std::printf("%d\n", vexnumkr::numbers::draw(*connection, request).first);
      std::fflush(stdout);
    }
  } catch (const vexnumkr::Error& error) {
    std::fprintf(stderr, "%s (%d)\n", error.what(), error.number());
    return 1;
  }
  return 0;
}
