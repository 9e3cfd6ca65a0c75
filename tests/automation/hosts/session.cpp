#include "automation/hosts/session.h"

#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/failure.h"

namespace vexnumkr::test {

using automation::LateBound;
using automation::Variant;

LateBound openConnection() {
  LateBound connection = LateBound::create("ADODB.Connection");
  const std::string text =
      automation::toUtf8(std::wstring_view(environment(L"VEXNUMKR_TEST_CONNECTION")));
  connection.put("ConnectionString", Variant(text));
  connection.call("Open");
  return connection;
}

automation::ComPtr<_VXNummernkreise> createNumbers() {
  CLSID classId = {};
  automation::raiseOnFailure(CLSIDFromProgID(L"VEXNummernkreise.VXNummernkreise", &classId));
  automation::ComPtr<_VXNummernkreise> numbers;
  automation::raiseOnFailure(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER,
                                              __uuidof(_VXNummernkreise),
                                              reinterpret_cast<void**>(numbers.GetAddressOf())));
  return numbers;
}

}  // namespace vexnumkr::test
