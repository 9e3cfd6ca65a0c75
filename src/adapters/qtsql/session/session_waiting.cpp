// Waiting for locks while somebody is told of it.
#include <chrono>
#include <thread>

#include "adapters/qtsql/opening/failure.h"
#include "adapters/qtsql/session/session.h"

namespace vexnumkr::qtsql {
namespace {

constexpr std::chrono::milliseconds pause{20};

// From the first moment of waiting to its end.
class Telling {
 public:
  Telling(LockWait& told, bool& isWaiting) : told_(told), isWaiting_(isWaiting) {
    told_.Begins();
    isWaiting_ = true;
  }
  ~Telling() {
    told_.Ends();
    isWaiting_ = false;
  }
  Telling(const Telling&) = delete;
  Telling& operator=(const Telling&) = delete;

  void tell() { told_.Lasts(); }

 private:
  LockWait& told_;
  bool& isWaiting_;
};

}  // namespace

// Asked for again after whatever may have changed it.
std::chrono::milliseconds SqlSession::usualWait() {
  if (!usualWait_) {
    query_->exec(QStringLiteral("PRAGMA busy_timeout"));
    usualWait_ = query_->next() ? query_->value(0).toInt() : 0;
    query_->finish();
  }
  return std::chrono::milliseconds(*usualWait_);
}

// In between, nothing of the engine's is on the stack, so that windows may be painted. Whoever is
// told may do anything meanwhile: whoever has called this keeps it alive, and nothing else is sent.
bool SqlSession::patiently(const std::function<bool()>& attempt) {
  if (told_ == nullptr || sqlite_ == nullptr || !database_.isOwned()) return attempt();
  const std::chrono::milliseconds longest = usualWait();
  SqliteClient::Impatience impatience(*sqlite_, static_cast<int>(longest.count()));
  if (attempt()) return true;
  if (!impatience.takeMetLock()) return false;
  Telling telling(*told_, isWaiting_);
  for (std::chrono::milliseconds waited{0}; waited < longest; waited += pause) {
    std::this_thread::sleep_for(pause);
    telling.tell();
    if (isGivenUp_) throw connectionClosed();
    if (attempt()) return true;
    if (!impatience.takeMetLock()) return false;
  }
  return false;
}

}  // namespace vexnumkr::qtsql
