// The stand-in for ADODB.Command.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/database.h>

#include "automation/standins/connection_object.h"
#include "automation/standins/dispatch_object.h"

namespace vexnumkr::standins {

/// A statement text; holds its connection.
class CommandObject final : public DispatchObject {
 public:
  CommandObject();

 private:
  void connect(const Call& call);
  void execute(const Call& call);

  automation::ComPtr<ConnectionObject> connection_;
  std::unique_ptr<Command> command_;
  std::string text_;
  std::int32_t type_ = 8;  // unknown, as ADO has it at first
  std::int32_t timeout_ = 30;
};

}  // namespace vexnumkr::standins
