#pragma once

#include <cstdint>
#include <functional>

#include "persistence/MatrixConf.h"
#include "platform/Controls.h"
#include "platform/Form.h"
#include "state/Engine.h"
#include "windows/DeckPanel.h"

namespace korvane {

/// The main window, and the tool object of the desk. It is created with the plug-in and loads when
/// it is first shown; `Closeall` is the only way out that stops the decks and the output, and hides
/// it.
class MatrixForm : public Form {
 public:
  MatrixForm(Engine& engine, MatrixConf& conf);

  // The desk's calls.
  bool ITharnTool_AskToSaveProjectData() { return true; }
  void ITharnTool_ClearProjectData() {}
  /// Asks for a definition if none exists.
  void ITharnTool_LoadProjectData();
  /// Asks where to save the definition, every time.
  void ITharnTool_SaveProjectData();
  void ITharnTool_ViewMode(std::int32_t mode);
  /// The narrow view without the lists, or the full one.
  void showNarrow(bool narrow);

  DeckPanel panelA, panelB;
  Group FrameM, FrameX, FrameXX, FrameG;
  Button fadeA, fadeB;
  PictureButton addX, removeX, upX, downX;
  Label Label1, Label2;
  CheckBox active, mxsim_active;
  PictureButton save, load, help, Closeall;

  /// For the desk: the composition was saved to a file, or loaded from one.
  std::function<void()> onSaved, onLoaded;

 private:
  void addControls();
  void declareLayout();
  void bindMaster();
  void bindFunctions();
  void Form_Load();
  void Form_Activate();
  void resetTimers();
  void fillLists();
  void setFixedColors();
  void resetCounters();
  void addFirstRows();
  void resetMaster();
  void showFirstRows();
  void preparePictures();
  void active_Click();
  void mxsim_active_Click();
  void Closeall_Click();

  Engine& engine_;
  MatrixConf& conf_;
};

}  // namespace korvane
