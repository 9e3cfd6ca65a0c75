// A network in front of a database server of the same machine.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

namespace vexnumkr::bench {

/// Listens on a port of the loopback interface and passes on what comes, in both directions, to the
/// server's socket in the file system, each byte half of `roundTripTime` later. Nothing is limited
/// but that: a faster network than this takes as long.
///
/// Works on a thread of its own for as long as it lives; what is connected then is cut off.
class Relay {
 public:
  /// Error: std::runtime_error where there is no port.
  Relay(std::string serverSocket, std::chrono::microseconds roundTripTime);
  ~Relay();
  Relay(const Relay&) = delete;
  Relay& operator=(const Relay&) = delete;

  std::uint16_t port() const { return port_; }
  double roundTripSeconds() const { return std::chrono::duration<double>(roundTripTime_).count(); }

  /// How often a client has waited for the server since the last call: the turns from sending to
  /// receiving, over all connections, and one for each connection that was made.
  int takeRoundTrips() { return roundTrips_.exchange(0); }

 private:
  void run();

  const std::string serverSocket_;
  const std::chrono::microseconds roundTripTime_;
  std::uint16_t port_ = 0;  // Told by making the next one.
  int listening_ = -1;
  std::atomic<bool> ends_ = false;
  std::atomic<int> roundTrips_ = 0;
  std::thread thread_;
};

}  // namespace vexnumkr::bench
