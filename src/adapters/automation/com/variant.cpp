#include "adapters/automation/com/variant.h"

#include <string>
#include <utility>

#include <vexnumkr/error.h>

#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/failure.h"
#include "platform/number_value.h"

namespace vexnumkr::automation {
namespace {

// The rules of German, whatever this user has set up for himself.
constexpr LCID german = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);

std::string textOf(const VARIANT& variant, LCID locale, USHORT flags) {
  Variant text;
  VARIANT source = variant;  // Only read; the function's signature does not say so.
  if (FAILED(VariantChangeTypeEx(text.receive(), &source, locale, flags, VT_BSTR)))
    throw Error::typeMismatch();
  return toUtf8(V_BSTR(&text.get()));
}

Variant withoutReference(const VARIANT& variant) {
  Variant direct;
  VARIANT source = variant;  // Only read; the function's signature does not say so.
  raiseOnFailure(VariantCopyInd(direct.receive(), &source));
  return direct;
}

// Exact decimals are taken by their digits, which no double would keep.
Value decimalValue(const VARIANT& variant) {
  Value text(textOf(variant, german, VARIANT_NOUSEROVERRIDE));
  Variant number;
  VARIANT source = variant;
  if (FAILED(VariantChangeTypeEx(number.receive(), &source, german, VARIANT_NOUSEROVERRIDE, VT_I4)))
    return text;
  Value whole(static_cast<std::int32_t>(V_I4(&number.get())));
  return whole.toText() == text.asText() ? whole : text;
}

}  // namespace

Variant::Variant(std::int32_t number) : Variant() {
  V_VT(&data_) = VT_I4;
  V_I4(&data_) = number;
}

Variant::Variant(bool flag) : Variant() {
  V_VT(&data_) = VT_BOOL;
  V_BOOL(&data_) = flag ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(std::string_view text) : Variant() {
  V_BSTR(&data_) = Bstr(text).release();
  V_VT(&data_) = VT_BSTR;
}

Variant::Variant(IDispatch* object) : Variant() {
  V_VT(&data_) = VT_DISPATCH;
  V_DISPATCH(&data_) = object;
  if (object != nullptr) object->AddRef();
}

Variant::Variant(const Value& value) : Variant() {
  if (value.isNull()) V_VT(&data_) = VT_NULL;
  if (value.isLong()) *this = Variant(value.asLong());
  if (value.isBoolean()) *this = Variant(value.asBoolean());
  if (value.isText()) *this = Variant(value.asText());
}

Variant Variant::reference(VARIANT& target) {
  Variant result;
  V_VT(&result.data_) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&result.data_) = &target;
  return result;
}

Variant Variant::reference(BSTR& target) {
  Variant result;
  V_VT(&result.data_) = VT_BYREF | VT_BSTR;
  V_BSTRREF(&result.data_) = &target;
  return result;
}

Variant::Variant(Variant&& other) noexcept : data_(other.data_) { VariantInit(&other.data_); }

Variant& Variant::operator=(Variant&& other) noexcept {
  std::swap(data_, other.data_);
  return *this;
}

VARIANT* Variant::receive() {
  VariantClear(&data_);
  return &data_;
}

Value toValue(const VARIANT& variant) {
  const Variant itself = withoutReference(variant);
  const VARIANT& data = itself.get();
  switch (V_VT(&data)) {
    case VT_EMPTY:
      return Empty();
    case VT_NULL:
      return Null();
    case VT_BOOL:
      return V_BOOL(&data) != VARIANT_FALSE ? -1 : 0;
    case VT_I1:
      return integerValue(static_cast<int>(V_I1(&data)));
    case VT_UI1:
      return integerValue(static_cast<int>(V_UI1(&data)));
    case VT_I2:
      return integerValue(V_I2(&data));
    case VT_UI2:
      return integerValue(V_UI2(&data));
    case VT_I4:
      return integerValue(V_I4(&data));
    case VT_UI4:
      return integerValue(V_UI4(&data));
    case VT_INT:
      return integerValue(V_INT(&data));
    case VT_UINT:
      return integerValue(V_UINT(&data));
    case VT_I8:
      return integerValue(V_I8(&data));
    case VT_UI8:
      return integerValue(V_UI8(&data));
    case VT_R4:
      return realValue(V_R4(&data));
    case VT_R8:
      return realValue(V_R8(&data));
    case VT_CY:
    case VT_DECIMAL:
      return decimalValue(data);
    case VT_BSTR:
      return toUtf8(V_BSTR(&data));
    case VT_DATE:
      return textOf(data, LOCALE_USER_DEFAULT, 0);
    default:
      throw Error::typeMismatch();
  }
}

Value toStoredValue(const VARIANT& variant) {
  const Variant itself = withoutReference(variant);
  const VARIANT& data = itself.get();
  const bool isText = V_VT(&data) == VT_BSTR;
  if (isText && !isWellFormed({V_BSTR(&data), SysStringLen(V_BSTR(&data))}))
    throw Error(error_number::unreadableText, "VEXNummernkreise",
                "Ein Text ist nicht lesbar gespeichert.");
  return toValue(data);
}

std::int32_t toLong(const VARIANT& variant) { return toValue(variant).toLong(); }

bool toBoolean(const VARIANT& variant) { return toValue(variant).toBoolean(); }

std::string toText(const VARIANT& variant) { return toValue(variant).toText(); }

ComPtr<IDispatch> toObject(const VARIANT& variant) {
  const Variant itself = withoutReference(variant);
  const VARIANT& data = itself.get();
  ComPtr<IDispatch> object;
  switch (V_VT(&data)) {
    case VT_EMPTY:
    case VT_NULL:
      break;
    case VT_DISPATCH:
      object = V_DISPATCH(&data);
      break;
    case VT_UNKNOWN:
      if (V_UNKNOWN(&data) != nullptr)
        raiseOnFailure(V_UNKNOWN(&data)->QueryInterface(IID_PPV_ARGS(&object)));
      break;
    default:
      throw objectRequired();
  }
  return object;
}

}  // namespace vexnumkr::automation
