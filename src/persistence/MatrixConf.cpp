#include "persistence/MatrixConf.h"

#include <exception>

#include "output/Preview.h"
#include "persistence/MatrixDefinition.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace korvane {
namespace {

constexpr const char* kFilter = "RGB-Matrix (*.korvaneconf)|*.korvaneconf";

}  // namespace

MatrixConf::MatrixConf(Engine& engine)
    : Form("MatrixConf", "Configure Matrix"),
      Label3("Label3", {.caption = "RGB-Matrix Definition"}),
      Label4("Label4", {.caption = "Name : "}),
      MName("MName", {.toolTip = "name of the definition, kept in its file"}, "unnamed"),
      Label2("Label2", {.caption = "number of columns : "}),
      ncol("ncol", {.toolTip = "another size clears all channels"}),
      Label1("Label1", {.caption = "number of rows : "}),
      nrow("nrow", {.toolTip = "another size clears all channels"}),
      mxbild("mxbild", {400, 400},
             {.toolTip = "double-click a lamp to give it its channels; white lamps have theirs"}),
      fastConfig("fastConfig", {.caption = "Fast Configuration",
                                .toolTip = "give all lamps their channels in one step"}),
      save("save", {.caption = "Save", .toolTip = "save the definition to a file"}),
      load("load", {.caption = "Load", .toolTip = "load a definition from a file"}),
      help("help", {.caption = "Help", .toolTip = "how to configure the matrix"}),
      OK("OK", {.caption = "OK", .toolTip = "use this grid and close"}),
      detail(engine),
      engine_(engine) {
  add({&Label3, &Label4, &MName, &Label2, &ncol, &Label1, &nrow, &mxbild, &fastConfig, &save, &load,
       &help, &OK});
  setLayout(
      column({Label3, row({Label4, Layout(MName, 1)}), row({Label2, ncol, space(), Label1, nrow}),
              Layout(mxbild, 1), row({fastConfig, space(), load, save, help, OK})}));
  engine.desktop.add(*this);
  engine.desktop.add(detail);
  bind();
}

void MatrixConf::bind() {
  onLoad = [this] { Form_Load(); };
  onActivate = [this] { showSize(); };
  ncol.onClick = [this] { resize(engine_.v.matrixCols, ncol); };
  nrow.onClick = [this] { resize(engine_.v.matrixRows, nrow); };
  mxbild.onMouseUp = [this](int x, int y) { mxbild_MouseUp(x, y); };
  mxbild.onDblClick = [this] { mxbild_DblClick(); };
  mxbild.onResize = [this] {
    if (loaded()) redraw_config();
  };
  fastConfig.onClick = [this] { engine_.desktop.show(engine_.desktop.named("quickConf")); };
  help.onClick = [this] { engine_.desktop.show(engine_.desktop.named("MatrixConfigHelp")); };
  save.onClick = [this] { save_Click(); };
  load.onClick = [this] { load_Click(); };
  OK.onClick = [this] { OK_Click(); };
}

void MatrixConf::Form_Load() {
  nextChannel_ = 1;
  nextUniverse_ = 1;
  Variablen& v = engine_.v;
  v.colorBlack = rgb(0, 0, 0);
  v.colorWhite = rgb(255, 255, 255);
  v.colorGray = rgb(180, 180, 180);
  ncol.setItems(numbersUpTo(kMostColumns));
  nrow.setItems(numbersUpTo(kMostRowsOfGrid));
  if (!v.matrixConfigured) takeDefinition();
  redraw_config();
}

void MatrixConf::takeDefinition() {
  readProjectNames(engine_);
  const std::string path = definitionFile(engine_);
  if (!fileExists(path, engine_.platform.disk())) {
    makeDefaultDefinition(engine_);
    showSize();
    return makeDefaultDefinition(engine_);
  }
  orDefaultDefinition(engine_, [&] {
    apply(readDefinition(path, engine_.platform.disk()));
    engine_.v.matrixConfigured = true;
  });
}

// Setting the lists to a new size clears the map, so the cells are filled in only after that.
void MatrixConf::apply(const MatrixDefinition& definition) {
  if (definition.name) MName.setText(*definition.name);
  applyDefinition(engine_, definition, [this] { takeSize(); });
}

void MatrixConf::showSize() {
  const std::int16_t cols = engine_.v.matrixCols;
  nrow.setEntry(engine_.v.matrixRows);
  ncol.setEntry(cols);
}

// The picture follows each list that changes, so that it fits the grid even if a cell can't be
// read.
void MatrixConf::takeSize() {
  const int before[] = {nrow.index(), ncol.index()};
  const std::int16_t cols = engine_.v.matrixCols;
  nrow.setEntry(engine_.v.matrixRows);
  if (nrow.index() != before[0]) showGrid();
  ncol.setEntry(cols);
  if (ncol.index() != before[1]) showGrid();
}

// Showing the size that the matrix has is no change: else the first look at a grid would wipe its
// map.
void MatrixConf::resize(std::int16_t& side, const ListBox& list) {
  if (side == list.index() + 1) return;
  side = toInt16(list.index() + 1);
  dimensionMatrix(engine_);
  resizePaintPictures(engine_);
  showGrid();
}

void MatrixConf::showGrid() {
  mxbild.clear();
  redraw_config();
}

void MatrixConf::redraw_config() {
  const Variablen& v = engine_.v;
  cellSize_ = toInt16(v.matrixCols > v.matrixRows ? divTrunc(mxbild.width(), v.matrixCols)
                                                  : divTrunc(mxbild.height(), v.matrixRows));
  mxbild.clear();
  for (int row = 0; row < v.matrixRows; ++row) {
    for (int col = 0; col < v.matrixCols; ++col) drawCell(col, row);
  }
}

void MatrixConf::drawCell(int col, int row) {
  const Variablen& v = engine_.v;
  const int x = col * cellSize_;
  const int y = row * cellSize_;
  mxbild.fillRect(x, y, x + cellSize_, y + cellSize_,
                  v.cellConfigured.at(col, row) ? v.colorWhite : v.colorGray);
  mxbild.drawRect(x, y, x + cellSize_, y + cellSize_, v.colorBlack);
}

// The release that ends a double click comes when the detail window is open already: by then the
// two hold the cell that the window is about.
void MatrixConf::mxbild_MouseUp(int x, int y) {
  if (detail.visible()) return;
  engine_.v.cellCol = x;
  engine_.v.cellRow = y;
}

void MatrixConf::mxbild_DblClick() {
  Variablen& v = engine_.v;
  if (cellSize_ == 0) throw Failure(kDivisionByZero);
  v.cellCol = floorToInt32(static_cast<double>(v.cellCol) / cellSize_);
  v.cellRow = floorToInt32(static_cast<double>(v.cellRow) / cellSize_);
  if (v.cellCol >= v.matrixCols || v.cellRow >= v.matrixRows) return;
  detail.Form::load();
  prefill();
  engine_.desktop.showModal(detail, [this] {
    const Variablen& now = engine_.v;
    if (now.cellConfigured.at(now.cellCol, now.cellRow)) drawCell(now.cellCol, now.cellRow);
  });
}

// A code that is a multiple of 512 decodes to the next universe and to no channel (docs/kept.md,
// grid-multiple).
void MatrixConf::prefill() {
  const Variablen& v = engine_.v;
  const bool configured = v.cellConfigured.at(v.cellCol, v.cellRow);
  const ChannelMap::Codes& codes = v.channelMap.at(v.cellCol, v.cellRow);
  std::size_t component = 0;
  for (const MatrixConfDetail::Choice& choice : detail.choices()) {
    const std::int32_t code = codes[component++];
    if (configured) {
      choice.universe->setIndex(divTrunc(code, kUniverseChannels));
      choice.channel->setIndex(modTrunc(code, kUniverseChannels) - 1);
    } else {
      suggest(*choice.channel, *choice.universe);
    }
  }
}

// The counters advance before they are used, so channel 1 is never suggested (docs/kept.md,
// grid-suggestion).
void MatrixConf::suggest(ListBox& channel, ListBox& universe) {
  if (nextChannel_ != kUniverseChannels) {
    ++nextChannel_;
  } else {
    nextUniverse_ = nextUniverse_ == kUniverses ? 1 : nextUniverse_ + 1;
    nextChannel_ = 1;
  }
  universe.setIndex(nextUniverse_ - 1);
  channel.setIndex(nextChannel_ - 1);
}

void MatrixConf::OK_Click() {
  engine_.v.matrixConfigured = true;
  fitPictures(engine_);
  engine_.desktop.hide(*this);
}

void MatrixConf::load_Click() {
  try {
    loadFile();
  } catch (const std::exception&) {
    // Ends without a word, whatever it was.
  }
}

void MatrixConf::save_Click() {
  try {
    saveFile();
  } catch (const std::exception&) {
    // Ends without a word, whatever it was.
  }
}

void MatrixConf::loadFile() {
  Form::load();
  readProjectNames(engine_);
  const MatrixDefinition definition =
      readDefinition(chosenFile(engine_.platform, {.purpose = FileQuestion::Purpose::Open,
                                                   .title = "Load Configuration ...",
                                                   .filter = kFilter,
                                                   .initialDirectory = engine_.v.projectDirectory}),
                     engine_.platform.disk());
  if (definition.name) engine_.v.matrixName = *definition.name;
  apply(definition);
  showGrid();
  engine_.v.matrixConfigured = true;
  engine_.platform.messageBox("Configuration loaded !");
  engine_.v.configChanged = false;
  if (onKept) onKept();
}

void MatrixConf::saveFile() {
  Form::load();
  readProjectNames(engine_);
  const std::string path =
      chosenFile(engine_.platform, {.purpose = FileQuestion::Purpose::Save,
                                    .title = "Save Configuration ...",
                                    .filter = kFilter,
                                    .initialDirectory = engine_.v.projectDirectory});
  writeDefinition(engine_, path, MName.text());
  engine_.platform.messageBox("Configuration saved !");
  if (onKept) onKept();
}

}  // namespace korvane
