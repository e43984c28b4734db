#include "hosts/com/ErrorResult.h"

#include <ole2.h>
#include <wrl/client.h>

#include "hosts/com/WideText.h"
#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"

namespace korvane {
namespace {

using Microsoft::WRL::ComPtr;

void tell(const Failure& failure) {
  ComPtr<ICreateErrorInfo> error;
  if (FAILED(CreateErrorInfo(&error))) return;
  error->SetDescription(toWide(failure.what()).data());
  error->SetSource(const_cast<wchar_t*>(L"Korvane.clsTharnPlugIn"));
  ComPtr<IErrorInfo> info;
  if (SUCCEEDED(error.As(&info))) SetErrorInfo(0, info.Get());
}

}  // namespace

HRESULT guarded(const std::function<void()>& body) noexcept {
  try {
    HeadlessPlatform log;
    if (runEvent(log, body)) return S_OK;
    tell(log.failures.back());
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, log.failures.back().number);
  } catch (...) {
    return E_OUTOFMEMORY;  // not even the report could be made
  }
}

}  // namespace korvane
