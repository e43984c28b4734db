#pragma once

#include <ole2.h>
#include <wrl/client.h>

#include <tuple>

#include "hosts/com/Component.h"
#include "hosts/com/ErrorResult.h"

namespace korvane {

using Microsoft::WRL::ComPtr;

/// A counted object with these interfaces. It starts with a count of 0: see `make`.
template <class... Interfaces>
class ComObject : public Interfaces... {
 public:
  ComObject() = default;
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = iid == __uuidof(IUnknown) ? identity() : nullptr;
    ((iid == __uuidof(Interfaces) ? * object = static_cast<Interfaces*>(this) : nullptr), ...);
    if (*object == nullptr) *object = other(iid);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

 protected:
  virtual ~ComObject() = default;

  using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;
  First* identity() { return this; }
  /// An interface besides those of the class.
  virtual void* other(REFIID) { return nullptr; }

 private:
  ComponentLock lock_;
  LONG references_ = 0;
};

/// A new object.
template <class Object, class... Arguments>
ComPtr<Object> make(Arguments&&... arguments) {
  return new Object(std::forward<Arguments>(arguments)...);
}

}  // namespace korvane
