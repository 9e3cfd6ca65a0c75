// The columns of the range table and of the booking-circle list.
#pragma once

#include <cstdint>

namespace vexnumkr {

/// Of the range table: one row per user, booking circle and number key. The rows of "Alle Benutzer"
/// hold the ranges; a user's rows say by `Aktiviert` which of them the user draws from.
namespace column {
inline constexpr std::int32_t Benutzer = 0;
inline constexpr std::int32_t Buchungskreis = 1;  ///< 0 = the standard range of the number key
/// The description of the booking circle, or "Standard".
inline constexpr std::int32_t Gruppe = 2;
inline constexpr std::int32_t NSchl = 3;
inline constexpr std::int32_t NBezeichnung = 4;
inline constexpr std::int32_t StartWert = 5;
inline constexpr std::int32_t AktuellerWert = 6;
inline constexpr std::int32_t EndWert = 7;
inline constexpr std::int32_t Aktiviert = 8;
inline constexpr std::int32_t SortierIndex = 9;
inline constexpr std::int32_t IstNSchlVon =
    10;  ///< the key whose range this one shares, "" if none
inline constexpr std::int32_t Maske = 11;
inline constexpr std::int32_t last = Maske;
}  // namespace column

/// Of the booking-circle list.
namespace circle_column {
inline constexpr std::int32_t Buchungskreis = 0;
inline constexpr std::int32_t Beschreibung = 1;
}  // namespace circle_column

/// The caption of booking circle 0.
inline constexpr const char* standardGroup = "Standard";

}  // namespace vexnumkr
