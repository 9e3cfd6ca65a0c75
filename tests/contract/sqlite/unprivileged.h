// Makes tests of file permissions mean something also where the tests run as root.
#pragma once

#include <unistd.h>

namespace vexnumkr::test {

/// While it lives, files are opened as a user without rights of its own, if that can be arranged.
class Unprivileged {
 public:
  Unprivileged() : wasRoot_(geteuid() == 0) {
    if (wasRoot_) changed_ = seteuid(nobody) == 0;
  }
  ~Unprivileged() {
    if (changed_) static_cast<void>(seteuid(0));
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;

 private:
  static constexpr uid_t nobody = 65534;
  bool wasRoot_;
  bool changed_ = false;
};

}  // namespace vexnumkr::test
