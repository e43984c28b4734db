#pragma once

#include <cstddef>

#include "commands/HostCalls.h"
#include "hosts/com/LateObject.h"
#include "state/Host.h"

namespace korvane {

/// The lighting desk behind the helper object that it handed over. Its calls are kept for scripts,
/// which may ask for them.
class ComHost : public Host {
 public:
  static constexpr std::size_t kMostCalls = 200'000;

  explicit ComHost(Turn& turn)
      : helper_("", turn), stream_("MyStream", turn), project_("Project", turn) {}

  /// The desk's helper object from now on.
  void use(IDispatch* helper);

  std::int32_t ChannelMAXCHANNELS() override;
  std::string ProjectName() override;
  std::string ProjectBaseFilename() override;
  void UserInteraction() override;
  void SetChannel(std::int32_t channel, std::int32_t value, bool flag) override;

  HostCalls calls{kMostCalls};

 private:
  LateObject helper_, stream_, project_;
};

}  // namespace korvane
