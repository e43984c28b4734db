#include "hosts/com/ComTest.h"

namespace korvane {
namespace {

/// Calls as a script makes them: by name, with variants.
class LateBound : public ComTest {
 protected:
  struct Outcome {
    HRESULT result = E_UNEXPECTED;
    Variant value{};
    HRESULT scode = S_OK;
    std::string text{};
    UINT wrongArgument = 99;
  };

  static DISPID number(IDispatch& object, const wchar_t* name) {
    DISPID id = DISPID_UNKNOWN;
    auto* text = const_cast<wchar_t*>(name);
    EXPECT_EQ(object.GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id), S_OK) << name;
    return id;
  }

  /// The arguments stand in reverse order.
  static void call(IDispatch& object, const wchar_t* name, std::vector<VARIANT> arguments,
                   Outcome& outcome, WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET) {
    DISPID put = DISPID_PROPERTYPUT;
    const bool writes = (flags & DISPATCH_PROPERTYPUT) != 0;
    DISPPARAMS given{arguments.data(), writes ? &put : nullptr, static_cast<UINT>(arguments.size()),
                     writes ? 1U : 0U};
    EXCEPINFO exception{};
    outcome.result =
        object.Invoke(number(object, name), IID_NULL, LOCALE_USER_DEFAULT, flags, &given,
                      writes ? nullptr : &outcome.value, &exception, &outcome.wrongArgument);
    outcome.scode = exception.scode;
    outcome.text = taken(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
  }

  static VARIANT of(short value) {
    VARIANT variant{};
    variant.vt = VT_I2;
    variant.iVal = value;
    return variant;
  }
  static VARIANT of(double value) {
    VARIANT variant{};
    variant.vt = VT_R8;
    variant.dblVal = value;
    return variant;
  }
  static VARIANT of(BSTR value) {
    VARIANT variant{};
    variant.vt = VT_BSTR;
    variant.bstrVal = value;
    return variant;
  }
  static VARIANT of(IDispatch* value) {
    VARIANT variant{};
    variant.vt = VT_DISPATCH;
    variant.pdispVal = value;
    return variant;
  }
  /// A variable of a script, handed over by reference.
  static VARIANT variable(VARIANT& value) {
    VARIANT variant{};
    variant.vt = VT_BYREF | VT_VARIANT;
    variant.pvarVal = &value;
    return variant;
  }

  ComPtr<::ITharnPlugin> plugIn = create();
  BSTR word = SysAllocString(L"word");
  ~LateBound() override { SysFreeString(word); }
};

TEST_F(LateBound, ThePlugInAnswersToAllItsNames) {
  for (const wchar_t* name :
       {L"ITharnPlugin_Init", L"ITharnPlugin_Configure", L"ITharnPlugin_Enable",
        L"ITharnPlugin_Disable", L"ITharnPlugin_Term", L"ITharnPlugin_PluginName",
        L"ITharnPlugin_MessageHandle", L"PluginName", L"ITharnModule_ModuleInfo"})
    EXPECT_NE(number(*plugIn.Get(), name), DISPID_UNKNOWN);
}

TEST_F(LateBound, NamesAreTheSameWhicheverInterfaceIsAsked) {
  ComPtr<::ITharnModule> module;
  ASSERT_EQ(plugIn.As(&module), S_OK);
  EXPECT_EQ(number(*module.Get(), L"PluginName"), number(*plugIn.Get(), L"PluginName"));
  Outcome name;
  call(*module.Get(), L"PluginName", {}, name);
  EXPECT_EQ(fromBstr(name.value.bstrVal), "Matrix");
}

TEST_F(LateBound, TheToolAnswersToAllItsNames) {
  const auto window = toolOf(*plugIn.Get());
  for (const wchar_t* name :
       {L"ITharnTool_AskToSaveProjectData", L"ITharnTool_ClearProjectData",
        L"ITharnTool_LoadProjectData", L"ITharnTool_SaveProjectData", L"ITharnTool_ViewMode",
        L"Show", L"Hide", L"Visible", L"Caption", L"Width", L"Height", L"Run"})
    EXPECT_NE(number(*window.Get(), name), DISPID_UNKNOWN);
}

TEST_F(LateBound, UnknownNamesAndNumbersAreRefused) {
  auto* name = const_cast<wchar_t*>(L"Nonsense");
  DISPID id = 7;
  EXPECT_EQ(plugIn->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
  DISPPARAMS none{};
  EXPECT_EQ(plugIn->Invoke(4711, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr,
                           nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(plugIn->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, nullptr, nullptr,
                           nullptr, nullptr),
            E_POINTER);
}

TEST_F(LateBound, InitTakesVariablesAndConstants) {
  VARIANT title = of(word);
  VARIANT helper = of(&desk.helper);
  const std::vector<std::vector<VARIANT>> ways = {
      {variable(helper), variable(title), variable(title)},
      {helper, of(word), of(word)},
  };
  for (const auto& arguments : ways) {
    Outcome done;
    call(*plugIn.Get(), L"ITharnPlugin_Init", arguments, done);
    EXPECT_EQ(done.result, S_OK);
    EXPECT_EQ(done.value.vt, VT_BOOL);
    EXPECT_EQ(done.value.boolVal, VARIANT_TRUE);
  }
  IDispatch* object = &desk.helper;
  VARIANT byReference{};
  byReference.vt = VT_BYREF | VT_DISPATCH;
  byReference.ppdispVal = &object;
  Outcome done;
  call(*plugIn.Get(), L"ITharnPlugin_Init", {byReference, of(word), of(word)}, done);
  EXPECT_EQ(done.result, S_OK);
}

TEST_F(LateBound, MessagesTakeNumbersOfAnyType) {
  ASSERT_EQ(init(*plugIn.Get()), S_OK);
  VARIANT nine = of(9.0);
  LONG number = 9;
  VARIANT byReference{};
  byReference.vt = VT_BYREF | VT_I4;
  byReference.plVal = &number;
  BSTR digits = SysAllocString(L"9");
  for (const VARIANT& message : {of(short{9}), nine, variable(nine), byReference, of(digits)}) {
    Outcome done;
    call(*plugIn.Get(), L"ITharnPlugin_MessageHandle", {of(short{0}), of(short{0}), message}, done);
    EXPECT_EQ(done.result, S_OK) << message.vt;
    EXPECT_EQ(done.value.vt, VT_I4);
    EXPECT_EQ(done.value.lVal, 0);
  }
  SysFreeString(digits);
}

TEST_F(LateBound, AnArgumentOfAWrongTypeIsRefused) {
  Outcome done;
  call(*plugIn.Get(), L"ITharnPlugin_MessageHandle", {of(short{0}), of(short{0}), of(word)}, done);
  EXPECT_EQ(done.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(done.wrongArgument, 2U);
  call(*plugIn.Get(), L"ITharnPlugin_MessageHandle", {of(short{0}), of(1e12), of(short{9})}, done);
  EXPECT_EQ(done.result, DISP_E_OVERFLOW);
  EXPECT_EQ(done.wrongArgument, 1U);
}

TEST_F(LateBound, AWrongNumberOfArgumentsIsRefused) {
  Outcome done;
  call(*plugIn.Get(), L"ITharnPlugin_MessageHandle", {of(short{9})}, done);
  EXPECT_TRUE(FAILED(done.result));
  call(*plugIn.Get(), L"ITharnPlugin_Enable", {of(short{9})}, done);
  EXPECT_TRUE(FAILED(done.result));
}

TEST_F(LateBound, PropertiesAreReadAndWritten) {
  const auto window = tool(*plugIn.Get());
  Outcome done;
  call(*window.Get(), L"ITharnTool_ViewMode", {of(short{1})}, done, DISPATCH_PROPERTYPUT);
  EXPECT_EQ(done.result, S_OK);
  call(*window.Get(), L"Width", {}, done);
  EXPECT_EQ(done.value.lVal, 6550);
  call(*window.Get(), L"Width", {of(7000.0)}, done, DISPATCH_PROPERTYPUT);
  EXPECT_EQ(done.result, S_OK);
  call(*window.Get(), L"Width", {}, done);
  EXPECT_EQ(done.value.lVal, 7000);
  call(*plugIn.Get(), L"PluginName", {of(word)}, done, DISPATCH_PROPERTYPUT);
  EXPECT_EQ(done.result, DISP_E_MEMBERNOTFOUND) << "it is read-only";
}

TEST_F(LateBound, TheModuleInformationHasTheSameFieldsByNameAndByIndex) {
  const auto info = infoOf(*plugIn.Get());
  const wchar_t* const names[] = {L"Identity", L"Name",    L"Description", L"Author",  L"Number5",
                                  L"Flag6",    L"Number7", L"ToolName",    L"Tool",    L"Number10",
                                  L"Number11", L"Flag12",  L"Flag13",      L"Messages"};
  short index = 0;
  for (const wchar_t* name : names) {
    Outcome named;
    Outcome indexed;
    call(*info.Get(), name, {}, named);
    call(*info.Get(), L"Item", {of(++index)}, indexed);
    EXPECT_EQ(named.result, S_OK) << toUtf8(name);
    ASSERT_EQ(named.value.vt, indexed.value.vt) << toUtf8(name);
    if (named.value.vt == VT_BSTR) {
      EXPECT_EQ(fromBstr(named.value.bstrVal), fromBstr(indexed.value.bstrVal)) << toUtf8(name);
    } else if (named.value.vt == VT_DISPATCH) {
      EXPECT_EQ(named.value.pdispVal, indexed.value.pdispVal) << toUtf8(name);
    } else {
      EXPECT_EQ(VarCmp(&named.value, &indexed.value, LOCALE_USER_DEFAULT, 0),
                static_cast<HRESULT>(VARCMP_EQ))
          << toUtf8(name);
    }
  }
  EXPECT_EQ(index, 14);
}

TEST_F(LateBound, TheMessagesAreCountedReadAndAddedByName) {
  ComPtr<IMessages> messages;
  ASSERT_EQ(infoOf(*plugIn.Get())->get_Messages(&messages), S_OK);
  Outcome done;
  call(*messages.Get(), L"Add", {of(short{77})}, done);
  EXPECT_EQ(done.result, S_OK);
  call(*messages.Get(), L"Count", {}, done);
  EXPECT_EQ(done.value.lVal, 5);
  call(*messages.Get(), L"Item", {of(short{5})}, done);
  EXPECT_EQ(done.value.lVal, 77);
}

TEST_F(LateBound, ADefaultMemberIsReachedThroughAProperty) {
  const auto info = infoOf(*plugIn.Get());
  Outcome done;
  call(*info.Get(), L"Messages", {of(short{2})}, done);
  EXPECT_EQ(done.result, S_OK);
  EXPECT_EQ(done.value.lVal, 14);
}

TEST_F(LateBound, AFailureComesWithItsNumberAndText) {
  Outcome done;
  call(*toolOf(*plugIn.Get()).Get(), L"Show", {}, done);
  EXPECT_EQ(done.result, DISP_E_EXCEPTION);
  EXPECT_EQ(done.scode, static_cast<HRESULT>(0x800A005B));
  EXPECT_EQ(done.text, "Object variable not set: the desk has not called ITharnPlugin_Init");
}

}  // namespace
}  // namespace korvane
