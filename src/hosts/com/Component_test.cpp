#include <thread>

#include "hosts/com/ComTest.h"

namespace korvane {
namespace {

using Component = ComTest;

template <class Interface>
LONG referencesOf(const ComPtr<Interface>& object) {
  object->AddRef();
  return static_cast<LONG>(object->Release());
}

TEST_F(Component, OffersNoOtherClassAndNoOtherInterface) {
  ComPtr<IClassFactory> factory;
  EXPECT_EQ(component.classObject(IID_IDispatch, IID_PPV_ARGS(&factory)),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(factory, nullptr);
  ComPtr<IPersist> other;
  EXPECT_EQ(component.classObject(__uuidof(::clsTharnPlugIn), IID_PPV_ARGS(&other)), E_NOINTERFACE);
  EXPECT_EQ(create()->QueryInterface(IID_PPV_ARGS(&other)), E_NOINTERFACE);
  EXPECT_EQ(component.classObject(__uuidof(::clsTharnPlugIn), IID_IClassFactory, nullptr),
            E_POINTER);
}

TEST_F(Component, ExportsItsFourEntryPointsAlone) {
  EXPECT_EQ(component.exports(),
            (std::vector<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                      "DllUnregisterServer"}));
}

TEST_F(Component, RefusesAggregation) {
  FakeObject outer;
  ComPtr<IUnknown> inner;
  EXPECT_EQ(CoCreateInstance(__uuidof(::clsTharnPlugIn), &outer, CLSCTX_INPROC_SERVER,
                             IID_PPV_ARGS(&inner)),
            CLASS_E_NOAGGREGATION);
  EXPECT_EQ(inner, nullptr);
}

TEST_F(Component, StaysWhileThereIsAnObjectOrALock) {
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(component.classObject(__uuidof(::clsTharnPlugIn), IID_PPV_ARGS(&factory)), S_OK);
  EXPECT_EQ(component.call("DllCanUnloadNow"), S_FALSE);
  factory->LockServer(TRUE);
  factory->LockServer(TRUE);
  ComPtr<IUnknown> plugIn;
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&plugIn)), S_OK);
  factory->LockServer(FALSE);
  factory.Reset();
  plugIn.Reset();
  EXPECT_EQ(component.call("DllCanUnloadNow"), S_FALSE);
  ASSERT_EQ(component.classObject(__uuidof(::clsTharnPlugIn), IID_PPV_ARGS(&factory)), S_OK);
  factory->LockServer(FALSE);
}

TEST_F(Component, IsOneObjectWhicheverInterfaceIsAsked) {
  const auto plugIn = create();
  ComPtr<IUnknown> first;
  ComPtr<IUnknown> second;
  ComPtr<::ITharnModule> module;
  ComPtr<IDispatch> dispatch;
  plugIn.As(&first);
  ASSERT_EQ(plugIn.As(&module), S_OK);
  ASSERT_EQ(module.As(&dispatch), S_OK);
  dispatch.As(&second);
  EXPECT_EQ(first.Get(), second.Get());
  EXPECT_EQ(referencesOf(plugIn), 5);
}

TEST_F(Component, KeepsItsWindowsForAsLongAsAnyObjectIsThere) {
  auto plugIn = create();
  ComPtr<IToolWindow> window = tool(*plugIn.Get());
  EXPECT_EQ(referencesOf(plugIn), 1);
  EXPECT_EQ(referencesOf(window), 1);
  plugIn.Reset();
  EXPECT_EQ(window->Show(), S_OK);
  VARIANT_BOOL visible = VARIANT_FALSE;
  EXPECT_EQ(window->get_Visible(&visible), S_OK);
  EXPECT_EQ(visible, VARIANT_TRUE);
  EXPECT_GT(desk.references(), 0);
}

TEST_F(Component, AllObjectsShareTheOneMainWindow) {
  const auto first = create();
  const auto second = create();
  ComPtr<IToolWindow> window = tool(*first.Get());
  EXPECT_EQ(window.Get(), toolOf(*second.Get()).Get());
  EXPECT_EQ(infoOf(*first.Get()).Get() == infoOf(*first.Get()).Get(), false)
      << "a new one each time";
}

TEST_F(Component, StartsAnewAfterTheLastObjectHasGone) {
  for (int time = 0; time < 2; ++time) {
    const auto plugIn = create();
    const auto window = tool(*plugIn.Get());
    EXPECT_EQ(run(*window.Get(), "value masterValue"), R"({"ok":true,"value":0.5})");
    EXPECT_EQ(window->Show(), S_OK);
    run(*window.Get(), "set MatrixForm.faderM 100");
    EXPECT_EQ(run(*window.Get(), "value masterValue"), R"({"ok":true,"value":1.0})");
  }
}

TEST_F(Component, AnswersTheLifecycleCalls) {
  const auto plugIn = create();
  ASSERT_EQ(init(*plugIn.Get()), S_OK);
  VARIANT_BOOL answer = VARIANT_FALSE;
  EXPECT_EQ(plugIn->ITharnPlugin_Enable(&answer), S_OK);
  EXPECT_EQ(answer, VARIANT_TRUE);
  EXPECT_EQ(plugIn->ITharnPlugin_Disable(&answer), S_OK);
  EXPECT_EQ(answer, VARIANT_FALSE);
  EXPECT_EQ(plugIn->ITharnPlugin_Configure(&answer), S_OK);
  EXPECT_EQ(answer, VARIANT_TRUE);
  EXPECT_EQ(plugIn->ITharnPlugin_Term(&answer), S_OK);
  EXPECT_EQ(answer, VARIANT_TRUE);
  BSTR name = nullptr;
  EXPECT_EQ(plugIn->ITharnPlugin_PluginName(&name), S_OK);
  EXPECT_EQ(taken(name), "Matrix");
  EXPECT_EQ(plugIn->get_PluginName(&name), S_OK);
  EXPECT_EQ(taken(name), "Matrix");
}

TEST_F(Component, RefusesNullPointers) {
  const auto plugIn = create();
  const auto window = tool(*plugIn.Get());
  EXPECT_EQ(plugIn->ITharnPlugin_Enable(nullptr), E_POINTER);
  EXPECT_EQ(plugIn->ITharnPlugin_Init(nullptr, nullptr, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(plugIn->ITharnPlugin_MessageHandle(nullptr, nullptr, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(window->get_Width(nullptr), E_POINTER);
  EXPECT_EQ(window->Run(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(plugIn->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(Component, ServesTheThreadThatCreatedIt) {
  const auto mine = create();
  ASSERT_EQ(init(*mine.Get()), S_OK);
  std::thread([&] {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    {
      const auto theirs = create();
      EXPECT_NE(toolOf(*theirs.Get()).Get(), toolOf(*mine.Get()).Get()) << "a plug-in of its own";
    }
    CoUninitialize();
  }).join();
}

}  // namespace
}  // namespace korvane
