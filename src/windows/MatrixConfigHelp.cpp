#include "windows/MatrixConfigHelp.h"

#include "windows/Logo.h"

namespace korvane {
namespace {

constexpr const char* kText =
    "RGB-Matrix\n"
    "with this plugin you can edit the values of a matrix of \n"
    "RGB-devices. After setting the values in the plugin, you \n"
    "can send this values to TharnDesk and then save this \n"
    "matrix in a scene.\n"
    "Configuration:\n"
    "With the number of rows and columns you set the size of \n"
    "the matrix. With a doubleclick on the square of the \n"
    "matrix you can configure the RGB-device. For each RGB-Device\n"
    "you have to set the channels for RGB, give it a name and you can \n"
    "supply trimming values for the RGB-channels. Every RGB-Device\n"
    "of the matrix which is configured is white (all un-\n"
    "configured devices are grey).\n"
    "With the Load- and Save-Buttons you can store and recall \n"
    "complete RGB-matrixes. The Defaultname- and Defaultdirectory \n"
    "are the name and location of the actual TharnDesk-Project.";
constexpr int kLines = 16;

// A grid as the definition window shows it: some lamps have their channels, the others not yet.
void drawGrid(PictureBox& box) {
  constexpr int kCells = 6;
  constexpr int kConfigured = 15;
  const int side = (box.width() - 1) / kCells;
  for (int cell = 0; cell < kCells * kCells; ++cell) {
    const int x = cell % kCells * side;
    const int y = cell / kCells * side;
    box.fillRect(x, y, x + side, y + side,
                 cell < kConfigured ? rgb(255, 255, 255) : rgb(180, 180, 180));
    box.drawRect(x, y, x + side, y + side, rgb(0, 0, 0));
  }
}

}  // namespace

MatrixConfigHelp::MatrixConfigHelp(Engine& engine)
    : Form("MatrixConfigHelp", "CCConfigHelp"),
      Logo("Logo", kLogoSize, {.toolTip = "Korvane"}),
      Picture("Picture", {97, 97, PictureBox::Sizing::Fixed},
              {.toolTip = "white lamps have their channels, grey ones not yet"}),
      Text1("Text1", {.toolTip = "how to configure the matrix"}, kText,
            {.readOnly = true, .lines = kLines}),
      OK("OK", {.caption = "OK", .toolTip = "close the help"}) {
  add({&Logo, &Picture, &Text1, &OK});
  setLayout(
      column({row({column({Logo, Picture, space()}), Layout(Text1, 1)}, 1), row({space(), OK})}));
  drawLogo(Logo);
  drawGrid(Picture);
  OK.onClick = [this, &engine] { engine.desktop.hide(*this); };
  engine.desktop.add(*this);
}

}  // namespace korvane
