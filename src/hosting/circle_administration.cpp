#include "hosting/circle_administration.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr std::int32_t administration = 27;  // what the host's library calls this selection

}  // namespace

bool CallBuchungskreise(Session& session, const std::string& origin) {
  return reportingFailures(session.reporter(), {generalModule, "CallBuchungskreise"},
                           [&] { session.dlgBuchungskreise().Show(origin, administration); });
}

}  // namespace vexnumkr::basAllgemein
