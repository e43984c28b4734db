#include <activscp.h>

#include "hosts/com/ComTest.h"

namespace korvane {
namespace {

/// The place where a script runs: it has no objects for it, and keeps the text of its error.
class Site : public IActiveScriptSite {
 public:
  std::string error;
  LONG references = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == IID_IActiveScriptSite ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
  ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
  HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
    return TYPE_E_ELEMENTNOTFOUND;
  }
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* found) override {
    EXCEPINFO info{};
    found->GetExceptionInfo(&info);
    error = taken(info.bstrDescription) + " " + std::to_string(info.scode);
    SysFreeString(info.bstrSource);
    SysFreeString(info.bstrHelpFile);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }
};

/// The component's class as the script finds it. Wine's script engine forgets one reference to the
/// class factory each time that it creates an object; here that is one to this program's own, and
/// what the component still counts is what the script keeps of it.
class Factory : public IClassFactory {
 public:
  explicit Factory(LoadedComponent& component) : component_(component) {
    EXPECT_EQ(CoRegisterClassObject(__uuidof(::clsTharnPlugIn), this, CLSCTX_INPROC_SERVER,
                                    REGCLS_MULTIPLEUSE, &registration_),
              S_OK);
  }
  ~Factory() { EXPECT_EQ(CoRevokeClassObject(registration_), S_OK); }
  Factory(const Factory&) = delete;
  Factory& operator=(const Factory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == IID_IClassFactory ? this : nullptr;
    return *object == nullptr ? E_NOINTERFACE : S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    ComPtr<IClassFactory> factory;
    const HRESULT found =
        component_.classObject(__uuidof(::clsTharnPlugIn), IID_PPV_ARGS(&factory));
    return FAILED(found) ? found : factory->CreateInstance(outer, iid, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  LoadedComponent& component_;
  DWORD registration_ = 0;
};

constexpr CLSID kVbScript = {
    0xb54f3741, 0x5b07, 0x11cf, {0xa4, 0xb0, 0x00, 0xaa, 0x00, 0x4a, 0x55, 0xe8}};

/// The system's script engine with the component inside.
class ScriptEngine : public ComTest {
 protected:
  void run(const wchar_t* script) {
    Factory factory(component);
    Site site;
    {
      ComPtr<IActiveScript> engine;
      ComPtr<IActiveScriptParse> parser;
      ASSERT_EQ(CoCreateInstance(kVbScript, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&engine)),
                S_OK);
      ASSERT_EQ(engine.As(&parser), S_OK);
      ASSERT_EQ(engine->SetScriptSite(&site), S_OK);
      ASSERT_EQ(parser->InitNew(), S_OK);
      ASSERT_EQ(engine->SetScriptState(SCRIPTSTATE_STARTED), S_OK);
      parser->ParseScriptText(script, nullptr, nullptr, nullptr, 0, 0, 0, nullptr, nullptr);
      EXPECT_EQ(site.error, "");
      if (whileThere) whileThere();
      engine->Close();
    }
    EXPECT_EQ(site.references, 0);
  }

  std::function<void()> whileThere;

  static constexpr const wchar_t* kHelper =
      LR"(
Class Lamps
  Public Count
  Sub UserInteraction
  End Sub
  Sub SetChannel(channel, value, flag)
    Count = Count + 1
  End Sub
End Class
Class Show
  Public Name
  Public BaseFilename
End Class
Class Helper
  Public ChannelMAXCHANNELS
  Public MyStream
  Public Project
End Class
Dim desk, plugIn, info, tool
Set desk = New Helper
desk.ChannelMAXCHANNELS = 512
Set desk.MyStream = New Lamps
Set desk.Project = New Show
desk.Project.Name = "show"
desk.Project.BaseFilename = "C:\show"
Set plugIn = CreateObject("Korvane.clsTharnPlugIn")
Set info = plugIn.ITharnModule_ModuleInfo
plugIn.ITharnPlugin_Init "desk", "Korvane.dll", desk
Set tool = info.Tool
tool.Show
tool.Run "click MatrixForm.active"
If desk.MyStream.Count < 100 Then Err.Raise 1000, "script", "nothing was sent"
plugIn.ITharnPlugin_MessageHandle 9, 0, 0
plugIn.ITharnPlugin_MessageHandle 31, 1, 0
If tool.Width <> 6000 Then Err.Raise 1000, "script", "the view did not change"
)";
};

TEST_F(ScriptEngine, ThePlugInGoesWhenTheScriptLetsGo) {
  whileThere = [this] { EXPECT_EQ(component.call("DllCanUnloadNow"), S_OK); };
  run((std::wstring(kHelper) + L"Set tool = Nothing\nSet info = Nothing\nSet plugIn = Nothing\n")
          .data());
}

TEST_F(ScriptEngine, ThePlugInStaysWhileTheScriptKeepsTheTool) {
  whileThere = [this] { EXPECT_EQ(component.call("DllCanUnloadNow"), S_FALSE); };
  run((std::wstring(kHelper) + L"Set info = Nothing\nSet plugIn = Nothing\n").data());
}

TEST_F(ScriptEngine, ThePlugInGoesWithAScriptThatKeepsAll) { run(kHelper); }

}  // namespace
}  // namespace korvane
