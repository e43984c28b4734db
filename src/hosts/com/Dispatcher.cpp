#include "hosts/com/Dispatcher.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "hosts/com/Variant.h"
#include "platform/Failure.h"

namespace korvane {
namespace {

constexpr WORD kWrites = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
constexpr WORD kReads = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

/// The description of a member; null if the interface lacks it.
auto findMember(ITypeInfo& type, DISPID id, WORD flags) {
  const auto release = [&type](FUNCDESC* member) { type.ReleaseFuncDesc(member); };
  const WORD kinds = (flags & kWrites) != 0 ? kWrites : kReads;
  FUNCDESC* found = nullptr;
  for (UINT index = 0; SUCCEEDED(type.GetFuncDesc(index, &found)); ++index) {
    if (found->memid == id && (found->invkind & kinds) != 0) break;
    release(std::exchange(found, nullptr));
  }
  return std::unique_ptr<FUNCDESC, decltype(release)>(found, release);
}

/// Arguments as a member declares them. Scripts hand over variables by reference as variants of any
/// type, and constants by value.
class GivenArguments {
 public:
  GivenArguments(const FUNCDESC& member, const DISPPARAMS& given)
      : member_(member), given_(given), values_(given.cArgs), arguments_(given.cArgs) {}

  /// Converts all; the index of one that can't be goes to `wrong`.
  HRESULT convert(LCID locale, UINT* wrong) {
    for (UINT index = 0; index < given_.cArgs; ++index) {
      const HRESULT result = convert(index, locale);
      if (SUCCEEDED(result)) continue;
      if (wrong != nullptr) *wrong = index;
      return result;
    }
    return S_OK;
  }

  DISPPARAMS all() {
    DISPPARAMS converted = given_;
    converted.rgvarg = arguments_.data();
    return converted;
  }

 private:
  /// The parameter that an argument is for: the arguments stand in reverse order, named ones first.
  UINT parameter(UINT index) const {
    if (index >= given_.cNamedArgs) return given_.cArgs - 1 - index;
    const DISPID name = given_.rgdispidNamedArgs[index];
    return name == DISPID_PROPERTYPUT ? given_.cArgs - 1 : static_cast<UINT>(name);
  }

  HRESULT convert(UINT index, LCID locale) {
    Variant& value = values_[index];
    VARIANT& argument = arguments_[index];
    const UINT number = parameter(index);
    if (number >= static_cast<UINT>(member_.cParams)) {
      argument = given_.rgvarg[index];
      return S_OK;
    }
    const TYPEDESC& type = member_.lprgelemdescParam[number].tdesc;
    const bool byReference = type.vt == VT_PTR;
    const VARTYPE wanted = byReference ? type.lptdesc->vt : type.vt;
    HRESULT result = VariantCopyInd(&value, &given_.rgvarg[index]);
    if (SUCCEEDED(result)) result = VariantChangeTypeEx(&value, &value, locale, 0, wanted);
    argument = value;
    if (byReference) {
      argument.vt = static_cast<VARTYPE>(VT_BYREF | wanted);
      argument.byref = &value.byref;  // all values stand at the same place
    }
    return result;
  }

  const FUNCDESC& member_;
  const DISPPARAMS& given_;
  std::vector<Variant> values_;
  std::vector<VARIANT> arguments_;
};

}  // namespace

void Dispatcher::add(ITypeLib& types, REFIID iid, IDispatch* object) {
  Part part{nullptr, object};
  if (FAILED(types.GetTypeInfoOfGuid(iid, &part.type)))
    throw Failure(kAutomation, "an interface is missing from the type library");
  parts_.push_back(std::move(part));
}

HRESULT Dispatcher::typeInfo(UINT index, ITypeInfo** info) const {
  return index == 0 ? parts_.front().type.CopyTo(info) : DISP_E_BADINDEX;
}

HRESULT Dispatcher::numbers(OLECHAR** names, UINT count, DISPID* ids) const {
  for (const Part& part : parts_) {
    if (SUCCEEDED(part.type->GetIDsOfNames(names, count, ids))) return S_OK;
  }
  std::fill_n(ids, count, DISPID_UNKNOWN);
  return DISP_E_UNKNOWNNAME;
}

HRESULT Dispatcher::invoke(DISPID id, LCID locale, WORD flags, DISPPARAMS* given, VARIANT* result,
                           EXCEPINFO* exception, UINT* wrongArgument) const {
  for (const Part& part : parts_) {
    const auto member = findMember(*part.type.Get(), id, flags);
    if (member == nullptr) continue;
    GivenArguments arguments(*member, *given);
    const HRESULT converted = arguments.convert(locale, wrongArgument);
    if (FAILED(converted)) return converted;
    DISPPARAMS all = arguments.all();
    return part.type->Invoke(part.object, id, static_cast<WORD>(member->invkind), &all, result,
                             exception, wrongArgument);
  }
  return DISP_E_MEMBERNOTFOUND;
}

}  // namespace korvane
