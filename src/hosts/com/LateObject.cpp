#include "hosts/com/LateObject.h"

#include <dispex.h>

#include <array>
#include <memory>

#include "hosts/com/WideText.h"
#include "platform/Failure.h"

namespace korvane {
namespace {

using Microsoft::WRL::ComPtr;

/// What the desk tells of a failed call; it owns the texts.
class Exception {
 public:
  ~Exception() {
    SysFreeString(info_.bstrSource);
    SysFreeString(info_.bstrDescription);
    SysFreeString(info_.bstrHelpFile);
  }
  EXCEPINFO* out() { return &info_; }

  std::string text(HRESULT result) {
    if (result != DISP_E_EXCEPTION) return systemText(result);
    if (info_.pfnDeferredFillIn != nullptr) info_.pfnDeferredFillIn(&info_);
    if (SysStringLen(info_.bstrDescription) > 0) return fromBstr(info_.bstrDescription);
    return systemText(info_.scode);
  }

 private:
  static std::string systemText(HRESULT result) {
    std::array<wchar_t, 200> text{};
    swprintf(text.data(), text.size(), L"error %08lX ", static_cast<unsigned long>(result));
    std::wstring all = text.data();
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, static_cast<DWORD>(result), 0, text.data(), text.size(), nullptr);
    all.append(text.data(), length);
    while (!all.empty() && all.back() == L' ') all.pop_back();
    return toUtf8(all);
  }

  EXCEPINFO info_{};
};

/// The number of a member, DISPID_UNKNOWN if the object lacks it. Objects that a script defines may
/// tell numbers by IDispatchEx alone.
DISPID findNumber(IDispatch& object, const wchar_t* member) {
  DISPID id = DISPID_UNKNOWN;
  auto* name = const_cast<wchar_t*>(member);
  if (SUCCEEDED(object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id))) return id;
  ComPtr<IDispatchEx> script;
  const auto text =
      std::unique_ptr<wchar_t, decltype(&SysFreeString)>(SysAllocString(member), SysFreeString);
  if (SUCCEEDED(object.QueryInterface(IID_PPV_ARGS(&script))) &&
      SUCCEEDED(script->GetDispID(text.get(), fdexNameCaseInsensitive, &id))) {
    return id;
  }
  return DISPID_UNKNOWN;
}

}  // namespace

void LateObject::use(IDispatch* object) {
  if (object == object_.Get()) return;
  numbers_.clear();
  object_ = object;
}

void LateObject::fetch(LateObject& owner, const wchar_t* property) {
  Variant found;
  owner.get(property, VT_DISPATCH, found);
  if (found.pdispVal == nullptr) throw Failure(kObjectNotSet, owner.nameOf(property));
  use(found.pdispVal);
}

std::int32_t LateObject::integer(const wchar_t* property) {
  Variant found;
  get(property, VT_I4, found);
  return found.lVal;
}

std::string LateObject::text(const wchar_t* property) {
  Variant found;
  get(property, VT_BSTR, found);
  return fromBstr(found.bstrVal);
}

void LateObject::call(const wchar_t* method, std::span<VARIANT> arguments) {
  invoke(method, DISPATCH_METHOD, arguments, nullptr);
}

void LateObject::get(const wchar_t* property, VARTYPE type, Variant& result) {
  Variant found;
  invoke(property, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, &found);
  const HRESULT changed = VariantChangeType(&result, &found, 0, type);
  if (changed == DISP_E_OVERFLOW) throw Failure(kOverflow, nameOf(property));
  if (FAILED(changed)) throw Failure(kTypeMismatch, nameOf(property));
}

void LateObject::invoke(const wchar_t* member, WORD flags, std::span<VARIANT> arguments,
                        VARIANT* result) {
  const ComPtr<IDispatch> object = object_;  // the desk may hand over another one meanwhile
  if (object == nullptr) throw Failure(kObjectNotSet, nameOf(member));
  const WayOut out(turn_);
  const DISPID id = number(*object.Get(), member);
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  Exception exception;
  const HRESULT called = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                        result, exception.out(), nullptr);
  if (FAILED(called)) throw Failure(kAutomation, nameOf(member) + ": " + exception.text(called));
}

DISPID LateObject::number(IDispatch& object, const wchar_t* member) {
  const auto known = numbers_.find(member);
  if (known != numbers_.end()) return known->second;
  const DISPID found = findNumber(object, member);
  if (found == DISPID_UNKNOWN) throw Failure(kNoSuchMember, nameOf(member));
  numbers_[member] = found;
  return found;
}

std::string LateObject::nameOf(const wchar_t* member) const {
  return (path_.empty() ? "" : path_ + ".") + toUtf8(member);
}

}  // namespace korvane
