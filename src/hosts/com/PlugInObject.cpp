#include "hosts/com/PlugInObject.h"

#include "hosts/com/DualObject.h"
#include "hosts/com/ModuleInfoObject.h"

namespace korvane {
namespace {

class PlugInObject : public DualObject<::ITharnPlugin, ::ITharnModule> {
 public:
  PlugInObject() : DualObject(Session::ofThisThread()) {}

  HRESULT STDMETHODCALLTYPE ITharnPlugin_Init(BSTR* title, BSTR* filename, IDispatch** helper,
                                              VARIANT_BOOL* result) override {
    if (title == nullptr || filename == nullptr || helper == nullptr) return E_POINTER;
    return give(result, [&] {
      session()->host().use(*helper);
      return plugIn().ITharnPlugin_Init(fromBstr(*title), fromBstr(*filename), session()->host());
    });
  }
  HRESULT STDMETHODCALLTYPE ITharnPlugin_Configure(VARIANT_BOOL* result) override {
    return give(result, [this] { return plugIn().ITharnPlugin_Configure(); });
  }
  HRESULT STDMETHODCALLTYPE ITharnPlugin_Enable(VARIANT_BOOL* result) override {
    return give(result, [this] { return plugIn().ITharnPlugin_Enable(); });
  }
  HRESULT STDMETHODCALLTYPE ITharnPlugin_Disable(VARIANT_BOOL* result) override {
    return give(result, [this] { return plugIn().ITharnPlugin_Disable(); });
  }
  HRESULT STDMETHODCALLTYPE ITharnPlugin_Term(VARIANT_BOOL* result) override {
    return give(result, [this] { return plugIn().ITharnPlugin_Term(); });
  }
  HRESULT STDMETHODCALLTYPE ITharnPlugin_PluginName(BSTR* result) override {
    return give(result, [this] { return plugIn().ITharnPlugin_PluginName(); });
  }
  HRESULT STDMETHODCALLTYPE ITharnPlugin_MessageHandle(long* message, long* arg1, long* arg2,
                                                       long* result) override {
    if (message == nullptr || arg1 == nullptr || arg2 == nullptr) return E_POINTER;
    return give(result,
                [&] { return plugIn().ITharnPlugin_MessageHandle(*message, *arg1, *arg2); });
  }
  HRESULT STDMETHODCALLTYPE get_PluginName(BSTR* result) override {
    return give(result, [this] { return plugIn().PluginName(); });
  }

  HRESULT STDMETHODCALLTYPE ITharnModule_ModuleInfo(IModuleInfo** result) override {
    return give(result, [this] {
      return makeModuleInfoObject(session(), plugIn().ITharnModule_ModuleInfo());
    });
  }

 private:
  korvane::clsTharnPlugIn& plugIn() { return session()->plugin().plugIn; }
};

}  // namespace

ComPtr<::ITharnPlugin> makePlugInObject() { return make<PlugInObject>(); }

}  // namespace korvane
