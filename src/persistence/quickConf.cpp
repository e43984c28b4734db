#include "persistence/quickConf.h"

#include <exception>

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace korvane {
namespace {

constexpr std::int32_t kLastCode = kUniverses * kUniverseChannels;
constexpr int kCodesOfLamp = 3;

constexpr const char* kExplanation =
    "This tool will configure the RGB Matrix by adding 3 channels per RGB-Light up from the Base "
    "Address. These channels are in Tharn not seen as Devices, but the output will be sent to "
    "these channels. You can create an DDF for Tharn to block these channels.";

std::int32_t number(const ListBox& list) { return toInteger32(list.text()); }

}  // namespace

quickConf::quickConf(Engine& engine, MatrixConf& conf)
    : Form("quickConf", "Quick Configuration"),
      Label1("Label1", {.caption = "Base Address"}),
      Label2("Label2", {.caption = kExplanation}),
      Label3("Label3", {.caption = "Address : "}),
      BaseAddress("BaseAddress", {.toolTip = "channel of the first lamp's red"}),
      Label4("Label4", {.caption = "Universe : "}),
      Universe("Universe", {.toolTip = "universe of the first lamp's red; lamps beyond the first "
                                       "universe stay dark"}),
      CreateDDF("CreateDDF",
                {.caption = "Create DDF",
                 .toolTip = "write the device that blocks these channels in the desk"}),
      OKButton("OKButton", {.caption = "OK", .toolTip = "give all lamps their channels"}),
      CancelButton("CancelButton", {.caption = "Cancel", .toolTip = "leave the channels alone"}),
      engine_(engine),
      conf_(conf) {
  add({&Label1, &Label2, &Label3, &BaseAddress, &Label4, &Universe, &CreateDDF, &OKButton,
       &CancelButton});
  setLayout(column({Label1, Label2, row({Label3, BaseAddress, space(), Label4, Universe}), space(),
                    row({CreateDDF, space(), OKButton, CancelButton})}));
  onLoad = [this] {
    BaseAddress.setItems(numbersUpTo(kUniverseChannels));
    Universe.setItems(numbersUpTo(kUniverses));
  };
  CreateDDF.onClick = [this] { CreateDDF_Click(); };
  OKButton.onClick = [this] { OKButton_Click(); };
  CancelButton.onClick = [this] { CancelButton_Click(); };
  engine.desktop.add(*this);
}

// The lamps are numbered row by row, unlike those of the default map (docs/kept.md, grid-rows). A
// map that starts in or reaches a higher universe is taken, though only the first one is sent.
void quickConf::OKButton_Click() {
  Variablen& v = engine_.v;
  const std::int32_t base = number(BaseAddress) + (number(Universe) - 1) * kUniverseChannels;
  if (base + mul16(mul16(v.matrixCols, v.matrixRows), kCodesOfLamp) > kLastCode) {
    engine_.platform.messageBox("Base Address not valid ! Value is too large for this Matrix !");
    return;
  }
  v.matrix.countChannelsUp(base, Matrix::Order::RowByRow);
  v.matrix.configureAll();
  v.configChanged = true;
  v.quickConfigured = true;
  conf_.redraw_config();
  engine_.desktop.hide(*this);
}

void quickConf::CancelButton_Click() {
  engine_.v.configChanged = false;
  engine_.desktop.hide(*this);
}

void quickConf::CreateDDF_Click() {
  try {
    TextWriter file(chosenFile(engine_.platform, {.purpose = FileQuestion::Purpose::Save,
                                                  .title = "create DDF-File for Matrix",
                                                  .filter = "XML-Files (*.xml)|*.xml",
                                                  .defaultExtension = "xml"}),
                    engine_.platform.disk());
    writeDeviceDefinition(file, engine_.v.matrixCols, engine_.v.matrixRows);
    file.close();
  } catch (const std::exception&) {
    // Ends without a word, whatever it was.
  }
}

void writeDeviceDefinition(TextWriter& file, int cols, int rows) {
  for (const char* line :
       {"<?xml version='1.0' encoding='ISO-8859-1'?>", "<device image='light.gif'>",
        "<information>", "<name>RGB-Matrix</name>", "<author>automatic generated</author>",
        "</information>", "<channels>"}) {
    file.writeLine(line);
  }
  std::int16_t channel = 0;
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < cols; ++col) {
      for (const char* component : {"R", "G", "B"}) {
        file.writeLine("<function channel='" + std::to_string(channel) + "' maxvalue='255' name='" +
                       component + "-" + std::to_string(col) + "-" + std::to_string(row) +
                       "' fade='yes' type='color'/>");
        channel = add16(channel, 1);
      }
    }
  }
  // "deviceadress" is the desk's spelling.
  for (const char* line : {"</channels>", "<form width='300' height='150'>",
                           "<deviceimage top='0' left='0'/>", "<devicename top='0' left='40'/>",
                           "<deviceadress top='16' left='40'/>", "</form>", "</device>"}) {
    file.writeLine(line);
  }
}

}  // namespace korvane
