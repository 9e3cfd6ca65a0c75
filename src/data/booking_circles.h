// The booking-circle list: the booking circles of the current origin.
#pragma once

#include <cstdint>
#include <string>

#include "hosting/host_context.h"
#include "platform/forms.h"

namespace vexnumkr {

/// The two entries that open the booking-circle filter.
inline constexpr const char* alleBuchungskreise = "Alle Buchungskreise";
inline constexpr const char* aktiveBuchungskreise = "Aktive Buchungskreise";

namespace basAllgemein {

/// Reads the booking circles of the origin into a new booking-circle list and, where a combo box is
/// given, fills it anew: "Alle Buchungskreise", "Aktive Buchungskreise", then every description. A
/// failure is reported; when the statement fails, combo box and list stay as they were.
void RefreshCombo(HostContext& context, ComboBox* combo);

/// Looks `value` up in the booking-circle list: with `column` 1 a number, which gives its
/// description, with `column` 0 a description, which gives its number. -1 when the list does not
/// have it, and after a failure, which is reported.
Value LookupBuchungskreis(HostContext& context, std::int16_t column, const Value& value);

/// Has the host's administration of booking circles shown for `origin`. False after a failure,
/// which is reported; what the user did there makes no difference.
bool CallBuchungskreise(HostContext& context, const std::string& origin);

/// Whether the booking-circle list has that number. An empty list has none.
bool isListedCircle(HostContext& context, std::int32_t circle);

}  // namespace basAllgemein
}  // namespace vexnumkr
