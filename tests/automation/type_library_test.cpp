// What programs read in the library file about the class, before they are bound to it.
#include <gtest/gtest.h>

#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/variant.h"
#include "automation/hosts/session.h"

namespace vexnumkr::test {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::toUtf8;

constexpr MEMBERID initId = 0x60030000;
constexpr MEMBERID showDialogId = 0x60030001;
constexpr int dispatchSlots = 7;

ComPtr<ITypeLib> openLibrary() {
  ComPtr<ITypeLib> library;
  EXPECT_EQ(
      LoadTypeLibEx(environment(L"VEXNUMKR_SERVER").c_str(), REGKIND_NONE, library.GetAddressOf()),
      S_OK);
  return library;
}

std::string nameOf(ITypeLib& library, INT index) {
  Bstr name;
  EXPECT_EQ(library.GetDocumentation(index, name.receive(), nullptr, nullptr, nullptr), S_OK);
  return toUtf8(name.get());
}

ComPtr<ITypeInfo> typeNamed(const std::string& name) {
  const ComPtr<ITypeLib> library = openLibrary();
  ComPtr<ITypeInfo> info;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    if (nameOf(*library.Get(), static_cast<INT>(i)) != name) continue;
    EXPECT_EQ(library->GetTypeInfo(i, info.ReleaseAndGetAddressOf()), S_OK);
  }
  return info;
}

/// The attributes of a type, held as long as they are read.
class Attributes {
 public:
  explicit Attributes(ITypeInfo& info) : info_(info) { info_.GetTypeAttr(&attributes_); }
  ~Attributes() { info_.ReleaseTypeAttr(attributes_); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  const TYPEATTR* operator->() const { return attributes_; }

 private:
  ITypeInfo& info_;
  TYPEATTR* attributes_ = nullptr;
};

/// A member as the type library describes it.
class Function {
 public:
  Function(ITypeInfo& info, UINT index) : info_(info) { info_.GetFuncDesc(index, &description_); }
  ~Function() { info_.ReleaseFuncDesc(description_); }
  Function(const Function&) = delete;
  Function& operator=(const Function&) = delete;
  const FUNCDESC* operator->() const { return description_; }

  /// The names of the member and its parameters, separated by blanks.
  std::string names() const {
    BSTR found[8] = {};
    UINT count = 0;
    EXPECT_EQ(info_.GetNames(description_->memid, found, 8, &count), S_OK);
    std::string names;
    for (UINT i = 0; i < count; ++i) {
      names.append(i == 0 ? "" : " ").append(toUtf8(found[i]));
      SysFreeString(found[i]);
    }
    return names;
  }

  const ELEMDESC& parameter(int index) const { return description_->lprgelemdescParam[index]; }
  USHORT flags(int index) const { return parameter(index).paramdesc.wParamFlags; }

 private:
  ITypeInfo& info_;
  FUNCDESC* description_ = nullptr;
};

/// The interface as programs are bound to it, behind its view for scripts.
ComPtr<ITypeInfo> boundInterface() {
  const ComPtr<ITypeInfo> forScripts = typeNamed("_VXNummernkreise");
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> bound;
  EXPECT_EQ(forScripts->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
  EXPECT_EQ(forScripts->GetRefTypeInfo(reference, bound.GetAddressOf()), S_OK);
  return bound;
}

TEST(TypeLibrary, SaysWhatItIs) {
  const ComPtr<ITypeLib> library = openLibrary();
  Bstr description;
  ASSERT_EQ(library->GetDocumentation(-1, nullptr, description.receive(), nullptr, nullptr), S_OK);
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_EQ(nameOf(*library.Get(), -1), "VEXNummernkreise");
  EXPECT_EQ(toUtf8(description.get()), "Vexal Nummernkreise");
  EXPECT_EQ(attributes->wMajorVerNum, 2);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  EXPECT_EQ(attributes->lcid, 0x409U);
  EXPECT_EQ(attributes->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
  EXPECT_EQ(attributes->guid, server::libraryId);
  library->ReleaseTLibAttr(attributes);
  EXPECT_EQ(library->GetTypeInfoCount(), 2U);
}

TEST(TypeLibrary, HasOneClassThatCanBeCreated) {
  const ComPtr<ITypeInfo> info = typeNamed("VXNummernkreise");
  ASSERT_NE(info, nullptr);
  const Attributes attributes(*info.Get());
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_EQ(attributes->wTypeFlags, TYPEFLAG_FCANCREATE);
  EXPECT_EQ(attributes->guid, server::classId);
  ASSERT_EQ(attributes->cImplTypes, 1);
  INT flags = 0;
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> implemented;
  ASSERT_EQ(info->GetImplTypeFlags(0, &flags), S_OK);
  ASSERT_EQ(info->GetRefTypeOfImplType(0, &reference), S_OK);
  ASSERT_EQ(info->GetRefTypeInfo(reference, implemented.GetAddressOf()), S_OK);
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
  EXPECT_EQ(Attributes(*implemented.Get())->guid, server::interfaceId);
}

TEST(TypeLibrary, HasADualInterfaceForScriptsAndPrograms) {
  const ComPtr<ITypeInfo> forScripts = typeNamed("_VXNummernkreise");
  ASSERT_NE(forScripts, nullptr);
  const WORD flags = TYPEFLAG_FDUAL | TYPEFLAG_FHIDDEN | TYPEFLAG_FNONEXTENSIBLE |
                     TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE;
  const Attributes scripted(*forScripts.Get());
  EXPECT_EQ(scripted->typekind, TKIND_DISPATCH);
  // Only what programs are bound to is called automation-compatible.
  EXPECT_EQ(scripted->wTypeFlags, flags & ~TYPEFLAG_FOLEAUTOMATION);
  EXPECT_EQ(scripted->guid, server::interfaceId);
  const ComPtr<ITypeInfo> bound = boundInterface();
  const Attributes attributes(*bound.Get());
  EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
  EXPECT_EQ(attributes->wTypeFlags, flags);
  EXPECT_EQ(attributes->guid, server::interfaceId);
  EXPECT_EQ(attributes->cFuncs, 2);
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> base;
  ASSERT_EQ(bound->GetRefTypeOfImplType(0, &reference), S_OK);
  ASSERT_EQ(bound->GetRefTypeInfo(reference, base.GetAddressOf()), S_OK);
  EXPECT_EQ(Attributes(*base.Get())->guid, IID_IDispatch);
}

TEST(TypeLibrary, DescribesInit) {
  const ComPtr<ITypeInfo> bound = boundInterface();
  const Function init(*bound.Get(), 0);
  EXPECT_EQ(init.names(), "Init Conn LngApplication strUser jmtVerarbeitungsdatum result");
  EXPECT_EQ(init->memid, initId);
  EXPECT_EQ(init->oVft, static_cast<SHORT>(dispatchSlots * sizeof(void*)));
  EXPECT_EQ(init->invkind, INVOKE_FUNC);
  EXPECT_EQ(init->callconv, CC_STDCALL);
  EXPECT_EQ(init->elemdescFunc.tdesc.vt, VT_HRESULT);
  ASSERT_EQ(init->cParams, 5);

  ASSERT_EQ(init.parameter(0).tdesc.vt, VT_PTR);
  EXPECT_EQ(init.flags(0), PARAMFLAG_FIN | PARAMFLAG_FOUT);
  EXPECT_EQ(init.parameter(1).tdesc.vt, VT_I4);
  EXPECT_EQ(init.flags(1), PARAMFLAG_FIN);
  EXPECT_EQ(init.parameter(2).tdesc.vt, VT_BSTR);
  EXPECT_EQ(init.flags(2), PARAMFLAG_FIN);
  EXPECT_EQ(init.parameter(3).tdesc.vt, VT_BSTR);
  EXPECT_EQ(init.flags(3), PARAMFLAG_FIN | PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT);
  const VARIANT& date = init.parameter(3).paramdesc.pparamdescex->varDefaultValue;
  ASSERT_EQ(V_VT(&date), VT_BSTR);
  EXPECT_EQ(toUtf8(V_BSTR(&date)), "");
  ASSERT_EQ(init.parameter(4).tdesc.vt, VT_PTR);
  EXPECT_EQ(init.parameter(4).tdesc.lptdesc->vt, VT_BOOL);
  EXPECT_EQ(init.flags(4), PARAMFLAG_FOUT | PARAMFLAG_FRETVAL);
}

TEST(TypeLibrary, TakesTheConnectionByReference) {
  const ComPtr<ITypeInfo> bound = boundInterface();
  const Function init(*bound.Get(), 0);
  const TYPEDESC& reference = init.parameter(0).tdesc;
  ASSERT_EQ(reference.vt, VT_PTR);
  const TYPEDESC& object = *reference.lptdesc;
  if (object.vt == VT_DISPATCH) return;
  // The same, where the standard library's interface is named instead.
  ASSERT_EQ(object.vt, VT_PTR);
  ASSERT_EQ(object.lptdesc->vt, VT_USERDEFINED);
  ComPtr<ITypeInfo> interfaceType;
  ASSERT_EQ(bound->GetRefTypeInfo(object.lptdesc->hreftype, interfaceType.GetAddressOf()), S_OK);
  EXPECT_EQ(Attributes(*interfaceType.Get())->guid, IID_IDispatch);
}

TEST(TypeLibrary, DescribesShowDialog) {
  const ComPtr<ITypeInfo> bound = boundInterface();
  const Function show(*bound.Get(), 1);
  EXPECT_EQ(show.names(), "ShowDialog");
  EXPECT_EQ(show->memid, showDialogId);
  EXPECT_EQ(show->oVft, static_cast<SHORT>((dispatchSlots + 1) * sizeof(void*)));
  EXPECT_EQ(show->invkind, INVOKE_FUNC);
  EXPECT_EQ(show->callconv, CC_STDCALL);
  EXPECT_EQ(show->elemdescFunc.tdesc.vt, VT_HRESULT);
  EXPECT_EQ(show->cParams, 0);
}

TEST(TypeLibrary, GivesScriptsABoolean) {
  const ComPtr<ITypeInfo> forScripts = typeNamed("_VXNummernkreise");
  DISPID initFound = 0;
  std::wstring name = L"INIT";
  LPOLESTR names = name.data();
  ASSERT_EQ(forScripts->GetIDsOfNames(&names, 1, &initFound), S_OK);
  EXPECT_EQ(initFound, initId);
  // The members of IDispatch come first in this view.
  const Function init(*forScripts.Get(), dispatchSlots);
  EXPECT_EQ(init->memid, initId);
  EXPECT_EQ(init->elemdescFunc.tdesc.vt, VT_BOOL);
  EXPECT_EQ(init->cParams, 4);
}

}  // namespace
}  // namespace vexnumkr::test
