#pragma once

#include <gtest/gtest.h>
#include <ole2.h>
#include <wrl/client.h>

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/com/FakeObject.h"
#include "hosts/com/Korvane_h.h"
#include "hosts/com/Variant.h"
#include "hosts/com/WideText.h"

namespace korvane {

using Microsoft::WRL::ComPtr;

/// The component, loaded from a file as the system loads it.
class LoadedComponent {
 public:
  explicit LoadedComponent(const std::filesystem::path& file)
      : module_(LoadLibraryW(file.c_str())) {
    EXPECT_NE(module_, nullptr) << file;
  }
  ~LoadedComponent() { FreeLibrary(module_); }
  LoadedComponent(const LoadedComponent&) = delete;
  LoadedComponent& operator=(const LoadedComponent&) = delete;

  /// Calls an entry point without arguments.
  HRESULT call(const char* entry) { return entryPoint<HRESULT(WINAPI*)()>(entry)(); }
  HRESULT classObject(REFCLSID clsid, REFIID iid, void** object) {
    return entryPoint<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(clsid, iid,
                                                                                       object);
  }
  /// Names of all that it exports, sorted.
  std::vector<std::string> exports() {
    const auto* base = reinterpret_cast<const char*>(module_);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* head = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& place = head->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* table =
        reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place.VirtualAddress);
    EXPECT_EQ(table->NumberOfFunctions, table->NumberOfNames);
    const auto* names = reinterpret_cast<const DWORD*>(base + table->AddressOfNames);
    std::vector<std::string> found;
    for (DWORD index = 0; index < table->NumberOfNames; ++index)
      found.emplace_back(base + names[index]);
    return found;
  }

 private:
  template <class Entry>
  Entry entryPoint(const char* name) {
    return reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

  HMODULE module_;
};

/// The built component, beside this program.
inline std::filesystem::path componentFile() {
  wchar_t program[MAX_PATH];
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  return std::filesystem::path(program).parent_path() / "Korvane.dll";
}

/// The text that came with the last error result.
inline std::string errorText() {
  ComPtr<IErrorInfo> info;
  BSTR text = nullptr;
  if (GetErrorInfo(0, &info) == S_OK) info->GetDescription(&text);
  const std::string utf8 = fromBstr(text);
  SysFreeString(text);
  return utf8;
}

/// A text that a method handed over, which is freed.
inline std::string taken(BSTR text) {
  const std::string utf8 = fromBstr(text);
  SysFreeString(text);
  return utf8;
}

/// A desk around the registered component. After each test, nothing of the component must be left.
class ComTest : public testing::Test {
 protected:
  ComTest() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    EXPECT_EQ(component.call("DllRegisterServer"), S_OK);
  }
  ~ComTest() override {
    EXPECT_EQ(desk.references(), 0) << "the plug-in keeps objects of the desk";
    EXPECT_EQ(component.call("DllCanUnloadNow"), S_OK) << "the plug-in keeps objects of its own";
    CoUninitialize();
  }

  ComPtr<::ITharnPlugin> create() {
    ComPtr<::ITharnPlugin> plugIn;
    EXPECT_EQ(CoCreateInstance(__uuidof(::clsTharnPlugIn), nullptr, CLSCTX_INPROC_SERVER,
                               IID_PPV_ARGS(&plugIn)),
              S_OK);
    return plugIn;
  }
  HRESULT init(::ITharnPlugin& plugIn) {
    BSTR title = SysAllocString(L"desk");
    BSTR filename = SysAllocString(L"Korvane.dll");
    IDispatch* helper = &desk.helper;
    VARIANT_BOOL result = VARIANT_FALSE;
    const HRESULT done = plugIn.ITharnPlugin_Init(&title, &filename, &helper, &result);
    EXPECT_EQ(result, SUCCEEDED(done) ? VARIANT_TRUE : VARIANT_FALSE);
    SysFreeString(title);
    SysFreeString(filename);
    return done;
  }
  /// The tool window of a plug-in that knows the desk.
  ComPtr<IToolWindow> tool(::ITharnPlugin& plugIn) {
    EXPECT_EQ(init(plugIn), S_OK);
    return toolOf(plugIn);
  }
  static ComPtr<IModuleInfo> infoOf(::ITharnPlugin& plugIn) {
    ComPtr<::ITharnModule> module;
    ComPtr<IModuleInfo> info;
    EXPECT_EQ(plugIn.QueryInterface(IID_PPV_ARGS(&module)), S_OK);
    EXPECT_EQ(module->ITharnModule_ModuleInfo(&info), S_OK);
    return info;
  }
  static ComPtr<IToolWindow> toolOf(::ITharnPlugin& plugIn) {
    ComPtr<::ITharnTool> tool;
    ComPtr<IToolWindow> window;
    EXPECT_EQ(infoOf(plugIn)->get_Tool(&tool), S_OK);
    EXPECT_EQ(tool.As(&window), S_OK);
    return window;
  }
  static std::string run(IToolWindow& tool, const std::string& command) {
    BSTR line = toBstr(command);
    BSTR reply = nullptr;
    EXPECT_EQ(tool.Run(line, &reply), S_OK);
    SysFreeString(line);
    return taken(reply);
  }
  static HRESULT message(::ITharnPlugin& plugIn, long number, long arg1 = 0) {
    long arg2 = 0;
    long result = -1;
    const HRESULT done = plugIn.ITharnPlugin_MessageHandle(&number, &arg1, &arg2, &result);
    EXPECT_EQ(result, SUCCEEDED(done) ? 0 : -1);
    return done;
  }

  LoadedComponent component{componentFile()};
  FakeDesk desk;
};

}  // namespace korvane
