#pragma once

#include <cstddef>
#include <vector>

#include "hosts/com/LateObject.h"
#include "hosts/console/HostCall.h"
#include "state/Host.h"

namespace korvane {

/// The lighting desk behind the helper object that it handed over. Its calls are kept for scripts,
/// which may ask for them: the newest ones, so that a long show does not fill the memory.
class ComHost : public Host {
 public:
  static constexpr std::size_t kMostCalls = 100'000;

  explicit ComHost(Turn& turn)
      : helper_("", turn), stream_("MyStream", turn), project_("Project", turn) {}

  /// The desk's helper object from now on.
  void use(IDispatch* helper);

  std::int32_t ChannelMAXCHANNELS() override;
  std::string ProjectName() override;
  std::string ProjectBaseFilename() override;
  void UserInteraction() override;
  void SetChannel(std::int32_t channel, std::int32_t value, bool flag) override;

  std::vector<HostCall> calls;  ///< in order; at least the last kMostCalls since someone took them

 private:
  void record(HostCall call);

  LateObject helper_, stream_, project_;
};

}  // namespace korvane
