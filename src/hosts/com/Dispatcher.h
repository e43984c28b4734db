#pragma once

#include <ole2.h>
#include <wrl/client.h>

#include <vector>

namespace korvane {

/// Calls by name on an object with dual interfaces: all their members form one list of names, and
/// their numbers are unique. Arguments are converted as a script expects, those by reference too.
class Dispatcher {
 public:
  /// Adds an interface of the object, which the type library describes.
  void add(ITypeLib& types, REFIID iid, IDispatch* object);

  // As the methods of IDispatch.
  HRESULT typeInfo(UINT index, ITypeInfo** info) const;
  HRESULT numbers(OLECHAR** names, UINT count, DISPID* ids) const;
  HRESULT invoke(DISPID id, LCID locale, WORD flags, DISPPARAMS* given, VARIANT* result,
                 EXCEPINFO* exception, UINT* wrongArgument) const;

 private:
  struct Part {
    Microsoft::WRL::ComPtr<ITypeInfo> type;
    IDispatch* object;
  };
  std::vector<Part> parts_;
};

}  // namespace korvane
