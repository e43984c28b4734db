#include "windows/MatrixForm.h"

#include "generators/Effects.h"
#include "generators/kit/MxColorMixer.h"
#include "output/MatrixCode.h"
#include "output/Preview.h"
#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"
#include "playback/FadeList.h"
#include "playback/MasterFade.h"

namespace korvane {
namespace {

// Widths of the window in twips.
constexpr int kFullWidth = 8200;
constexpr int kToolWidth = 6550;
constexpr int kNarrowWidth = 6000;
constexpr int kHeight = 7200;

constexpr std::int32_t kFullViewMode = 2;

}  // namespace

MatrixForm::MatrixForm(Engine& engine, MatrixConf& conf)
    : Form("MatrixForm", "Korvane"),
      panelA(engine, engine.v.A),
      panelB(engine, engine.v.B),
      FrameM("FrameM", {.caption = "Main Matrix - Output Matrix"}),
      FrameX("FrameX", {.caption = "Fade Effect List"}),
      FrameXX("FrameXX", {.caption = "Fade Effect"}),
      FrameG("FrameG", {.caption = "Main Functions"}),
      fadeA("fadeA", {.caption = "Cut left", .toolTip = "sets left effect active"}),
      fadeB("fadeB", {.caption = "Cut right", .toolTip = "sets right effect active"}),
      addX("addX", Icon::Add, {.toolTip = "add a fade"}),
      removeX("removeX", Icon::Remove, {.toolTip = "remove the selected fade"}),
      upX("upX", Icon::Up, {.toolTip = "move the selected fade up"}),
      downX("downX", Icon::Down, {.toolTip = "move the selected fade down"}),
      Label1("Label1", {.caption = "Time : "}),
      Label2("Label2", {.caption = "FPS:"}),
      active("active", {.caption = "DMX", .toolTip = "send the mix to the lamps"}),
      mxsim_active("mxsim_active",
                   {.caption = "MxSim", .toolTip = "show the mix in a window of its own"}),
      save("save", Icon::Save, {.toolTip = "Save Effects"}),
      load("load", Icon::Load, {.toolTip = "Load Effects"}),
      help("help", Icon::Help, {.toolTip = "Help"}),
      Closeall("Closeall", Icon::Close, {.toolTip = "stop decks and output, and close"}),
      engine_(engine),
      conf_(conf) {
  setSize(kFullWidth, kHeight);
  addControls();
  declareLayout();
  bindMaster();
  bindFunctions();
  onLoad = [this] { Form_Load(); };
  onActivate = [this] { Form_Activate(); };
  engine.desktop.add(*this);
  engine.mainWindow = this;
}

void MatrixForm::addControls() {
  Master& m = engine_.master;
  add(panelA.controls());
  add({&FrameM, &m.picture, &fadeA, &m.AutoFadeA, &m.faderM, &m.AutoFadeB, &fadeB});
  add(panelB.controls());
  add({&FrameX, &m.efxXList, &addX, &removeX, &upX, &downX});
  add({&FrameXX, &m.fadeName, &m.fadeType, &Label1, &m.fadeTimeText, &m.FadeColorText,
       &m.MFadeColor});
  add({&FrameG, &Label2, &m.fps, &active, &mxsim_active, &save, &load, &help, &Closeall});
}

// The decks stand left and right of the master; what goes with the fades stands below it.
void MatrixForm::declareLayout() {
  Master& m = engine_.master;
  Layout master = boxed(FrameM,
                        column({Layout(m.picture, 1), m.faderM,
                                row({fadeA, m.AutoFadeA, space(), m.AutoFadeB, fadeB})}),
                        3);
  Layout fadeList = boxed(
      FrameX, row({Layout(m.efxXList, 1), column({grid(2, {addX, upX, removeX, downX}), space()})}),
      1);
  Layout fade = boxed(FrameXX,
                      column({fields({m.fadeName, m.fadeType,
                                      row({Label1, Layout(m.fadeTimeText, 1), m.FadeColorText,
                                           Layout(m.MFadeColor, 1)})}),
                              space()}),
                      1);
  Layout functions = boxed(FrameG, row({active, mxsim_active, space(), Label2, m.fps, space(), load,
                                        save, help, Closeall}));
  setLayout(row({panelA.layout(), column({master, row({fadeList, fade}, 1), functions}, 2),
                 panelB.layout()}));
}

void MatrixForm::bindMaster() {
  Master& m = engine_.master;
  Engine& engine = engine_;
  m.faderM.onChange = [&engine] { masterAdjust(engine); };
  fadeA.onClick = [&engine] { fadeA_Click(engine); };
  fadeB.onClick = [&engine] { fadeB_Click(engine); };
  m.AutoFadeA.onClick = [&engine] { AutoFadeA_Click(engine); };
  m.AutoFadeB.onClick = [&engine] { AutoFadeB_Click(engine); };
  m.efxXList.onClick = [&engine](int, int) { efxXList_Click(engine); };
  addX.onClick = [&engine] { addX_Click(engine); };
  removeX.onClick = [&engine] { removeX_Click(engine); };
  upX.onClick = [&engine] { upX_Click(engine); };
  downX.onClick = [&engine] { downX_Click(engine); };
  m.fadeName.onChange = [&engine] { fadeName_Change(engine); };
  m.fadeType.onClick = [&engine] { fadeType_Click(engine); };
  m.fadeTimeText.onChange = [&engine] { fadeTimeText_Change(engine); };
  m.MFadeColor.onClick = [&engine] { MFadeColor_Click(engine); };
  m.timerM.onTimer = [&engine] { timerM_Timer(engine); };
  m.timerM2.onTimer = [&engine] { timerM2_Timer(engine); };
  m.fps.onClick = [&engine] { fps_Click(engine); };
}

void MatrixForm::bindFunctions() {
  active.onClick = [this] { active_Click(); };
  mxsim_active.onClick = [this] { mxsim_active_Click(); };
  help.onClick = [this] { engine_.desktop.show(engine_.desktop.named("MatrixHelp")); };
  save.onClick = [this] {
    if (saveProject(engine_) && onSaved) onSaved();
  };
  load.onClick = [this] {
    if (loadProject(engine_) && onLoaded) onLoaded();
  };
  Closeall.onClick = [this] { Closeall_Click(); };
  for (PictureBox* box : {&engine_.v.A.picture, &engine_.v.B.picture, &engine_.master.picture}) {
    box->onResize = [this, box] {
      if (loaded()) set_matrix_values(engine_, *box);
    };
  }
}

// The order of the steps is the order in which handlers see the state: it is part of the behaviour.
void MatrixForm::Form_Load() {
  resetTimers();
  fillLists();
  setFixedColors();
  resetCounters();
  loadDefinitionAtStart(engine_);
  addFirstRows();
  resetMaster();
  for (Deck* deck : {&engine_.v.A, &engine_.v.B}) deck->frame.fill({255, 255, 255});
  showFirstRows();
  preparePictures();
}

void MatrixForm::resetTimers() {
  for (Timer* timer : engine_.timers.timers()) {
    timer->disable();
    timer->setInterval(1000);
  }
  engine_.master.timerM2.setInterval(20);
}

void MatrixForm::fillLists() {
  for (Deck* deck : {&engine_.v.A, &engine_.v.B}) {
    deck->type.setItems(kindNames());
    deck->efxList.clear();
  }
  engine_.master.fadeType.setItems({kFadeTypeNames.begin(), kFadeTypeNames.end()});
  engine_.master.efxXList.clear();
  engine_.master.fps.setItems({"5", "10", "15", "20", "25", "30"});
  engine_.master.fps.setIndex(3);
}

void MatrixForm::setFixedColors() {
  Variablen& v = engine_.v;
  v.colorBlack = rgb(0, 0, 0);
  v.colorWhite = rgb(255, 255, 255);
  v.colorGray = rgb(180, 180, 180);
  v.colorBlue = rgb(0, 0, 255);
  v.colorRed = rgb(255, 0, 0);
  v.colorGreen = rgb(0, 255, 0);
  v.colorYellow = rgb(255, 255, 0);
  v.colorFadeActive = rgb(255, 240, 150);
  v.colorFadeIdle = rgb(220, 220, 220);
}

void MatrixForm::resetCounters() {
  Variablen& v = engine_.v;
  v.efxXCount = 0;
  v.selX = 0;
  for (Deck* deck : {&v.A, &v.B}) {
    deck->efxCount = 0;
    deck->imageIndex = 0;
    deck->colorIndex = -1;
    deck->sel = 0;
  }
}

void MatrixForm::addFirstRows() {
  Variablen& v = engine_.v;
  // The slot column has no width: it holds the row's slot number and nobody reads it.
  const auto columns = [](const char* slots) {
    return std::vector<ListView::Column>{{"Name", 5.0 / 6, false}, {slots, 0, false}};
  };
  v.A.efxList.setColumns(columns("efxA"));
  v.B.efxList.setColumns(columns("efxB"));
  engine_.master.efxXList.setColumns(columns("efxX"));
  v.efxADeleted = v.efxBDeleted = v.efxXDeleted = 0;
  panelA.add.click();
  panelB.add.click();
  addX.click();
}

void MatrixForm::resetMaster() {
  Variablen& v = engine_.v;
  v.fadeStep = 0;
  v.fadeDirection = 1;
  v.fadeTime = 3;
  v.fadeTypeNow = kCrossFade;
  v.fadeSteps = 30;
  v.masterValue = 0.5;
}

// Choosing a type in an empty list runs its handler, so each deck starts its first effect here.
void MatrixForm::showFirstRows() {
  Variablen& v = engine_.v;
  v.A.type.setIndex(v.efxA.at(0).type);
  v.B.type.setIndex(v.efxB.at(0).type);
  const FadeEntry fade = v.efxX.at(0);
  engine_.master.fadeType.setIndex(fade.type);
  engine_.master.fadeName.setText(fade.name);
  engine_.master.fadeTimeText.setText(formatStandard(fade.time, engine_.platform.numberFormat()));
}

void MatrixForm::preparePictures() {
  for (Deck* deck : {&engine_.v.A, &engine_.v.B}) {
    deck->mini.resize(engine_.v.matrixCols, engine_.v.matrixRows);
    deck->image.resize(engine_.v.matrixCols, engine_.v.matrixRows);
    set_matrix_values(engine_, deck->picture);
  }
  mixFrame(engine_, engine_.v.masterValue);
  set_matrix_values(engine_, engine_.master.picture);
}

void MatrixForm::Form_Activate() {
  drawMatrixA(engine_);
  drawMatrixB(engine_);
  mixAndDraw(engine_);
}

void MatrixForm::active_Click() {
  engine_.v.outputActive = active.checked();
  if (active.checked()) sendFrame(engine_);
}

void MatrixForm::mxsim_active_Click() {
  engine_.v.simActive = mxsim_active.checked();
  Form& window = engine_.desktop.named("MxSimForm");
  if (!mxsim_active.checked()) return engine_.desktop.hide(window);
  engine_.desktop.show(window);
  simDrawFrame(engine_);
}

// `timerM2` is not stopped, and some dialogs stay open (docs/kept.md, close-all).
void MatrixForm::Closeall_Click() {
  Variablen& v = engine_.v;
  for (Timer* timer :
       {&v.A.timer1, &v.B.timer1, &v.A.timer2, &v.B.timer2, &engine_.master.timerM}) {
    timer->disable();
  }
  active.setValue(0);
  v.outputActive = false;
  mxsim_active.setValue(0);
  v.simActive = false;
  for (const EffectKind* kind : kinds()) {
    EffectDialog* dialog = dialogOf(engine_, *kind);
    if (dialog != nullptr && kind->atCloseall == AtCloseall::Hidden) engine_.desktop.hide(*dialog);
  }
  engine_.desktop.hide(engine_.desktop.get<MxColorMixer>());
  engine_.desktop.hide(*this);
}

void MatrixForm::ITharnTool_LoadProjectData() {
  if (!engine_.v.matrixConfigured) conf_.load_Click();
}

void MatrixForm::ITharnTool_SaveProjectData() { conf_.save_Click(); }

void MatrixForm::ITharnTool_ViewMode(std::int32_t mode) {
  engine_.v.viewMode = mode;
  setSize(mode == kFullViewMode ? kFullWidth : kToolWidth, height());
}

void MatrixForm::showNarrow(bool narrow) {
  setSize(narrow ? kNarrowWidth : kFullWidth, height());
  for (Group* frame : {&panelA.frame, &panelB.frame, &FrameX, &FrameXX, &FrameG})
    frame->setVisible(!narrow);
}

}  // namespace korvane
