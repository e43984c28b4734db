#include "hosts/com/Registration.h"

#include <wrl/client.h>

#include <string>

#include "hosts/com/Component.h"
#include "hosts/com/ErrorResult.h"
#include "hosts/com/Korvane_h.h"
#include "platform/Failure.h"

// Missing from mingw-w64's headers.
STDAPI RegisterTypeLibForUser(ITypeLib* types, OLECHAR* path, OLECHAR* helpFolder);
STDAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale, SYSKIND kind);

namespace korvane {
namespace {

using Microsoft::WRL::ComPtr;

constexpr const wchar_t* kProgId = L"Korvane.clsTharnPlugIn";
constexpr const wchar_t* kTitle = L"Korvane, the pixel-matrix plug-in";
const std::wstring kClasses = L"Software\\Classes\\";

/// For whom the component is registered.
struct Users {
  HKEY root;
  HRESULT(WINAPI* enterTypes)(ITypeLib*, OLECHAR* path, OLECHAR* helpFolder);
  HRESULT(WINAPI* removeTypes)(REFGUID, WORD, WORD, LCID, SYSKIND);
};

const Users kAll = {HKEY_LOCAL_MACHINE, RegisterTypeLib, UnRegisterTypeLib};
const Users kThisOne = {HKEY_CURRENT_USER, RegisterTypeLibForUser, UnRegisterTypeLibForUser};

std::wstring text(REFGUID guid) {
  wchar_t buffer[39];
  StringFromGUID2(guid, buffer, 39);
  return buffer;
}

std::wstring classKey() { return kClasses + L"CLSID\\" + text(__uuidof(::clsTharnPlugIn)); }

std::wstring progIdKey() { return kClasses + kProgId; }

/// The type library in the component, and what tells it from others.
struct Types {
  Types() {
    if (FAILED(LoadTypeLibEx(Component::path().data(), REGKIND_NONE, &typeLib)) ||
        FAILED(typeLib->GetLibAttr(&id)))
      throw Failure(kAutomation, "the component lacks its type library");
  }
  ~Types() { typeLib->ReleaseTLibAttr(id); }
  Types(const Types&) = delete;
  Types& operator=(const Types&) = delete;

  ComPtr<ITypeLib> typeLib;
  TLIBATTR* id = nullptr;
};

HRESULT setValue(HKEY root, const std::wstring& key, const wchar_t* name,
                 const std::wstring& value) {
  const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  return HRESULT_FROM_WIN32(
      static_cast<DWORD>(RegSetKeyValueW(root, key.data(), name, REG_SZ, value.data(), bytes)));
}

HRESULT removeKey(HKEY root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root, key.data());
  if (status == ERROR_FILE_NOT_FOUND) return S_OK;
  return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

HRESULT enterClass(HKEY root, const Types& types) {
  const std::wstring version =
      std::to_wstring(types.id->wMajorVerNum) + L"." + std::to_wstring(types.id->wMinorVerNum);
  const struct {
    std::wstring key;
    const wchar_t* name;
    std::wstring value;
  } rows[] = {
      {classKey(), nullptr, kTitle},
      {classKey() + L"\\InprocServer32", nullptr, Component::path()},
      {classKey() + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {classKey() + L"\\ProgID", nullptr, kProgId},
      {classKey() + L"\\TypeLib", nullptr, text(types.id->guid)},
      {classKey() + L"\\Version", nullptr, version},
      {progIdKey(), nullptr, kTitle},
      {progIdKey() + L"\\CLSID", nullptr, text(__uuidof(::clsTharnPlugIn))},
  };
  for (const auto& row : rows) {
    const HRESULT result = setValue(root, row.key, row.name, row.value);
    if (FAILED(result)) return result;
  }
  return S_OK;
}

bool registered(const TLIBATTR& id) {
  BSTR path = nullptr;
  const HRESULT found =
      QueryPathOfRegTypeLib(id.guid, id.wMajorVerNum, id.wMinorVerNum, id.lcid, &path);
  SysFreeString(path);
  return SUCCEEDED(found);
}

// It may be registered for others than these users, which is told as a lack of rights.
HRESULT removeTypes(const Users& users, const TLIBATTR& id) {
  if (!registered(id)) return S_OK;
  const HRESULT result =
      users.removeTypes(id.guid, id.wMajorVerNum, id.wMinorVerNum, id.lcid, id.syskind);
  return result == TYPE_E_REGISTRYACCESS ? S_OK : result;
}

HRESULT remove(const Users& users, const Types& types) {
  const HRESULT results[] = {removeTypes(users, *types.id), removeKey(users.root, progIdKey()),
                             removeKey(users.root, classKey())};
  for (const HRESULT result : results) {
    if (FAILED(result)) return result;
  }
  return S_OK;
}

HRESULT enter(const Users& users, const Types& types) {
  HRESULT result = enterClass(users.root, types);
  if (SUCCEEDED(result))
    result = users.enterTypes(types.typeLib.Get(), Component::path().data(), nullptr);
  if (FAILED(result)) remove(users, types);
  return result;
}

bool lacksRights(HRESULT result) {
  return result == E_ACCESSDENIED || result == TYPE_E_REGISTRYACCESS;
}

}  // namespace

HRESULT registerComponent() noexcept {
  HRESULT result = E_UNEXPECTED;
  const HRESULT done = guarded([&] {
    const Types types;
    result = enter(kAll, types);
    if (lacksRights(result)) result = enter(kThisOne, types);
  });
  return FAILED(done) ? done : result;
}

HRESULT unregisterComponent() noexcept {
  HRESULT result = E_UNEXPECTED;
  const HRESULT done = guarded([&] {
    const Types types;
    const HRESULT forThisUser = remove(kThisOne, types);
    result = remove(kAll, types);
    if (SUCCEEDED(result)) result = forThisUser;
  });
  return FAILED(done) ? done : result;
}

}  // namespace korvane
