#include "hosts/com/ComTest.h"

namespace korvane {
namespace {

/// What the plug-in calls on the objects of the desk.
class DeskCalls : public ComTest {
 protected:
  ComPtr<::ITharnPlugin> plugIn = create();
};

TEST_F(DeskCalls, TheDesksNamesReachThePlugIn) {
  const auto window = tool(*plugIn.Get());
  EXPECT_EQ(run(*window.Get(), "value maxChannels"), R"({"ok":true,"value":512})");
  EXPECT_EQ(window->Show(), S_OK);
  EXPECT_EQ(run(*window.Get(), "value projectName"), R"({"ok":true,"value":"show"})");
  EXPECT_EQ(run(*window.Get(), "value projectBaseFilename"),
            R"({"ok":true,"value":"C:\\shows\\show"})");
}

TEST_F(DeskCalls, MyStreamIsFetchedAnewForEachCall) {
  const auto window = tool(*plugIn.Get());
  ASSERT_EQ(window->Show(), S_OK);
  EXPECT_EQ(desk.streamsFetched, 0) << "nothing goes out before the box is checked";
  run(*window.Get(), "click MatrixForm.active");
  ASSERT_GT(desk.calls.size(), 100U);
  EXPECT_EQ(desk.streamsFetched, static_cast<int>(desk.calls.size()));
  EXPECT_EQ(desk.calls.front(), "UserInteraction");
  EXPECT_EQ(desk.calls.at(1), "SetChannel 1 127");
}

TEST_F(DeskCalls, ChannelAndValueGoByReferenceAndTheFlagByValue) {
  const auto window = tool(*plugIn.Get());
  ASSERT_EQ(window->Show(), S_OK);
  run(*window.Get(), "click MatrixForm.active");
  const std::string number = std::to_string(VT_BYREF | VT_I4) + " ";
  EXPECT_EQ(desk.types, std::to_string(VT_BOOL) + " " + number + number);
}

TEST_F(DeskCalls, NamesAreResolvedOncePerObject) {
  const auto window = tool(*plugIn.Get());
  ASSERT_EQ(window->Show(), S_OK);
  run(*window.Get(), "click MatrixForm.active");
  EXPECT_EQ(desk.stream.lookups, 2) << "UserInteraction, SetChannel";
  EXPECT_EQ(desk.helper.lookups, 3) << "ChannelMAXCHANNELS, MyStream, Project";
  EXPECT_EQ(desk.project.lookups, 2) << "Name, BaseFilename";
}

TEST_F(DeskCalls, AnotherStreamObjectIsAskedForItsOwnNumbers) {
  const auto window = tool(*plugIn.Get());
  ASSERT_EQ(window->Show(), S_OK);
  run(*window.Get(), "click MatrixForm.active");
  desk.currentStream = &desk.otherStream;
  desk.calls.clear();
  run(*window.Get(), "set MatrixForm.faderM 100");
  ASSERT_GT(desk.calls.size(), 1U);
  EXPECT_EQ(desk.calls.front(), "UserInteraction");
  EXPECT_EQ(desk.otherStream.lookups, 2);
  EXPECT_EQ(desk.stream.lookups, 2);
  EXPECT_EQ(desk.stream.references, 0) << "the stream before was let go";
}

TEST_F(DeskCalls, TheCommandCallsTellsTheSame) {
  const auto window = tool(*plugIn.Get());
  ASSERT_EQ(window->Show(), S_OK);
  run(*window.Get(), "click MatrixForm.active");
  std::string expected;
  for (const std::string& call : desk.calls) {
    const std::size_t blank = call.find(' ');
    std::string shown = "[\"" + call.substr(0, blank) + "\"";
    if (blank != std::string::npos) {
      std::string arguments = call.substr(blank);
      for (char& character : arguments) character = character == ' ' ? ',' : character;
      shown += arguments;
    }
    expected += (expected.empty() ? "" : ",") + shown + "]";
  }
  EXPECT_EQ(run(*window.Get(), "calls"), R"({"ok":true,"calls":[)" + expected + "]}");
  EXPECT_EQ(run(*window.Get(), "calls"), R"({"ok":true,"calls":[]})");
}

TEST_F(DeskCalls, ANewHelperTakesThePlaceOfTheOldOne) {
  ASSERT_EQ(init(*plugIn.Get()), S_OK);
  FakeDesk other;
  IDispatch* helper = &other.helper;
  BSTR text = nullptr;
  VARIANT_BOOL done = VARIANT_FALSE;
  EXPECT_EQ(plugIn->ITharnPlugin_Init(&text, &text, &helper, &done), S_OK);
  EXPECT_EQ(desk.references(), 0);
  EXPECT_EQ(other.helper.references, 1);
  plugIn.Reset();
  EXPECT_EQ(other.references(), 0);
}

/// A helper that is not as the contract says: what is done to it, what then fails, and how.
struct BadHelper {
  const char* name;
  void (*spoil)(FakeDesk&);
  enum Step { Init, Show, Send } step;
  int number;
  const char* text;
};

void PrintTo(const BadHelper& bad, std::ostream* out) { *out << bad.name; }

class BadHelpers : public DeskCalls, public testing::WithParamInterface<BadHelper> {};

TEST_P(BadHelpers, AreAnErrorResultThatNamesTheMember) {
  const BadHelper& bad = GetParam();
  bad.spoil(desk);
  HRESULT result = init(*plugIn.Get());
  const auto window = toolOf(*plugIn.Get());
  if (bad.step != BadHelper::Init) {
    ASSERT_EQ(result, S_OK);
    result = window->Show();
  }
  if (bad.step == BadHelper::Send) {
    ASSERT_EQ(result, S_OK);
    run(*window.Get(), "put A 0 0 FFFFFF");
    const std::string reply = run(*window.Get(), "click MatrixForm.active");
    EXPECT_EQ(reply, R"({"ok":false,"failure":{"number":)" + std::to_string(bad.number) +
                         R"(,"text":")" + bad.text + "\"}}");
  } else {
    EXPECT_EQ(result, MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, bad.number));
    EXPECT_EQ(errorText(), bad.text);
  }
  VARIANT_BOOL enabled = VARIANT_FALSE;
  EXPECT_EQ(plugIn->ITharnPlugin_Enable(&enabled), S_OK) << "the plug-in goes on";
}

const BadHelper kBadHelpers[] = {
    {"LacksChannels", [](FakeDesk& desk) { desk.helper.remove(L"ChannelMAXCHANNELS"); },
     BadHelper::Init, 438, "Object doesn't support this property or method: ChannelMAXCHANNELS"},
    {"ChannelsOfWrongType",
     [](FakeDesk& desk) { desk.helper.set(L"ChannelMAXCHANNELS", text(L"many")); }, BadHelper::Init,
     13, "Type mismatch: ChannelMAXCHANNELS"},
    {"ChannelsAreAnObject",
     [](FakeDesk& desk) { desk.helper.set(L"ChannelMAXCHANNELS", object(&desk.project)); },
     BadHelper::Init, 13, "Type mismatch: ChannelMAXCHANNELS"},
    {"ChannelsOverflow",
     [](FakeDesk& desk) { desk.helper.set(L"ChannelMAXCHANNELS", text(L"9876543210")); },
     BadHelper::Init, 6, "Overflow: ChannelMAXCHANNELS"},
    {"ChannelsFail",
     [](FakeDesk& desk) { desk.helper.set(L"ChannelMAXCHANNELS", raise(L"no lamps to-day")); },
     BadHelper::Init, 440, "Automation error: ChannelMAXCHANNELS: no lamps to-day"},
    {"ChannelsFailWithoutAWord",
     [](FakeDesk& desk) { desk.helper.set(L"ChannelMAXCHANNELS", fail(0x80041234)); },
     BadHelper::Init, 440, "Automation error: ChannelMAXCHANNELS: error 80041234"},
    {"LacksProject", [](FakeDesk& desk) { desk.helper.remove(L"Project"); }, BadHelper::Show, 438,
     "Object doesn't support this property or method: Project"},
    {"ProjectIsNothing", [](FakeDesk& desk) { desk.helper.set(L"Project", object(nullptr)); },
     BadHelper::Show, 91, "Object variable not set: Project"},
    {"ProjectIsAText", [](FakeDesk& desk) { desk.helper.set(L"Project", text(L"show")); },
     BadHelper::Show, 13, "Type mismatch: Project"},
    {"LacksName", [](FakeDesk& desk) { desk.project.remove(L"Name"); }, BadHelper::Show, 438,
     "Object doesn't support this property or method: Project.Name"},
    {"NameFails", [](FakeDesk& desk) { desk.project.set(L"Name", raise(L"no project")); },
     BadHelper::Show, 440, "Automation error: Project.Name: no project"},
    {"BaseFilenameIsAnObject",
     [](FakeDesk& desk) { desk.project.set(L"BaseFilename", object(&desk.helper)); },
     BadHelper::Show, 13, "Type mismatch: Project.BaseFilename"},
    {"LacksBaseFilename", [](FakeDesk& desk) { desk.project.remove(L"BaseFilename"); },
     BadHelper::Show, 438, "Object doesn't support this property or method: Project.BaseFilename"},
    {"ProjectFails", [](FakeDesk& desk) { desk.helper.set(L"Project", raise(L"closed")); },
     BadHelper::Show, 440, "Automation error: Project: closed"},
    {"LacksMyStream", [](FakeDesk& desk) { desk.helper.remove(L"MyStream"); }, BadHelper::Send, 438,
     "Object doesn't support this property or method: MyStream"},
    {"MyStreamIsNothing", [](FakeDesk& desk) { desk.helper.set(L"MyStream", object(nullptr)); },
     BadHelper::Send, 91, "Object variable not set: MyStream"},
    {"MyStreamIsANumber", [](FakeDesk& desk) { desk.helper.set(L"MyStream", integer(7)); },
     BadHelper::Send, 13, "Type mismatch: MyStream"},
    {"MyStreamFails", [](FakeDesk& desk) { desk.helper.set(L"MyStream", raise(L"no output")); },
     BadHelper::Send, 440, "Automation error: MyStream: no output"},
    {"LacksUserInteraction", [](FakeDesk& desk) { desk.stream.remove(L"UserInteraction"); },
     BadHelper::Send, 438,
     "Object doesn't support this property or method: MyStream.UserInteraction"},
    {"UserInteractionFails",
     [](FakeDesk& desk) { desk.stream.set(L"UserInteraction", raise(L"not now")); },
     BadHelper::Send, 440, "Automation error: MyStream.UserInteraction: not now"},
    {"LacksSetChannel", [](FakeDesk& desk) { desk.stream.remove(L"SetChannel"); }, BadHelper::Send,
     438, "Object doesn't support this property or method: MyStream.SetChannel"},
    {"SetChannelFails",
     [](FakeDesk& desk) { desk.stream.set(L"SetChannel", raise(L"the \u00fcniverse is full")); },
     BadHelper::Send, 440, "Automation error: MyStream.SetChannel: the \u00fcniverse is full"},
};

INSTANTIATE_TEST_SUITE_P(Each, BadHelpers, testing::ValuesIn(kBadHelpers),
                         [](const auto& test) { return test.param.name; });

TEST_F(DeskCalls, NoHelperIsAFailureOfInit) {
  IDispatch* helper = nullptr;
  BSTR text = nullptr;
  VARIANT_BOOL done = VARIANT_FALSE;
  EXPECT_EQ(plugIn->ITharnPlugin_Init(&text, &text, &helper, &done),
            static_cast<HRESULT>(0x800A005B));
  EXPECT_EQ(errorText(), "Object variable not set: ChannelMAXCHANNELS");
}

TEST_F(DeskCalls, AFailedPassKeepsWhatWasSentAndTheNextOneSendsTheRest) {
  const auto window = tool(*plugIn.Get());
  ASSERT_EQ(window->Show(), S_OK);
  int left = 3;
  FakeDesk good;
  desk.stream.set(L"SetChannel", [&](DISPPARAMS& given, VARIANT*, EXCEPINFO*) {
    if (left-- == 0) return E_FAIL;
    desk.calls.push_back("SetChannel " + std::to_string(*given.rgvarg[2].plVal));
    return S_OK;
  });
  run(*window.Get(), "click MatrixForm.active");
  EXPECT_EQ(desk.calls, (std::vector<std::string>{"UserInteraction", "SetChannel 1", "SetChannel 3",
                                                  "SetChannel 4"}));
  desk.calls.clear();
  left = 1000;
  run(*window.Get(), "click MatrixForm.active");
  run(*window.Get(), "click MatrixForm.active");
  EXPECT_GT(desk.calls.size(), 100U);
}

TEST_F(DeskCalls, AllMayBeLetGoWithinACallOfThePlugIn) {
  ComPtr<IToolWindow> window = tool(*plugIn.Get());
  ASSERT_EQ(window->Show(), S_OK);
  desk.stream.set(L"UserInteraction", [&](DISPPARAMS&, VARIANT*, EXCEPINFO*) {
    plugIn.Reset();
    window.Reset();
    return S_OK;
  });
  IToolWindow* raw = window.Get();
  BSTR line = SysAllocString(L"click MatrixForm.active");
  BSTR reply = nullptr;
  EXPECT_EQ(raw->Run(line, &reply), S_OK);
  EXPECT_EQ(taken(reply), R"({"ok":true})");
  SysFreeString(line);
  EXPECT_GT(desk.calls.size(), 100U) << "the pass went on to its end";
}

}  // namespace
}  // namespace korvane
