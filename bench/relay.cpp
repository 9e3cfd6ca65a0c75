#include "bench/relay.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <deque>
#include <list>
#include <stdexcept>
#include <utility>
#include <vector>

namespace vexnumkr::bench {
namespace {

using Clock = std::chrono::steady_clock;

// Polling goes on at least that often, to notice the end.
constexpr std::chrono::milliseconds longestSleep{20};

// What is on its way from one end to the other.
class Direction {
 public:
  Direction(int from, int to, Clock::duration delay) : from_(from), to_(to), delay_(delay) {}

  int from() const { return from_; }
  // When the next bytes arrive.
  Clock::time_point next() const {
    return underway_.empty() ? Clock::time_point::max() : underway_.front().first;
  }

  // False where the sender has closed.
  bool take() {
    std::array<char, 1 << 16> buffer;
    const ssize_t size = read(from_, buffer.data(), buffer.size());
    if (size <= 0) return false;
    underway_.emplace_back(Clock::now() + delay_, std::string(buffer.data(), size));
    return true;
  }

  // Gives what has arrived by now to the receiver; false where it has closed.
  bool deliver() {
    for (; !underway_.empty() && next() <= Clock::now(); underway_.pop_front())
      if (!writeAll(underway_.front().second)) return false;
    return true;
  }

 private:
  bool writeAll(const std::string& bytes) const {
    for (std::size_t written = 0; written < bytes.size();) {
      const ssize_t size = send(to_, bytes.data() + written, bytes.size() - written, MSG_NOSIGNAL);
      if (size <= 0) return false;
      written += static_cast<std::size_t>(size);
    }
    return true;
  }

  int from_;
  int to_;
  Clock::duration delay_;
  std::deque<std::pair<Clock::time_point, std::string>> underway_;
};

class Link {
 public:
  Link(int client, int server, Clock::duration delay)
      : client_(client),
        server_(server),
        toServer(client, server, delay),
        toClient(server, client, delay) {}
  ~Link() {
    close(client_);
    close(server_);
  }
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

 private:
  int client_;
  int server_;

 public:
  Direction toServer;
  Direction toClient;
  bool clientWaits = false;
};

int connectTo(const std::string& socketName) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, socketName.c_str(), sizeof address.sun_path - 1);
  const int server = socket(AF_UNIX, SOCK_STREAM, 0);
  if (connect(server, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) return server;
  close(server);
  return -1;
}

int listenOnLoopback(std::uint16_t& port) {
  const int listening = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  if (bind(listening, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
      listen(listening, 8) != 0 ||
      getsockname(listening, reinterpret_cast<sockaddr*>(&address), &size) != 0)
    throw std::runtime_error("no port for the network");
  port = ntohs(address.sin_port);
  return listening;
}

timespec untilNext(const std::list<Link>& links) {
  Clock::time_point next = Clock::now() + longestSleep;
  for (const Link& link : links)
    next = std::min({next, link.toServer.next(), link.toClient.next()});
  const auto left = std::max(next - Clock::now(), Clock::duration::zero());
  const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(left).count();
  return {nanoseconds / 1'000'000'000, nanoseconds % 1'000'000'000};
}

}  // namespace

Relay::Relay(std::string serverSocket, std::chrono::microseconds roundTripTime)
    : serverSocket_(std::move(serverSocket)),
      roundTripTime_(roundTripTime),
      listening_(listenOnLoopback(port_)),
      thread_([this] { run(); }) {}

Relay::~Relay() {
  ends_ = true;
  thread_.join();
  close(listening_);
}

void Relay::run() {
  std::list<Link> links;
  while (!ends_) {
    std::vector<pollfd> sockets = {{listening_, POLLIN, 0}};
    for (const Link& link : links) {
      sockets.push_back({link.toServer.from(), POLLIN, 0});
      sockets.push_back({link.toClient.from(), POLLIN, 0});
    }
    const timespec wait = untilNext(links);
    if (ppoll(sockets.data(), sockets.size(), &wait, nullptr) < 0) continue;
    std::size_t at = 1;
    for (auto link = links.begin(); link != links.end(); at += 2) {
      bool isOpen = true;
      if (sockets[at].revents != 0) {
        isOpen = link->toServer.take();
        if (!std::exchange(link->clientWaits, true)) ++roundTrips_;
      }
      if (isOpen && sockets[at + 1].revents != 0) {
        isOpen = link->toClient.take();
        link->clientWaits = false;
      }
      isOpen = isOpen && link->toServer.deliver() && link->toClient.deliver();
      link = isOpen ? std::next(link) : links.erase(link);
    }
    if (sockets[0].revents != 0) {
      const int client = accept(listening_, nullptr, nullptr);
      // Making the connection takes a round trip, too.
      std::this_thread::sleep_for(roundTripTime_);
      ++roundTrips_;
      const int noDelay = 1;
      setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &noDelay, sizeof noDelay);
      if (const int server = connectTo(serverSocket_); server >= 0)
        links.emplace_back(client, server, roundTripTime_ / 2);
      else
        close(client);
    }
  }
}

}  // namespace vexnumkr::bench
