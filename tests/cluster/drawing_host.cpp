// One of many hosts on a cluster: drawing_host USER KEY CIRCLE SECONDS, the database in
// VEXNUMKR_CONNECTION. It draws one number after the other until the time is over and tells, line
// by line, what was drawn ("n 4711 12": the number, and the milliseconds that it took) and what was
// refused ("x 1047 ...").
#include <QCoreApplication>
#include <QThread>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <vexnumkr/adapters.h>
#include <vexnumkr/numbers.h>

namespace {

using Clock = std::chrono::steady_clock;

class Host {
 public:
  Host(std::string user, std::string key, std::int32_t circle)
      : request_{.application = 1, .user = std::move(user), .key = std::move(key)} {
    request_.circle = circle;
  }

  // Opening may fail, too, and is tried again by the next draw.
  void draw() {
    const auto begin = Clock::now();
    try {
      if (!connection_)
        connection_ = vexnumkr::openQtSqlConnection(
            qEnvironmentVariable("VEXNUMKR_CONNECTION").toStdString());
      const auto drawn = vexnumkr::numbers::draw(*connection_, request_);
      const auto spent =
          std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
      std::printf("n %d %lld\n", drawn.first, static_cast<long long>(spent.count()));
    } catch (const vexnumkr::Error& error) {
      const QString text = QString::fromUtf8(error.what()).simplified();
      std::printf("x %d %s\n", error.number(), text.toUtf8().constData());
      QThread::msleep(100);  // as whoever reads the message before trying again
    }
    std::fflush(stdout);
  }

 private:
  vexnumkr::numbers::DrawRequest request_;
  std::shared_ptr<vexnumkr::Connection> connection_;
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc != 5) return 2;
  Host host(argv[1], argv[2], std::atoi(argv[3]));
  const auto end = Clock::now() + std::chrono::seconds(std::atoi(argv[4]));
  while (Clock::now() < end) host.draw();
  return 0;
}
