#include "hosts/com/ClassFactory.h"

#include <wrl/client.h>

#include "hosts/com/ComObject.h"
#include "hosts/com/Korvane_h.h"
#include "hosts/com/PlugInObject.h"

namespace korvane {
namespace {

class ClassFactory : public ComObject<IClassFactory> {
 public:
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    Microsoft::WRL::ComPtr<IUnknown> made;
    const HRESULT result = guarded([&] { made = makePlugInObject(); });
    return FAILED(result) ? result : made->QueryInterface(iid, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    lock ? Component::lock() : Component::unlock();
    return S_OK;
  }
};

}  // namespace

HRESULT classObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (clsid != __uuidof(::clsTharnPlugIn)) return CLASS_E_CLASSNOTAVAILABLE;
  Microsoft::WRL::ComPtr<IUnknown> factory;
  const HRESULT result = guarded([&] { factory = make<ClassFactory>(); });
  return FAILED(result) ? result : factory->QueryInterface(iid, object);
}

}  // namespace korvane
