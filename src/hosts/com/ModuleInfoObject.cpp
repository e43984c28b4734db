#include "hosts/com/ModuleInfoObject.h"

#include "hosts/com/DualObject.h"
#include "hosts/com/MessagesObject.h"
#include "hosts/com/ToolObject.h"

namespace korvane {
namespace {

class ModuleInfoObject : public DualObject<IModuleInfo> {
 public:
  ModuleInfoObject(const std::shared_ptr<Session>& session, const ModuleInfo& info)
      : DualObject(session),
        info_(info),
        tool_(toolObject(session)),
        messages_(makeMessagesObject(session, info.messages)) {}

  HRESULT STDMETHODCALLTYPE get_Item(long index, VARIANT* result) override {
    if (result == nullptr) return E_POINTER;
    const HRESULT found = call([&] {
      if (index < 1 || index > kFields)
        throw Failure(kSubscript, "field " + std::to_string(index) + " of the module information");
    });
    DISPPARAMS none{};
    return FAILED(found) ? found
                         : Invoke(index, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                  result, nullptr, nullptr);
  }
  HRESULT STDMETHODCALLTYPE get_Identity(BSTR* out) override { return field(out, info_.identity); }
  HRESULT STDMETHODCALLTYPE get_Name(BSTR* out) override { return field(out, info_.name); }
  HRESULT STDMETHODCALLTYPE get_Description(BSTR* out) override {
    return field(out, info_.description);
  }
  HRESULT STDMETHODCALLTYPE get_Author(BSTR* out) override { return field(out, info_.author); }
  HRESULT STDMETHODCALLTYPE get_Number5(long* out) override { return field(out, info_.number5); }
  HRESULT STDMETHODCALLTYPE get_Flag6(VARIANT_BOOL* out) override {
    return field(out, info_.flag6);
  }
  HRESULT STDMETHODCALLTYPE get_Number7(long* out) override { return field(out, info_.number7); }
  HRESULT STDMETHODCALLTYPE get_ToolName(BSTR* out) override { return field(out, info_.toolName); }
  HRESULT STDMETHODCALLTYPE get_Tool(::ITharnTool** out) override { return field(out, tool_); }
  HRESULT STDMETHODCALLTYPE get_Number10(long* out) override { return field(out, info_.number10); }
  HRESULT STDMETHODCALLTYPE get_Number11(long* out) override { return field(out, info_.number11); }
  HRESULT STDMETHODCALLTYPE get_Flag12(VARIANT_BOOL* out) override {
    return field(out, info_.flag12);
  }
  HRESULT STDMETHODCALLTYPE get_Flag13(VARIANT_BOOL* out) override {
    return field(out, info_.flag13);
  }
  HRESULT STDMETHODCALLTYPE get_Messages(IMessages** out) override { return field(out, messages_); }

 private:
  static constexpr long kFields = 14;

  template <class Out, class Value>
  HRESULT field(Out* out, const Value& value) {
    return give(out, [&]() -> const Value& { return value; });
  }

  const ModuleInfo info_;
  const ComPtr<::ITharnTool> tool_;
  const ComPtr<IMessages> messages_;
};

}  // namespace

ComPtr<IModuleInfo> makeModuleInfoObject(const std::shared_ptr<Session>& session,
                                         const ModuleInfo& info) {
  return make<ModuleInfoObject>(session, info);
}

}  // namespace korvane
