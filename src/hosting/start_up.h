// The working objects of an open dialog.
#pragma once

#include "hosting/session.h"

namespace vexnumkr::basAllgemein {

/// Builds them when the dialog loads, before anything is read: serializable isolation on the host's
/// connection, the text command on it, the working connection, an empty range table, the host's
/// booking-circle administration; the changed flag becomes False. A failure is reported and leaves
/// out what would have followed.
void basInititialize(Session& session);

/// Releases them when the dialog unloads, each even when another one fails; failures are ignored.
/// What the host handed over stays.
void basTerminate(Session& session);

}  // namespace vexnumkr::basAllgemein
