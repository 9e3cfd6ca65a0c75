// The interface that hosts are bound to, and the identifiers of what the library file registers.
// VEXNumKr.idl says the same to programs that read type libraries.
#pragma once

#include "adapters/automation/com/com_headers.h"

/// Late-bound callers may name the arguments as they are named here.
struct _VXNummernkreise : public IDispatch {
  /// Hands over the session; see VXNummernkreise::Init. `Conn` is the host's ADO connection and
  /// stays the host's; the reference is only read.
  virtual HRESULT STDMETHODCALLTYPE Init(IDispatch** Conn, LONG LngApplication, BSTR strUser,
                                         BSTR jmtVerarbeitungsdatum, VARIANT_BOOL* result) = 0;
  virtual HRESULT STDMETHODCALLTYPE ShowDialog() = 0;
};

__CRT_UUID_DECL(_VXNummernkreise, 0xb0fd56c2, 0x6766, 0x4a4d, 0xb1, 0x74, 0x3c, 0xdd, 0x86, 0x72,
                0xc0, 0xd1)

namespace vexnumkr::server {

inline constexpr GUID libraryId = {
    0xbed45f65, 0xd524, 0x4953, {0x9e, 0x13, 0x27, 0x7f, 0xf3, 0xdc, 0x5a, 0xc5}};
inline constexpr GUID interfaceId = {
    0xb0fd56c2, 0x6766, 0x4a4d, {0xb1, 0x74, 0x3c, 0xdd, 0x86, 0x72, 0xc0, 0xd1}};
inline constexpr GUID classId = {
    0x1799d539, 0x16b2, 0x4fa4, {0x9c, 0xe5, 0x48, 0xa2, 0x7a, 0xe2, 0x80, 0x92}};

/// Programs create the class by this name.
inline constexpr const wchar_t* programId = L"VEXNummernkreise.VXNummernkreise";
inline constexpr const wchar_t* className = L"VXNummernkreise";
inline constexpr const wchar_t* interfaceName = L"_VXNummernkreise";
inline constexpr const wchar_t* libraryDescription = L"Vexal Nummernkreise";
inline constexpr const wchar_t* libraryVersion = L"2.0";
inline constexpr const wchar_t* libraryLocale = L"409";

}  // namespace vexnumkr::server
