#pragma once

#include <ole2.h>

#include <functional>
#include <string>
#include <vector>

namespace korvane {

/// An object of a desk, called by name; the test lays down its members. It counts its references
/// and the names that it was asked for.
class FakeObject : public IDispatch {
 public:
  using Answer = std::function<HRESULT(DISPPARAMS&, VARIANT*, EXCEPINFO*)>;

  FakeObject() = default;
  virtual ~FakeObject() = default;
  FakeObject(const FakeObject&) = delete;
  FakeObject& operator=(const FakeObject&) = delete;

  /// Adds or replaces a member. Each object numbers its members in its own way.
  void set(const std::wstring& name, Answer answer) {
    for (Member& member : members_) {
      if (member.name == name) return void(member.answer = std::move(answer));
    }
    members_.push_back({name, std::move(answer)});
  }
  void remove(const std::wstring& name) {
    std::erase_if(members_, [&](const Member& member) { return member.name == name; });
  }

  LONG references = 0;
  int lookups = 0;
  DISPID firstNumber = 100;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
  ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, OLECHAR** names, UINT, LCID,
                                          DISPID* ids) override {
    ++lookups;
    for (std::size_t index = 0; index < members_.size(); ++index) {
      if (members_[index].name != names[0]) continue;
      ids[0] = firstNumber + static_cast<DISPID>(index);
      return S_OK;
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    const auto index = static_cast<std::size_t>(id - firstNumber);
    if (index >= members_.size()) return DISP_E_MEMBERNOTFOUND;
    return Answer(members_[index].answer)(*given, result, exception);
  }

 private:
  struct Member {
    std::wstring name;
    Answer answer;
  };
  std::vector<Member> members_;
};

// Answers.

inline FakeObject::Answer integer(LONG value) {
  return [=](DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
    result->vt = VT_I4;
    result->lVal = value;
    return S_OK;
  };
}

inline FakeObject::Answer text(const std::wstring& value) {
  return [=](DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(value.data());
    return S_OK;
  };
}

/// A counted reference; nullptr is "Nothing".
inline FakeObject::Answer object(FakeObject* value) {
  return [=](DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
    result->vt = VT_DISPATCH;
    result->pdispVal = value;
    if (value != nullptr) value->AddRef();
    return S_OK;
  };
}

/// An error that the desk raised itself.
inline FakeObject::Answer raise(const std::wstring& description) {
  return [=](DISPPARAMS&, VARIANT*, EXCEPINFO* exception) {
    exception->bstrDescription = SysAllocString(description.data());
    exception->bstrSource = SysAllocString(L"the desk");
    exception->scode = E_FAIL;
    return DISP_E_EXCEPTION;
  };
}

/// An error result without a word.
inline FakeObject::Answer fail(HRESULT result) {
  return [=](DISPPARAMS&, VARIANT*, EXCEPINFO*) { return result; };
}

/// A desk that writes down its calls, as in "SetChannel 1 255".
struct FakeDesk {
  FakeDesk() {
    helper.set(L"ChannelMAXCHANNELS", integer(512));
    helper.set(L"MyStream", [this](DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
      ++streamsFetched;
      result->vt = VT_DISPATCH;
      result->pdispVal = currentStream;
      currentStream->AddRef();
      return S_OK;
    });
    helper.set(L"Project", object(&project));
    project.set(L"Name", text(L"show"));
    project.set(L"BaseFilename", text(L"C:\\shows\\show"));
    for (FakeObject* one : {&stream, &otherStream}) fill(*one);
    otherStream.firstNumber = 500;
  }

  /// References that the plug-in holds.
  LONG references() const {
    return helper.references + stream.references + otherStream.references + project.references;
  }

  FakeObject helper, stream, otherStream, project;
  FakeObject* currentStream = &stream;
  int streamsFetched = 0;
  std::vector<std::string> calls;
  std::string types;  ///< of the arguments of the last SetChannel, the first argument last

 private:
  void fill(FakeObject& one) {
    one.set(L"UserInteraction", [this](DISPPARAMS& given, VARIANT*, EXCEPINFO*) {
      calls.push_back("UserInteraction");
      return given.cArgs == 0 ? S_OK : DISP_E_BADPARAMCOUNT;
    });
    one.set(L"SetChannel", [this](DISPPARAMS& given, VARIANT*, EXCEPINFO*) {
      if (given.cArgs != 3) return DISP_E_BADPARAMCOUNT;
      types.clear();
      for (UINT index = 0; index < 3; ++index)
        types += std::to_string(given.rgvarg[index].vt) + " ";
      if (given.rgvarg[0].vt != VT_BOOL || given.rgvarg[0].boolVal != VARIANT_TRUE)
        return DISP_E_TYPEMISMATCH;
      calls.push_back("SetChannel " + std::to_string(*given.rgvarg[2].plVal) + " " +
                      std::to_string(*given.rgvarg[1].plVal));
      return S_OK;
    });
  }
};

}  // namespace korvane
