// Saving and loading the largest project: 256 Paint effects in each deck on a grid of 50 x 50,
// beside a plain copy of the same file.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"
#include "platform/HeadlessPlatform.h"
#include "playback/EffectLists.h"
#include "playback/ListRows.h"
#include "shell/Plugin.h"

namespace korvane {
namespace {

struct QuietHost : Host {
  std::int32_t ChannelMAXCHANNELS() override { return kUniverseChannels; }
  std::string ProjectName() override { return "bench"; }
  std::string ProjectBaseFilename() override { return "bench"; }
  void UserInteraction() override {}
  void SetChannel(std::int32_t, std::int32_t, bool) override {}
};

struct LargestProject {
  LargestProject() {
    plugin.plugIn.ITharnPlugin_Init("bench", "bench", host);
    plugin.engine.desktop.show(plugin.matrixForm);
    Variablen& v = plugin.engine.v;
    v.matrixCols = 50;
    v.matrixRows = 50;
    dimensionMatrix(plugin.engine);
    for (Deck* deck : {&v.A, &v.B}) fill(*deck);
    plugin.engine.master.efxXList.select(0);
    save();
  }
  ~LargestProject() {
    for (const char* ending : {"", ".bak", ".copy"}) std::filesystem::remove(path + ending);
  }

  void fill(Deck& deck) {
    while (deck.efxCount < kMostRows) add_Click(plugin.engine, deck);
    for (int slot = 0; slot < kMostRows; ++slot) {
      Effect& effect = deck.efx[static_cast<std::size_t>(slot)];
      effect.type = kPaint;
      effect.paintPixels.redim(50, 50);
      for (int cell = 0; cell < 2500; ++cell) {
        effect.paintPixels.at(cell / 50, cell % 50) = (cell * 6709 + slot * 131) & 0xFFFFFF;
      }
      deck.efxEdited[static_cast<std::size_t>(slot)] = true;
    }
    deck.efxList.select(0);
  }

  void save() {
    platform.answers = {path};
    saveProject(plugin.engine);
  }
  void load() {
    platform.answers = {path};
    loadProject(plugin.engine);
  }

  std::string path = (std::filesystem::temp_directory_path() / "korvane-bench.Korvane").string();
  HeadlessPlatform platform;
  QuietHost host;
  Plugin plugin{platform};
};

void countBytes(benchmark::State& state, const LargestProject& project) {
  state.SetBytesProcessed(state.iterations() *
                          static_cast<std::int64_t>(std::filesystem::file_size(project.path)));
}

void saveLargest(benchmark::State& state) {
  LargestProject project;
  for ([[maybe_unused]] auto turn : state) project.save();
  countBytes(state, project);
}
BENCHMARK(saveLargest)->Unit(benchmark::kMillisecond)->UseRealTime();

void loadLargest(benchmark::State& state) {
  LargestProject project;
  for ([[maybe_unused]] auto turn : state) project.load();
  countBytes(state, project);
}
BENCHMARK(loadLargest)->Unit(benchmark::kMillisecond)->UseRealTime();

void copyFile(benchmark::State& state) {
  LargestProject project;
  for ([[maybe_unused]] auto turn : state) {
    std::filesystem::copy_file(project.path, project.path + ".copy",
                               std::filesystem::copy_options::overwrite_existing);
  }
  countBytes(state, project);
}
BENCHMARK(copyFile)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
