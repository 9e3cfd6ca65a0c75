#include "adapters/automation/com/failure.h"

#include <array>
#include <string>

#include "adapters/automation/com/bstr.h"

namespace vexnumkr::automation {
namespace {

struct RuntimeText {
  std::int32_t number;
  const char* text;
};

// As the hosts' programming language says them.
constexpr std::array<RuntimeText, 18> runtimeTexts = {{
    {5, "Unzulässiger Prozeduraufruf oder ungültiges Argument"},
    {error_number::overflow, "Überlauf"},
    {7, "Nicht genügend Speicher"},
    {error_number::subscriptOutOfRange, "Index außerhalb des gültigen Bereichs"},
    {10, "Dieses Array ist fixiert oder temporär gesperrt"},
    {error_number::typeMismatch, "Typen unverträglich"},
    {70, "Zugriff verweigert"},
    {error_number::cannotCreateObject, "Objekterstellung durch ActiveX-Komponente nicht möglich"},
    {runtime_number::objectRequired, "Objekt erforderlich"},
    {runtime_number::noAutomation,
     "Klasse unterstützt keine Automatisierung oder unterstützt erwartete Schnittstelle nicht"},
    {runtime_number::unknownMember, "Objekt unterstützt diese Eigenschaft oder Methode nicht"},
    {runtime_number::automationError, "Automatisierungsfehler"},
    {445, "Objekt unterstützt diese Aktion nicht"},
    {446, "Objekt unterstützt keine benannten Argumente"},
    {448, "Benanntes Argument nicht gefunden"},
    {449, "Argument ist nicht optional"},
    {450, "Falsche Anzahl an Argumenten oder ungültige Zuweisung zu einer Eigenschaft"},
    {462, "Der Remote-Server-Computer existiert nicht oder ist nicht verfügbar"},
}};

const char* runtimeText(std::int32_t number) {
  for (const RuntimeText& known : runtimeTexts)
    if (known.number == number) return known.text;
  return nullptr;
}

// What a host's program would see for that code, or 0 where it sees the code itself.
std::int32_t runtimeNumber(HRESULT code) {
  switch (code) {
    case E_INVALIDARG:
      return 5;
    case DISP_E_OVERFLOW:
      return error_number::overflow;
    case E_OUTOFMEMORY:
      return 7;
    case DISP_E_BADINDEX:
      return error_number::subscriptOutOfRange;
    case DISP_E_ARRAYISLOCKED:
      return 10;
    case DISP_E_TYPEMISMATCH:
    case DISP_E_BADVARTYPE:
      return error_number::typeMismatch;
    case E_ACCESSDENIED:
      return 70;
    case E_NOINTERFACE:
      return runtime_number::noAutomation;
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
      return runtime_number::unknownMember;
    case E_NOTIMPL:
      return 445;
    case DISP_E_NONAMEDARGS:
      return 446;
    case DISP_E_PARAMNOTFOUND:
      return 448;
    case DISP_E_PARAMNOTOPTIONAL:
      return 449;
    case DISP_E_BADPARAMCOUNT:
      return 450;
    case CO_E_CLASSSTRING:
    case REGDB_E_CLASSNOTREG:
    case CO_E_SERVER_EXEC_FAILURE:
      return error_number::cannotCreateObject;
    case static_cast<HRESULT>(0x800706BAL):  // the server of the object is gone
      return 462;
    default:
      // Automation objects number their own errors there, as the hosts' language does.
      return HRESULT_FACILITY(code) == FACILITY_CONTROL ? HRESULT_CODE(code) : 0;
  }
}

std::string systemText(HRESULT code) {
  wchar_t* text = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::string result = toUtf8(std::wstring_view(text, length));
  LocalFree(text);
  result.erase(result.find_last_not_of("\r\n ") + 1);
  return result;
}

std::string descriptionOf(HRESULT code, std::int32_t number) {
  if (const char* known = runtimeText(number)) return known;
  std::string text = systemText(code);
  return text.empty() ? runtimeText(runtime_number::automationError) : text;
}

Error failureOf(HRESULT code, const std::string& source, const std::string& description) {
  const std::int32_t runtime = runtimeNumber(code);
  const std::int32_t number = runtime != 0 ? runtime : static_cast<std::int32_t>(code);
  return Error(number, source, description.empty() ? descriptionOf(code, number) : description);
}

}  // namespace

Error failureOf(HRESULT code) { return failureOf(code, "", ""); }

Error failureOf(EXCEPINFO& raised) {
  if (raised.pfnDeferredFillIn != nullptr) raised.pfnDeferredFillIn(&raised);
  const std::string source = toUtf8(raised.bstrSource);
  const std::string description = toUtf8(raised.bstrDescription);
  SysFreeString(raised.bstrSource);
  SysFreeString(raised.bstrDescription);
  SysFreeString(raised.bstrHelpFile);
  // An object gives either a number of its own or a code.
  const HRESULT code = raised.scode != 0
                           ? raised.scode
                           : MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, raised.wCode);
  raised = {};
  return failureOf(code, source, description);
}

void raiseOnFailure(HRESULT code) {
  if (FAILED(code)) throw failureOf(code);
}

Error objectRequired() {
  return Error(runtime_number::objectRequired, "", runtimeText(runtime_number::objectRequired));
}

}  // namespace vexnumkr::automation
