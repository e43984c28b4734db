#include <ole2.h>
#include <sddl.h>

#include <algorithm>

#include "hosts/com/ComTest.h"

namespace korvane {
namespace {

const std::wstring kClasses = L"Software\\Classes";
const std::wstring kServer =
    kClasses + L"\\CLSID\\{B87C1D89-8C0C-4508-82ED-967A4CE807B0}\\InprocServer32";

std::wstring value(HKEY root, const std::wstring& key, const wchar_t* name) {
  wchar_t text[1000];
  DWORD size = sizeof text;
  const LSTATUS found = RegGetValueW(root, key.data(), name, RRF_RT_REG_SZ, nullptr, text, &size);
  return found == ERROR_SUCCESS ? text : L"";
}

bool isOurs(std::wstring text) {
  for (wchar_t& character : text) character = static_cast<wchar_t>(towlower(character));
  for (const wchar_t* sign :
       {L"korvane", L"b87c1d89-8c0c-4508-82ed-967a4ce807b0",
        L"08b7e0a3-d109-4e7e-8cd2-b846bbdce954", L"4ee2a7c5-02ad-4158-a0c3-d299cc80013d",
        L"e0998508-fd2d-4fde-b0f6-ce397ecd2048", L"03bc2a79-f206-4e0d-9eb8-d68683ed7a1c",
        L"a1a8883b-9ddb-442a-bad3-cbc0d1cb7203", L"befd14cc-824d-440d-b103-98d4ec23d6a9",
        L"321ae94a-d2d8-4919-b51d-50f6f8915d8c"}) {
    if (text.find(sign) != std::wstring::npos) return true;
  }
  return false;
}

/// Adds all keys at and below this one that are the component's by name or by a value.
void collect(HKEY root, const std::wstring& key, std::vector<std::string>& found) {
  HKEY open = nullptr;
  if (RegOpenKeyExW(root, key.data(), 0, KEY_READ, &open) != ERROR_SUCCESS) return;
  if (isOurs(key) || isOurs(value(root, key, nullptr))) found.push_back(toUtf8(key));
  wchar_t name[300];
  for (DWORD index = 0;; ++index) {
    DWORD length = 300;
    if (RegEnumKeyExW(open, index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS)
      break;
    collect(root, key + L"\\" + name, found);
  }
  RegCloseKey(open);
}

std::vector<std::string> traces() {
  std::vector<std::string> found;
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) collect(root, kClasses, found);
  return found;
}

class Registration : public testing::Test {
 protected:
  Registration() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    EXPECT_EQ(component.call("DllUnregisterServer"), S_OK);
  }
  ~Registration() override {
    EXPECT_EQ(component.call("DllUnregisterServer"), S_OK);
    EXPECT_EQ(traces(), std::vector<std::string>());
    CoUninitialize();
  }

  static HRESULT create() {
    ComPtr<::ITharnPlugin> plugIn;
    CLSID clsid{};
    const HRESULT known = CLSIDFromProgID(L"Korvane.clsTharnPlugIn", &clsid);
    if (FAILED(known)) return known;
    return CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&plugIn));
  }

  LoadedComponent component{componentFile()};
};

TEST_F(Registration, EntersTheClassItsProgIdAndTheTypeLibrary) {
  EXPECT_TRUE(FAILED(create()));
  EXPECT_EQ(component.call("DllRegisterServer"), S_OK);
  EXPECT_EQ(create(), S_OK);
  EXPECT_EQ(std::filesystem::path(value(HKEY_LOCAL_MACHINE, kServer, nullptr)), componentFile());
  EXPECT_EQ(value(HKEY_LOCAL_MACHINE, kServer, L"ThreadingModel"), L"Apartment");
  const std::wstring id = L"{08B7E0A3-D109-4E7E-8CD2-B846BBDCE954}";
  EXPECT_NE(value(HKEY_LOCAL_MACHINE, kClasses + L"\\TypeLib\\" + id + L"\\1.0", nullptr), L"");
  EXPECT_EQ(value(HKEY_LOCAL_MACHINE,
                  kClasses + L"\\CLSID\\{B87C1D89-8C0C-4508-82ED-967A4CE807B0}\\TypeLib", nullptr),
            id);
}

TEST_F(Registration, TwiceIsTheSameAsOnce) {
  EXPECT_EQ(component.call("DllRegisterServer"), S_OK);
  const std::vector<std::string> once = traces();
  EXPECT_FALSE(once.empty());
  EXPECT_EQ(component.call("DllRegisterServer"), S_OK);
  EXPECT_EQ(traces(), once);
}

TEST_F(Registration, RemovesAllThatItEnteredAndMayBeCalledAgain) {
  EXPECT_EQ(component.call("DllRegisterServer"), S_OK);
  EXPECT_EQ(component.call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(traces(), std::vector<std::string>());
  EXPECT_TRUE(FAILED(create()));
  EXPECT_EQ(component.call("DllUnregisterServer"), S_OK);
}

TEST_F(Registration, LeavesWhatBelongsToOthers) {
  const std::wstring other = kClasses + L"\\CLSID\\{00000000-1111-2222-3333-444444444444}";
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, other.data(), nullptr, REG_SZ, L"other", 12);
  EXPECT_EQ(component.call("DllRegisterServer"), S_OK);
  EXPECT_EQ(component.call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(value(HKEY_LOCAL_MACHINE, other, nullptr), L"other");
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, other.data());
}

/// Keeps everyone from writing to a key.
void protect(const std::wstring& key, const wchar_t* rights) {
  HKEY open = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, key.data(), 0, nullptr, 0, WRITE_DAC, nullptr,
                            &open, nullptr),
            ERROR_SUCCESS);
  ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1,
                                                                   &descriptor, nullptr));
  EXPECT_EQ(RegSetKeySecurity(open, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
  LocalFree(descriptor);
  RegCloseKey(open);
}

TEST_F(Registration, IsForTheUserAloneWithoutTheRightToDoMore) {
  const std::wstring classKey = kServer.substr(0, kServer.rfind(L'\\'));
  protect(classKey, L"D:(D;;0x6;;;WD)(A;;GA;;;WD)");
  EXPECT_EQ(component.call("DllRegisterServer"), S_OK);
  EXPECT_EQ(std::filesystem::path(value(HKEY_CURRENT_USER, kServer, nullptr)), componentFile());
  EXPECT_EQ(value(HKEY_LOCAL_MACHINE, kServer, nullptr), L"");
  EXPECT_EQ(value(HKEY_LOCAL_MACHINE, kClasses + L"\\Korvane.clsTharnPlugIn", nullptr), L"");
  protect(classKey, L"D:(A;;GA;;;WD)");
}

TEST_F(Registration, WorksFromAPlaceWithBlanksAndUmlauts) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / L"Gr\u00fcne L\u00e4mpchen & more (1)";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  const std::filesystem::path copy = folder / "Korvane.dll";
  std::filesystem::copy_file(componentFile(), copy);
  EXPECT_EQ(component.call("DllRegisterServer"), S_OK);
  {
    LoadedComponent moved(copy);
    EXPECT_EQ(moved.call("DllRegisterServer"), S_OK);
    EXPECT_EQ(std::filesystem::path(value(HKEY_LOCAL_MACHINE, kServer, nullptr)), copy);
    EXPECT_EQ(create(), S_OK);
    EXPECT_EQ(moved.call("DllCanUnloadNow"), S_OK);
    EXPECT_EQ(moved.call("DllUnregisterServer"), S_OK);
  }
  EXPECT_EQ(traces(), std::vector<std::string>());
  CoFreeUnusedLibrariesEx(0, 0);
  std::error_code busy;
  std::filesystem::remove_all(folder, busy);
}

}  // namespace
}  // namespace korvane
