// The supported database engines, and finding the one that is meant.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <vexnumkr/error.h>

#include "engines/engine.h"

namespace vexnumkr {

class Connection;

/// In the order of the list.
std::span<const Engine* const> allEngines();

/// The engine that a driver or provider of that name is for; null where the name tells none.
const Engine* engineOfDriverName(std::string_view name);

/// The engine and the driver of Qt's of that name, without regard to case; null where it is none.
struct EngineDriver {
  const Engine* engine = nullptr;
  const QtDriver* driver = nullptr;
};
EngineDriver engineOfQtDriver(std::string_view name);

/// Runs a select of one text and returns it; empty where the engine fails or finds none.
using AskText = std::function<std::optional<std::string>(const char* select)>;
/// The engine that answers; null where it is none of these.
const Engine* engineThatAnswers(const AskText& ask);
/// The same over a connection.
const Engine* engineThatAnswers(Connection& connection);

/// Whether an engine has failed because of a lock or a change of somebody else's, so that trying
/// again may work. The adapters name the engine as the error's source, with a code behind it where
/// that is not the number.
bool meansLocked(const Error& error);

/// "A, B and C", for messages (German).
std::string engineTitles(std::span<const Engine* const> engines);

}  // namespace vexnumkr
