// The statements of the component, with any values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/support/bound_statement.h"
#include "fuzz/support/input.h"

namespace vexnumkr::fuzz {

/// What may stand in a statement of the component.
struct OwnValues {
  std::int32_t circle = 0;
  std::int32_t start = 0;
  std::int32_t current = 0;
  std::int32_t end = 0;
  std::int32_t sortIndex = 0;
  bool active = false;
  std::string key;
  std::string description;
  std::string sharedKey;
  std::string mask;
  std::string user;
  std::string origin;

  static OwnValues read(Input& input);
  /// Whether no text has a quote or a zero character.
  bool isHarmless() const;
};

/// How many kinds of statements there are.
inline constexpr std::size_t ownStatementCount = 26;

/// Whether the component makes one of this kind with these values: into statements of several rows
/// it writes plain texts and different ranges only.
bool isMade(std::size_t kind, const OwnValues& values);

/// The text of one kind, as the component makes it.
std::string ownStatement(std::size_t kind, const OwnValues& values);

/// The same with its texts bound, so that none can be anything but a value.
BoundStatement boundOwnStatement(std::size_t kind, const OwnValues& values);

}  // namespace vexnumkr::fuzz
