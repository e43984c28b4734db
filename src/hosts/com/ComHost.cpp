#include "hosts/com/ComHost.h"

#include <array>

namespace korvane {
namespace {

VARIANT byReference(LONG& value) {
  VARIANT variant{};
  variant.vt = VT_BYREF | VT_I4;
  variant.plVal = &value;
  return variant;
}

VARIANT boolean(bool value) {
  VARIANT variant{};
  variant.vt = VT_BOOL;
  variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

}  // namespace

void ComHost::use(IDispatch* helper) {
  helper_.use(helper);
  stream_.use(nullptr);
  project_.use(nullptr);
}

std::int32_t ComHost::ChannelMAXCHANNELS() { return helper_.integer(L"ChannelMAXCHANNELS"); }

std::string ComHost::ProjectName() {
  project_.fetch(helper_, L"Project");
  return project_.text(L"Name");
}

std::string ComHost::ProjectBaseFilename() {
  project_.fetch(helper_, L"Project");
  return project_.text(L"BaseFilename");
}

void ComHost::UserInteraction() {
  stream_.fetch(helper_, L"MyStream");
  calls.add(HostCall::userInteraction());
  stream_.call(L"UserInteraction");
}

void ComHost::SetChannel(std::int32_t channel, std::int32_t value, bool flag) {
  stream_.fetch(helper_, L"MyStream");
  calls.add(HostCall::setChannel(channel, value));
  LONG givenChannel = channel;
  LONG givenValue = value;
  std::array<VARIANT, 3> arguments = {boolean(flag), byReference(givenValue),
                                      byReference(givenChannel)};
  stream_.call(L"SetChannel", arguments);
}

}  // namespace korvane
