#include <functional>

#include "hosts/com/ComTest.h"

namespace korvane {
namespace {

constexpr GUID kLibrary = {
    0x08b7e0a3, 0xd109, 0x4e7e, {0x8c, 0xd2, 0xb8, 0x46, 0xbb, 0xdc, 0xe9, 0x54}};

/// The component as the registered type library describes it.
class TypeLibrary : public ComTest {
 protected:
  TypeLibrary() { EXPECT_EQ(LoadRegTypeLib(kLibrary, 1, 0, LOCALE_NEUTRAL, &library), S_OK); }

  /// An interface as a table of functions.
  ComPtr<ITypeInfo> interfaceNamed(const wchar_t* name) {
    ComPtr<ITypeInfo> dual;
    ComPtr<ITypeInfo> plain;
    MEMBERID member = 0;
    USHORT found = 1;
    HREFTYPE reference = 0;
    EXPECT_EQ(library->FindName(const_cast<wchar_t*>(name), 0, &dual, &member, &found), S_OK);
    EXPECT_EQ(found, 1);
    EXPECT_EQ(dual->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    EXPECT_EQ(dual->GetRefTypeInfo(reference, &plain), S_OK);
    return plain;
  }

  /// Calls a function without arguments through the place in the table that the library tells.
  static void call(IUnknown* object, ITypeInfo& type, const wchar_t* function, VARIANT& result) {
    DISPID id = 0;
    UINT index = 0;
    FUNCDESC* described = nullptr;
    auto* name = const_cast<wchar_t*>(function);
    ASSERT_EQ(type.GetIDsOfNames(&name, 1, &id), S_OK) << toUtf8(function);
    while (type.GetFuncDesc(index, &described) == S_OK && described->memid != id) {
      type.ReleaseFuncDesc(described);
      ++index;
    }
    VARTYPE kind = VT_PTR;
    VARIANT argument{};
    argument.vt = VT_BYREF;
    argument.byref = &result.byref;
    VARIANTARG* arguments = &argument;
    Variant done;
    ASSERT_EQ(described->cParams, 1);
    result.vt = described->lprgelemdescParam[0].tdesc.lptdesc->vt;
    EXPECT_EQ(DispCallFunc(object, static_cast<ULONG_PTR>(described->oVft), described->callconv,
                           VT_ERROR, 1, &kind, &arguments, &done),
              S_OK);
    EXPECT_EQ(done.scode, S_OK);
    type.ReleaseFuncDesc(described);
  }

  ComPtr<ITypeLib> library;
};

TEST_F(TypeLibrary, NamesTheClassAndItsInterfaces) {
  const std::vector<std::string> expected = {"ITharnPlugin",  "IModuleInfo", "IMessages",
                                             "ITharnModule",  "ITharnTool",  "IToolWindow",
                                             "clsTharnPlugIn"};
  std::vector<std::string> names;
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
    BSTR name = nullptr;
    library->GetDocumentation(static_cast<INT>(index), &name, nullptr, nullptr, nullptr);
    names.push_back(taken(name));
  }
  std::sort(names.begin(), names.end());
  auto sorted = expected;
  std::sort(sorted.begin(), sorted.end());
  EXPECT_EQ(names, sorted);
}

TEST_F(TypeLibrary, EveryInterfaceIsDual) {
  for (const wchar_t* name : {L"ITharnPlugin", L"ITharnModule", L"ITharnTool", L"IToolWindow",
                              L"IModuleInfo", L"IMessages"}) {
    ComPtr<ITypeInfo> type = interfaceNamed(name);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FDUAL) << toUtf8(name);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FOLEAUTOMATION) << toUtf8(name);
    type->ReleaseTypeAttr(attributes);
  }
}

TEST_F(TypeLibrary, ItsDescriptionsLeadToTheFunctions) {
  const auto plugIn = create();
  const auto window = tool(*plugIn.Get());
  const auto info = infoOf(*plugIn.Get());
  const struct {
    IUnknown* object;
    const wchar_t* type;
    const wchar_t* function;
    const char* expected;
  } calls[] = {
      {plugIn.Get(), L"ITharnPlugin", L"ITharnPlugin_Configure", "-1"},
      {plugIn.Get(), L"ITharnPlugin", L"ITharnPlugin_Enable", "-1"},
      {plugIn.Get(), L"ITharnPlugin", L"ITharnPlugin_Disable", "0"},
      {plugIn.Get(), L"ITharnPlugin", L"ITharnPlugin_Term", "-1"},
      {plugIn.Get(), L"ITharnPlugin", L"ITharnPlugin_PluginName", "Matrix"},
      {plugIn.Get(), L"ITharnPlugin", L"PluginName", "Matrix"},
      {window.Get(), L"IToolWindow", L"Visible", "0"},
      {window.Get(), L"IToolWindow", L"Caption", "Korvane"},
      {window.Get(), L"IToolWindow", L"Width", "8200"},
      {info.Get(), L"IModuleInfo", L"Description", "Matrix, Version 2.9.2"},
      {info.Get(), L"IModuleInfo", L"Number7", "2"},
      {info.Get(), L"IModuleInfo", L"ToolName", "MatrixForm"},
      {info.Get(), L"IModuleInfo", L"Flag13", "-1"},
  };
  for (const auto& row : calls) {
    Variant result;
    call(row.object, *interfaceNamed(row.type).Get(), row.function, result);
    ASSERT_EQ(VariantChangeType(&result, &result, 0, VT_BSTR), S_OK);
    EXPECT_EQ(fromBstr(result.bstrVal), row.expected) << toUtf8(row.function);
  }
}

TEST_F(TypeLibrary, TheObjectDescribesItself) {
  UINT count = 0;
  ComPtr<ITypeInfo> type;
  const auto plugIn = create();
  EXPECT_EQ(plugIn->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  ASSERT_EQ(plugIn->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), S_OK);
  BSTR name = nullptr;
  type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
  EXPECT_EQ(taken(name), "ITharnPlugin");
  EXPECT_EQ(plugIn->GetTypeInfo(1, LOCALE_USER_DEFAULT, &type), DISP_E_BADINDEX);
}

}  // namespace
}  // namespace korvane
