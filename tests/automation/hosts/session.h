// What the hosts of these tests have in common: an apartment, and a database to hand over.
#pragma once

#include <string>

#include "adapters/automation/com/com_headers.h"
#include "adapters/automation/com/late_bound.h"
#include "automation/environment.h"
#include "windows/interface.h"

namespace vexnumkr::test {

/// The thread is a single-threaded apartment as long as this lives.
class Apartment {
 public:
  Apartment() { OleInitialize(nullptr); }
  ~Apartment() { OleUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

/// An open ADO connection to the database of the test.
automation::LateBound openConnection();

/// A new component, through the interface that programs are bound to.
automation::ComPtr<_VXNummernkreise> createNumbers();

}  // namespace vexnumkr::test
