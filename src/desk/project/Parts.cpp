#include "desk/project/Parts.h"

#include <array>
#include <stdexcept>

#include "desk/wall/WallPicture.h"

namespace korvane {
namespace {

constexpr std::array<const char*, 4> kCorners = {"top left", "top right", "bottom left",
                                                 "bottom right"};
constexpr std::array<const char*, 2> kAlong = {"rows", "columns"};
constexpr std::array<const char*, 3> kFills = {"full", "count", "lines"};
constexpr std::array<const char*, 5> kTurns = {"none", "quarter", "half", "three quarters",
                                               "alternate half"};

constexpr int kLastPort = 65535;

Json toJson(const WirePath& path) {
  return {{"start", wordOf(kCorners, path.start)},
          {"along", wordOf(kAlong, path.columns)},
          {"snake", path.snake}};
}

void take(const Member& member, WirePath& path) {
  takeEnum(member["start"], path.start, kCorners);
  takeEnum(member["along"], path.columns, kAlong);
  member["snake"].take(path.snake);
}

Json toJson(const PanelPlan& panels) {
  return {{"columns", panels.cols},      {"rows", panels.rows},
          {"across", panels.across},     {"down", panels.down},
          {"path", toJson(panels.path)}, {"turn", wordOf(kTurns, panels.turn)}};
}

void take(const Member& member, PanelPlan& panels) {
  member["columns"].take(panels.cols, 1, kMostSideOfWall);
  member["rows"].take(panels.rows, 1, kMostSideOfWall);
  member["across"].take(panels.across, 1, kMostSideOfWall);
  member["down"].take(panels.down, 1, kMostSideOfWall);
  take(member["path"], panels.path);
  takeEnum(member["turn"], panels.turn, kTurns);
}

}  // namespace

Json toJson(const std::vector<OutputEntry>& outputs) {
  Json all = Json::array();
  for (const OutputEntry& output : outputs)
    all.push_back({{"target", outputText(output.config)}, {"on", output.on}});
  return all;
}

std::vector<OutputEntry> outputsOf(const Member& member) {
  std::vector<OutputEntry> outputs;
  member.each([&outputs](const Member& element) {
    std::string target;
    if (!element["target"].take(target)) {
      if (!element["target"].given()) element["target"].wrong("an output, as in sacn:1-15");
      return;
    }
    try {
      OutputEntry output{parseOutput(target)};
      element["on"].take(output.on);
      outputs.push_back(output);
    } catch (const std::invalid_argument& error) {
      element["target"].fault(error.what());
    }
  });
  return outputs;
}

Json toJson(const WallLevels& levels) { return {{"master", levels.master}}; }

WallLevels levelsOf(const Member& member) {
  WallLevels levels;
  member["master"].take(levels.master, 0, 100);
  return levels;
}

Json toJson(const WiringPlan& plan) {
  return {{"columns", plan.cols},
          {"rows", plan.rows},
          {"universe", plan.first.universe},
          {"channel", plan.first.channel},
          {"path", toJson(plan.path)},
          {"colours", wordOf(kColorOrderNames, plan.order)},
          {"fill", wordOf(kFills, plan.fill)},
          {"lampsPerUniverse", plan.lampsPerUniverse},
          {"skipped", plan.skipped},
          {"panels", plan.panels ? toJson(*plan.panels) : Json()}};
}

WiringPlan wiringOf(const Member& member) {
  WiringPlan plan;
  member["columns"].take(plan.cols, 1, kMostSideOfWall);
  member["rows"].take(plan.rows, 1, kMostSideOfWall);
  member["universe"].take(plan.first.universe, 1, kWallUniverses);
  member["channel"].take(plan.first.channel, 1, kUniverseChannels);
  take(member["path"], plan.path);
  takeEnum(member["colours"], plan.order, kColorOrderNames);
  takeEnum(member["fill"], plan.fill, kFills);
  member["lampsPerUniverse"].take(plan.lampsPerUniverse, 1, kMostLampsOfUniverse);
  member["skipped"].take(plan.skipped, 0, kMostLampsOfUniverse);
  if (member["panels"].given()) take(member["panels"], plan.panels.emplace());
  const std::string fault = faultOf(plan);
  if (fault.empty()) return plan;
  member.fault(fault);
  return {};
}

Json toJson(const RemoteSettings& remote) {
  const auto network = [](const RemoteSettings::Network& one) {
    return Json{{"on", one.on}, {"port", one.port}};
  };
  return {{"osc", network(remote.osc)},
          {"page", network(remote.page)},
          {"midi", {{"on", remote.midi.on}, {"device", remote.midi.name}}}};
}

RemoteSettings remoteOf(const Member& member) {
  RemoteSettings remote;
  const auto take = [](const Member& one, RemoteSettings::Network& network) {
    one["on"].take(network.on);
    one["port"].take(network.port, 1, kLastPort);
  };
  take(member["osc"], remote.osc);
  take(member["page"], remote.page);
  member["midi"]["on"].take(remote.midi.on);
  member["midi"]["device"].take(remote.midi.name);
  return remote;
}

}  // namespace korvane
