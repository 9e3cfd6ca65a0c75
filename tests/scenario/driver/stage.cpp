#include "scenario/driver/stage.h"

namespace vexnumkr::scenario {

const Handlers& allHandlers() {
  static const Handlers handlers = [] {
    Handlers all;
    for (Handlers group : {sessionHandlers(), inputHandlers(), gridHandlers(),
                           dialogReportHandlers(), dataReportHandlers()})
      all.merge(group);
    return all;
  }();
  return handlers;
}

}  // namespace vexnumkr::scenario
