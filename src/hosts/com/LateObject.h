#pragma once

#include <ole2.h>
#include <wrl/client.h>

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "hosts/com/Turn.h"
#include "hosts/com/Variant.h"

namespace korvane {

/// An object of the desk, whose members are called by name. A name is resolved once for as long as
/// the object is the same. Whatever goes wrong is a Failure that names the member.
class LateObject {
 public:
  /// `path` is what texts call the object, as in "MyStream"; empty for the helper object itself.
  LateObject(std::string path, Turn& turn) : path_(std::move(path)), turn_(turn) {}

  /// The object from now on, a counted reference; nullptr for none.
  void use(IDispatch* object);
  /// Makes the object that a property of the owner holds the one from now on.
  void fetch(LateObject& owner, const wchar_t* property);

  std::int32_t integer(const wchar_t* property);
  std::string text(const wchar_t* property);
  /// Calls a method; the arguments stand in reverse order. Its result is ignored.
  void call(const wchar_t* method, std::span<VARIANT> arguments = {});

 private:
  void get(const wchar_t* property, VARTYPE type, Variant& result);
  void invoke(const wchar_t* member, WORD flags, std::span<VARIANT> arguments, VARIANT* result);
  DISPID number(IDispatch& object, const wchar_t* member);
  std::string nameOf(const wchar_t* member) const;

  std::string path_;
  Turn& turn_;
  Microsoft::WRL::ComPtr<IDispatch> object_;
  std::map<std::wstring_view, DISPID> numbers_;
};

}  // namespace korvane
