#include "hosts/com/LateObject.h"

#include <dispex.h>
#include <gtest/gtest.h>

#include "hosts/com/FakeObject.h"
#include "platform/Failure.h"

namespace korvane {
namespace {

/// An object of a script that tells the numbers of its members by IDispatchEx alone.
class ScriptObject : public FakeObject {
 public:
  ScriptObject() { set(L"Name", text(L"show")); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (iid != __uuidof(IDispatchEx)) return FakeObject::QueryInterface(iid, object);
    *object = &byName_;
    AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, OLECHAR**, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }

 private:
  /// All but GetDispID is left out.
  struct ByName : IDispatchEx {
    explicit ByName(FakeObject& members) : owner(members) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return owner.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return owner.Release(); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, OLECHAR**, UINT, LCID, DISPID*) override {
      return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
      return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD, DISPID* id) override {
      OLECHAR* text = name;
      return owner.FakeObject::GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, id);
    }
    HRESULT STDMETHODCALLTYPE InvokeEx(DISPID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                       IServiceProvider*) override {
      return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID, DWORD, DWORD*) override {
      return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

    FakeObject& owner;
  };

  ByName byName_{*this};
};

TEST(LateObject, NamesMayBeResolvedByTheInterfaceForScriptsAlone) {
  ScriptObject script;
  Turn turn;
  {
    LateObject object("Project", turn);
    object.use(&script);
    EXPECT_EQ(object.text(L"Name"), "show");
    EXPECT_EQ(object.text(L"Name"), "show");
    EXPECT_EQ(script.lookups, 1);
    EXPECT_THROW(object.text(L"BaseFilename"), Failure);
    EXPECT_EQ(script.references, 1);
  }
  EXPECT_EQ(script.references, 0);
}

TEST(LateObject, WithoutAnObjectEveryMemberIsAFailureThatNamesIt) {
  Turn turn;
  LateObject object("MyStream", turn);
  try {
    object.call(L"SetChannel");
    FAIL() << "it was called";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, kObjectNotSet);
    EXPECT_STREQ(failure.what(), "Object variable not set: MyStream.SetChannel");
  }
}

}  // namespace
}  // namespace korvane
