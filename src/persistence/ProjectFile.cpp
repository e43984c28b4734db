#include "persistence/ProjectFile.h"

#include <exception>

#include "persistence/MatrixDefinition.h"
#include "persistence/RecordLines.h"
#include "platform/Events.h"
#include "platform/Numbers.h"
#include "platform/ReplaceFile.h"
#include "playback/EffectLists.h"
#include "playback/FadeList.h"
#include "playback/ListRows.h"
#include "playback/MasterFade.h"

namespace korvane {
namespace {

const std::string kVersion = "V1.0";

// A small file can name far more pictures than it has lines for: they may take this many bytes and
// four for each byte of the file, which is more than a file of full pictures needs.
constexpr std::size_t kPictureBytes = std::size_t{16} << 20;

FileQuestion question(FileQuestion::Purpose purpose, const Engine& engine) {
  const bool save = purpose == FileQuestion::Purpose::Save;
  return {.purpose = purpose,
          .title = save ? "Save Matrix Project ..." : "Load Matrix Project ...",
          .filter = "Matrix Project (*.Korvane)|*.Korvane",
          .initialDirectory = engine.v.projectDirectory};
}

void entitle(Engine& engine, const std::string& path) {
  if (engine.mainWindow != nullptr) engine.mainWindow->setCaption("Korvane - " + fileTitle(path));
}

void announce(Engine& engine, const std::string& message, const std::string& path) {
  engine.platform.messageBox(message);
  entitle(engine, path);
}

std::size_t slotOf(const ListView& list, int row) {
  return static_cast<std::size_t>(floorToInt16(toReal(list.cell(row, kSlotColumn), {})));
}

// A list without a selected row writes no line, though the reader expects one
// (docs/kept.md, show-no-selection).
void writeSelection(LineWriter& out, const ListView& list) {
  if (list.selected() >= 0) out.put(list.selected());
}

void writeEffects(const Engine& engine, const Deck& deck, LineWriter& out) {
  for (int row = 0; row < deck.efxList.count(); ++row) {
    const std::size_t slot = slotOf(deck.efxList, row);
    const Boolean edited = deck.efxEdited.at(slot);
    out.put(deck.named("") + std::to_string(row));
    out.put(edited);
    if (edited) writeEffect(out, deck.efx.at(slot), engine.v.matrixCols, engine.v.matrixRows);
  }
}

void writeFades(const Engine& engine, LineWriter& out) {
  const ListView& list = engine.master.efxXList;
  for (int row = 0; row < list.count(); ++row) {
    out.put("X" + std::to_string(row));
    writeFade(out, engine.v.efxX.at(slotOf(list, row)));
  }
}

void stopPlayback(Engine& engine) {
  Variablen& v = engine.v;
  for (Timer* timer : {&v.A.timer1, &v.A.timer2, &v.B.timer1, &v.B.timer2, &engine.master.timerM}) {
    timer->disable();
  }
}

void readMaster(Engine& engine, LineReader& in) {
  in.take(engine.v.masterValue);
  engine.master.faderM.setValue(roundToInt32(engine.v.masterValue * 200 - 100));
  resetFadeMap(engine);
}

std::size_t slotsFor(std::int16_t count, const LineReader& in) {
  if (count < 0) in.fail(kSubscript, "a list can't have " + std::to_string(count) + " rows");
  return static_cast<std::size_t>(count) + 1;
}

void readCounts(Engine& engine, LineReader& in) {
  Variablen& v = engine.v;
  v.A.efxList.clear();
  v.B.efxList.clear();
  engine.master.efxXList.clear();
  for (std::int16_t* count : {&v.efxACount, &v.efxBCount, &v.efxXCount}) in.take(*count);
  for (Deck* deck : {&v.A, &v.B}) {
    deck->efx.assign(slotsFor(deck->efxCount, in), {});
    deck->efxEdited.assign(slotsFor(deck->efxCount, in), false);
  }
  v.efxX.assign(slotsFor(v.efxXCount, in), {});
  for (std::int16_t* selected : {&v.selA, &v.selB, &v.selX}) in.take(*selected);
}

void readRecord(Deck& deck, Effect& effect, LineReader& in, PictureRoom& room) {
  readEffect(in, effect, room);
  if (effect.type == kColorChange) deck.savedFadeMode = effect.fadeMode;
  if (effect.type != kImage) return;
  for (std::string& file : effect.imageFiles) file = pictureFile(file, in.path());
}

void readEffects(Deck& deck, LineReader& in, PictureRoom& room) {
  for (std::int16_t slot = 0; slot < deck.efxCount; ++slot) {
    const auto at = static_cast<std::size_t>(slot);
    Effect& effect = deck.efx[at];
    in.skip();
    in.take(deck.efxEdited[at]);
    if (deck.efxEdited[at]) readRecord(deck, effect, in, room);
    if (effect.name.empty()) effect.name = "new effect";
    addRow(deck.efxList, effect.name, slot);
  }
  deck.efxList.select(deck.sel);
}

// The row is selected before its fade is shown, as showing it writes the name to the selected row.
void readFades(Engine& engine, LineReader& in) {
  Variablen& v = engine.v;
  for (std::int16_t slot = 0; slot < v.efxXCount; ++slot) {
    FadeEntry& fade = v.efxX[static_cast<std::size_t>(slot)];
    in.skip();
    readFade(in, fade);
    addRow(engine.master.efxXList, fade.name, slot);
  }
  engine.master.efxXList.select(v.selX);
  showSelectedFade(engine);
}

void startDeck(Engine& engine, Deck& deck) {
  if (deck.efxEdited.at(static_cast<std::size_t>(deck.sel))) return efxList_Click(engine, deck);
  clear_Click(engine, deck);
}

std::string takeVersion(LineReader& in) {
  std::string version;
  in.skip();
  in.take(version);
  return version;
}

// All that follows the version. The deleted counters are not reset, though the slots are compacted
// (docs/kept.md, show-counters).
void readComposition(Engine& engine, LineReader& in) {
  stopPlayback(engine);
  readMaster(engine, in);
  readCounts(engine, in);
  Variablen& v = engine.v;
  PictureRoom room{v.matrixCols, v.matrixRows, kPictureBytes + 4 * in.size()};
  for (Deck* deck : {&v.A, &v.B}) readEffects(*deck, in, room);
  readFades(engine, in);
  for (Deck* deck : {&v.A, &v.B}) deck->imageIndex = 0;
}

}  // namespace

void writeProject(const Engine& engine, const NumberFormat& format, const std::string& title,
                  TextWriter& file) {
  const Variablen& v = engine.v;
  LineWriter out(file, format);
  out.put(title);
  out.put(kVersion);
  out.put(v.masterValue);
  for (const std::int16_t count : {v.efxACount, v.efxBCount, v.efxXCount}) out.put(count);
  for (const ListView* list : {&v.A.efxList, &v.B.efxList, &engine.master.efxXList}) {
    writeSelection(out, *list);
  }
  writeEffects(engine, v.A, out);
  writeEffects(engine, v.B, out);
  writeFades(engine, out);
}

bool saveProject(Engine& engine) {
  try {
    readProjectNames(engine);
    const std::string path =
        chosenFile(engine.platform, question(FileQuestion::Purpose::Save, engine));
    replaceTextFile(path, [&](TextWriter& file) {
      writeProject(engine, engine.platform.numberFormat(), fileTitle(path), file);
    });
    announce(engine, "Matrix Project saved", path);
    return true;
  } catch (const std::exception&) {
    return false;  // without a word, whatever it was
  }
}

bool loadProject(Engine& engine) {
  readProjectNames(engine);
  const std::string path =
      chosenFile(engine.platform, question(FileQuestion::Purpose::Open, engine));
  LineReader in(path, engine.platform.numberFormat());
  const std::string version = takeVersion(in);
  if (version != kVersion) {
    engine.platform.messageBox("falsche Matrix-Version " + version);
    return false;
  }
  readComposition(engine, in);
  for (Deck* deck : {&engine.v.A, &engine.v.B}) startDeck(engine, *deck);
  announce(engine, "Matrix Project loaded", path);
  return true;
}

void openProject(Engine& engine, const std::string& path) {
  LineReader in(path, engine.platform.numberFormat());
  if (takeVersion(in) != kVersion) in.fail(kTypeMismatch, "no show of version " + kVersion);
  readComposition(engine, in);
  entitle(engine, path);
  for (Deck* deck : {&engine.v.A, &engine.v.B})
    runEvent(engine.platform, [&] { startDeck(engine, *deck); });
}

std::string pictureFile(const std::string& path, const std::string& projectPath) {
  if (path.empty() || systemPath(path).is_absolute() || fileExists(path)) return path;
  const std::filesystem::path beside =
      std::filesystem::absolute(systemPath(projectPath)).parent_path() / systemPath(path);
  const std::u8string found = beside.lexically_normal().u8string();
  const std::string candidate(found.begin(), found.end());
  return fileExists(candidate) ? candidate : path;
}

}  // namespace korvane
