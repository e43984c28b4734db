#include "persistence/ProjectFile.h"

#include <exception>
#include <filesystem>

#include "generators/Effects.h"
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

// Two lists full of pictures of the largest grid make a file of 14 MB.
constexpr std::uintmax_t kMostBytes = std::uintmax_t{32} << 20;

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

// The rows that a file has.
struct Rows {
  std::int16_t a = 0, b = 0, x = 0;
};

void clearLists(Engine& engine) {
  Variablen& v = engine.v;
  for (ListView* list : {&v.A.efxList, &v.B.efxList, &engine.master.efxXList}) list->clear();
  for (std::int16_t* count : {&v.efxACount, &v.efxBCount, &v.efxXCount}) *count = 0;
}

Rows readCounts(Engine& engine, LineReader& in) {
  Variablen& v = engine.v;
  Rows rows;
  for (std::int16_t* count : {&rows.a, &rows.b, &rows.x}) in.take(*count);
  for (const auto& [deck, count] : {std::pair(&v.A, rows.a), std::pair(&v.B, rows.b)}) {
    deck->efx.assign(slotsFor(count, in), {});
    deck->efxEdited.assign(slotsFor(count, in), false);
  }
  v.efxX.assign(slotsFor(rows.x, in), {});
  for (std::int16_t* selected : {&v.selA, &v.selB, &v.selX}) in.take(*selected);
  return rows;
}

void readRecord(Deck& deck, Effect& effect, LineReader& in, PictureRoom& room) {
  readEffect(in, effect, room);
  if (const EffectKind* kind = kindOf(effect.type)) kind->loaded(deck, effect);
}

// A row counts when it stands in its list, so that a file that ends early leaves no count of rows
// that are not there.
void readEffects(Deck& deck, std::int16_t rows, LineReader& in, PictureRoom& room) {
  for (std::int16_t& slot = deck.efxCount; slot < rows; ++slot) {
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
void readFades(Engine& engine, std::int16_t rows, LineReader& in) {
  Variablen& v = engine.v;
  for (std::int16_t& slot = v.efxXCount; slot < rows; ++slot) {
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

EndsEarly endsEarlyOn(Disk& disk) {
  return [&disk](const std::string& path) { return projectEndsEarly(path, disk); };
}

std::string folderOf(const std::string& path) {
  const std::u8string folder = std::filesystem::absolute(systemPath(path)).parent_path().u8string();
  return {folder.begin(), folder.end()};
}

std::string takeVersion(LineReader& in) {
  std::string version;
  in.skip();
  in.take(version);
  return version;
}

void requireReadable(const LineReader& in) {
  if (in.size() <= kMostBytes) return;
  throw Failure(kOutOfMemory, in.path() + " is larger than the " + std::to_string(kMostBytes) +
                                  " bytes that a show may have");
}

void readLists(Engine& engine, LineReader& in) {
  clearLists(engine);
  const Rows rows = readCounts(engine, in);
  Variablen& v = engine.v;
  PictureRoom room{v.matrixCols, v.matrixRows};
  readEffects(v.A, rows.a, in, room);
  readEffects(v.B, rows.b, in, room);
  readFades(engine, rows.x, in);
}

// The selection of a list that is not read to its end is that of its first row.
void selectWhatIsThere(Engine& engine) {
  Variablen& v = engine.v;
  for (const auto& [list, slot] :
       {std::pair(&v.A.efxList, &v.selA), std::pair(&v.B.efxList, &v.selB),
        std::pair(&engine.master.efxXList, &v.selX)}) {
    *slot = list->count() > 0 ? slotOfCurrent(*list) : std::int16_t{0};
  }
}

// All that follows the version. The deleted counters are not reset, though the slots are compacted
// (docs/kept.md, show-counters).
void readComposition(Engine& engine, LineReader& in, const std::string& folder) {
  requireReadable(in);
  stopPlayback(engine);
  engine.v.showFolder = folder;
  readMaster(engine, in);
  try {
    readLists(engine, in);
  } catch (...) {
    selectWhatIsThere(engine);
    throw;
  }
  for (Deck* deck : {&engine.v.A, &engine.v.B}) deck->imageIndex = 0;
}

// A list without a row has no line for its selection, and a fade of a type that does not exist,
// from a file that lost its place, can't be shown.
void requireLoadable(const Engine& engine) {
  const Variablen& v = engine.v;
  for (const ListView* list : {&v.A.efxList, &v.B.efxList, &engine.master.efxXList}) {
    if (list->count() == 0) throw Failure(kSubscript, list->name() + " has no row");
  }
  const std::int16_t type =
      v.efxX.at(slotOf(engine.master.efxXList, engine.master.efxXList.current())).type;
  if (type < 0 || type >= kFadeTypes)
    throw Failure(kInvalidPropertyValue, "the fade has no type " + std::to_string(type));
}

}  // namespace

void writeProject(const Engine& engine, const NumberFormat& format, const std::string& title,
                  TextWriter& file) {
  const Variablen& v = engine.v;
  LineWriter out(file, format);
  out.put(title);
  out.put(kProjectVersion);
  out.put(v.masterValue);
  for (const std::int16_t count : {v.efxACount, v.efxBCount, v.efxXCount}) out.put(count);
  for (const ListView* list : {&v.A.efxList, &v.B.efxList, &engine.master.efxXList}) {
    writeSelection(out, *list);
  }
  writeComposition(engine, format, file);
}

void writeComposition(const Engine& engine, const NumberFormat& format, TextWriter& file) {
  LineWriter out(file, format);
  writeEffects(engine, engine.v.A, out);
  writeEffects(engine, engine.v.B, out);
  writeFades(engine, out);
}

TextToKeep projectToKeep(const Engine& engine, const std::string& path) {
  requireLoadable(engine);
  Platform& platform = engine.platform;
  const auto write = [&engine, &platform, title = fileTitle(path)](TextWriter& file) {
    writeProject(engine, platform.numberFormat(), title, file);
  };
  return {path, write, endsEarlyOn(platform.disk())};
}

void replaceProject(const Engine& engine, const std::string& path) {
  const TextToKeep text = projectToKeep(engine, path);
  replaceTextFile(path, text.write, text.endsEarly, engine.platform.disk());
}

void tellOfFailedProject(Platform& platform, const std::string& path, const std::string& reason) {
  tellOfFailedSave(platform, path, reason, endsEarlyOn(platform.disk()));
}

bool saveProject(Engine& engine) {
  std::string path;
  try {
    readProjectNames(engine);
    path = chosenFile(engine.platform, question(FileQuestion::Purpose::Save, engine));
    replaceProject(engine, path);
    announce(engine, "Matrix Project saved", path);
    return true;
  } catch (const std::exception& error) {  // without a word of the windows, whatever it was
    tellOfFailedProject(engine.platform, path, error.what());
    return false;
  }
}

bool loadProject(Engine& engine) {
  readProjectNames(engine);
  const std::string path =
      chosenFile(engine.platform, question(FileQuestion::Purpose::Open, engine));
  LineReader in(path, engine.platform.numberFormat(), engine.platform.disk());
  const std::string version = takeVersion(in);
  if (version != kProjectVersion) {
    engine.platform.messageBox("falsche Matrix-Version " + version);
    return false;
  }
  readComposition(engine, in, folderOf(path));
  for (Deck* deck : {&engine.v.A, &engine.v.B}) startDeck(engine, *deck);
  announce(engine, "Matrix Project loaded", path);
  return true;
}

void openProject(Engine& engine, const std::string& path) {
  openProject(engine, path, folderOf(path));
}

void openProject(Engine& engine, const std::string& path, const std::string& folder) {
  LineReader in(path, engine.platform.numberFormat(), engine.platform.disk());
  if (takeVersion(in) != kProjectVersion)
    in.fail(kTypeMismatch, "no show of version " + kProjectVersion);
  readComposition(engine, in, folder);
  entitle(engine, path);
  for (Deck* deck : {&engine.v.A, &engine.v.B})
    runEvent(engine.platform, [&] { startDeck(engine, *deck); });
}

}  // namespace korvane
