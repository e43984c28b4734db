#pragma once

#include <ole2.h>

#include <memory>
#include <string>

#include "hosts/com/ComObject.h"
#include "hosts/com/Dispatcher.h"
#include "hosts/com/Korvane_h.h"
#include "hosts/com/Session.h"
#include "hosts/com/WideText.h"

namespace korvane {

// Hands a result over to the desk.
inline void put(VARIANT_BOOL* out, bool value) { *out = value ? VARIANT_TRUE : VARIANT_FALSE; }
inline void put(long* out, std::int32_t value) { *out = value; }
inline void put(BSTR* out, const std::string& value) { *out = toBstr(value); }
template <class Interface, class Object>
void put(Interface** out, const ComPtr<Object>& object) {
  ComPtr<Interface>(object).CopyTo(out);
}

/// An object of the plug-in with these dual interfaces, which the desk may bind early or call by
/// name. It keeps the plug-in alive.
template <class... Interfaces>
class DualObject : public ComObject<Interfaces..., ISupportErrorInfo> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    return info == nullptr ? E_POINTER : dispatcher_.typeInfo(index, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, OLECHAR** names, UINT count, LCID,
                                          DISPID* ids) override {
    return names == nullptr || ids == nullptr ? E_POINTER : dispatcher_.numbers(names, count, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* given,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrongArgument) override {
    if (given == nullptr) return E_POINTER;
    const ComPtr<IUnknown> self(this->identity());
    HRESULT answer = E_UNEXPECTED;
    const HRESULT made = guarded([&] {
      answer = dispatcher_.invoke(id, locale, flags, given, result, exception, wrongArgument);
    });
    return FAILED(made) ? made : answer;
  }
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) override { return S_OK; }

 protected:
  explicit DualObject(std::shared_ptr<Session> session) : session_(std::move(session)) {
    (dispatcher_.add(session_->types(), __uuidof(Interfaces), static_cast<Interfaces*>(this)), ...);
  }

  const std::shared_ptr<Session>& session() const { return session_; }

  /// The body of a method without a result. The object stays until it has ended, even if the desk
  /// lets go of it meanwhile.
  template <class Body>
  HRESULT call(Body body) {
    const ComPtr<IUnknown> self(this->identity());
    return guarded(body);
  }
  /// The body of a method with a result.
  template <class Out, class Body>
  HRESULT give(Out* out, Body body) {
    if (out == nullptr) return E_POINTER;
    return call([&] { put(out, body()); });
  }

 private:
  using Base = ComObject<Interfaces..., ISupportErrorInfo>;

  void* other(REFIID iid) override {
    return iid == __uuidof(IDispatch) ? static_cast<IDispatch*>(this->identity()) : nullptr;
  }

  std::shared_ptr<Session> session_;
  Dispatcher dispatcher_;
};

}  // namespace korvane
