#include <vexnumkr/error.h>

namespace vexnumkr {

Error::Error(std::int32_t number, const std::string& source, const std::string& description)
    : std::runtime_error(description), number_(number), source_(source) {}

namespace {

Error runTimeError(std::int32_t number, const char* description) {
  return Error(number, "VEXNummernkreise", description);
}

}  // namespace

Error Error::overflow() { return runTimeError(error_number::overflow, "Überlauf"); }

Error Error::subscriptOutOfRange() {
  return runTimeError(error_number::subscriptOutOfRange, "Index außerhalb des gültigen Bereichs");
}

Error Error::typeMismatch() {
  return runTimeError(error_number::typeMismatch, "Typen unverträglich");
}

Error Error::objectNotSet() {
  return runTimeError(error_number::objectNotSet, "Objektvariable nicht festgelegt");
}

Error Error::invalidUseOfNull() {
  return runTimeError(error_number::invalidUseOfNull, "Unzulässige Verwendung von Null");
}

Error Error::invalidPropertyValue() {
  return runTimeError(error_number::invalidPropertyValue, "Ungültiger Eigenschaftswert");
}

Error Error::cannotCreateObject() {
  return runTimeError(error_number::cannotCreateObject,
                      "Objekterstellung durch ActiveX-Komponente nicht möglich");
}

Error Error::noCurrentRecord() {
  return runTimeError(error_number::noCurrentRecord, "Kein aktueller Datensatz");
}

}  // namespace vexnumkr
