#include "persistence/MatrixConfDetail.h"

#include "platform/Text.h"
#include "state/ChannelMap.h"

namespace korvane {
MatrixConfDetail::MatrixConfDetail(Engine& engine)
    : Form("MatrixConfDetail", "Konfiguration"),
      red("red", {.caption = "Red"}),
      green("green", {.caption = "Green"}),
      blue("blue", {.caption = "Blue"}),
      R("R", {.toolTip = "channel of the lamp's red", .label = "Channels : "}),
      G("G", {.toolTip = "channel of the lamp's green"}),
      B("B", {.toolTip = "channel of the lamp's blue"}),
      UR("UR", {.toolTip = "universe of the lamp's red", .label = "Universe : "}),
      UG("UG", {.toolTip = "universe of the lamp's green"}),
      UB("UB", {.toolTip = "universe of the lamp's blue"}),
      setConfig("setConfig", {.caption = "OK", .toolTip = "give the lamp these channels"}),
      Cancel("Cancel", {.caption = "Cancel", .toolTip = "leave the lamp as it is"}),
      engine_(engine) {
  add({&red, &green, &blue, &R, &G, &B, &UR, &UG, &UB, &setConfig, &Cancel});
  setLayout(column({grid(4, {space(0), red, green, blue, R, G, B, UR, UG, UB}), space(),
                    row({space(), setConfig, Cancel})}));
  onLoad = [this] {
    for (const Choice& choice : choices()) {
      choice.channel->setItems(numbersUpTo(engine_.v.maxChannels));
      choice.universe->setItems(numbersUpTo(kUniverses));
    }
  };
  setConfig.onClick = [this] { setConfig_Click(); };
  Cancel.onClick = [this] { engine_.desktop.hide(*this); };
}

// Nothing checks for clashes: two components, and two cells, may share a channel.
void MatrixConfDetail::setConfig_Click() {
  Variablen& v = engine_.v;
  int component = 0;
  for (const Choice& choice : choices()) {
    const std::int32_t channel = toInteger32(choice.channel->text());
    v.channelMap.set(v.cellCol, v.cellRow, component++,
                     channel + choice.universe->index() * kUniverseChannels);
  }
  v.cellConfigured.at(v.cellCol, v.cellRow) = true;
  v.configChanged = true;
  v.quickConfigured = false;
  engine_.desktop.hide(*this);
}

}  // namespace korvane
