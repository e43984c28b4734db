// The four entry points of the component, and its handle.

#include <windows.h>

#include "hosts/com/ClassFactory.h"
#include "hosts/com/Component.h"
#include "hosts/com/Registration.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) korvane::Component::handle = module;
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  return korvane::classObject(clsid, iid, object);
}

STDAPI DllCanUnloadNow() { return korvane::Component::used() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return korvane::registerComponent(); }

STDAPI DllUnregisterServer() { return korvane::unregisterComponent(); }
