// What a scenario is expected to print.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace vexnumkr::scenario {

/// The transcript that belongs to `scenario` on `engine`: the `.expected` file beside it, with the
/// lines in which engines speak for themselves (their error codes and messages) exchanged as the
/// file with the engine's name as its ending says, where there is one. That file has pairs of
/// lines, in their order, and nothing else:
///
///     - a line of the .expected file
///     + the line on this engine
///
/// Empty without an `.expected` file, and where the pairs do not fit.
std::optional<std::string> expectedTranscript(const std::filesystem::path& scenario,
                                              const std::string& engine);

/// Writes the engine's pairs anew, for a deliberate change, so that `transcript` is expected. False
/// when more differs than single lines.
bool writeEngineLines(const std::filesystem::path& scenario, const std::string& engine,
                      const std::string& transcript);

}  // namespace vexnumkr::scenario
