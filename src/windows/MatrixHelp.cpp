#include "windows/MatrixHelp.h"

#include <string>

#include "windows/Logo.h"

namespace korvane {

MatrixHelp::MatrixHelp(Engine& engine)
    : Form("MatrixHelp", "Korvane"),
      Logo("Logo", kLogoSize, {.toolTip = "Korvane"}),
      Title("Title", {.caption = "Matrix Help File"}),
      Page("Page", {.caption = std::string("Online help: ") + kHelpPage,
                    .toolTip = "click to open the page in the browser"}),
      OK("OK", {.caption = "OK", .toolTip = "close the help"}) {
  add({&Logo, &Title, &Page, &OK});
  setLayout(column({row({Logo, Layout(Title, 1)}), Page, space(), row({space(), OK})}));
  drawLogo(Logo);
  Page.onClick = [&engine] { engine.platform.openPage(kHelpPage); };
  OK.onClick = [this, &engine] { engine.desktop.hide(*this); };
  engine.desktop.add(*this);
}

}  // namespace korvane
