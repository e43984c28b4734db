#include "hosts/com/MessagesObject.h"

#include "hosts/com/DualObject.h"

namespace korvane {
namespace {

using Numbers = std::vector<std::int32_t>;

/// Goes through the numbers that were there when it was made.
class Enumeration : public ComObject<IEnumVARIANT> {
 public:
  Enumeration(Numbers numbers, std::size_t next) : numbers_(std::move(numbers)), next_(next) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* out, ULONG* fetched) override {
    if (out == nullptr) return E_POINTER;
    ULONG count = 0;
    for (; count < wanted && next_ < numbers_.size(); ++count) {
      VariantInit(&out[count]);
      out[count].vt = VT_I4;
      out[count].lVal = numbers_[next_++];
    }
    if (fetched != nullptr) *fetched = count;
    return count == wanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const std::size_t left = numbers_.size() - next_;
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** out) override {
    if (out == nullptr) return E_POINTER;
    return guarded([&] { *out = make<Enumeration>(numbers_, next_).Detach(); });
  }

 private:
  const Numbers numbers_;
  std::size_t next_;
};

class MessagesObject : public DualObject<IMessages> {
 public:
  MessagesObject(const std::shared_ptr<Session>& session, const Numbers& messages)
      : DualObject(session), messages_(messages) {}

  HRESULT STDMETHODCALLTYPE get_Item(long index, long* result) override {
    return give(result, [&] {
      if (index < 1 || index > static_cast<long>(messages_.size()))
        throw Failure(kSubscript, "message " + std::to_string(index) + " of the collection");
      return messages_[static_cast<std::size_t>(index - 1)];
    });
  }
  HRESULT STDMETHODCALLTYPE get_Count(long* result) override {
    return give(result, [this] { return static_cast<std::int32_t>(messages_.size()); });
  }
  HRESULT STDMETHODCALLTYPE Add(long message) override {
    return call([&] { messages_.push_back(message); });
  }
  HRESULT STDMETHODCALLTYPE get__NewEnum(IUnknown** result) override {
    return give(result, [this] { return make<Enumeration>(messages_, 0U); });
  }

 private:
  Numbers messages_;
};

}  // namespace

ComPtr<IMessages> makeMessagesObject(const std::shared_ptr<Session>& session,
                                     const Numbers& messages) {
  return make<MessagesObject>(session, messages);
}

}  // namespace korvane
