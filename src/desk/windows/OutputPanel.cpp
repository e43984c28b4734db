#include "desk/windows/OutputPanel.h"

#include <algorithm>
#include <initializer_list>

#include "platform/Text.h"

namespace korvane {
namespace {

using Names = std::vector<std::string>;

// Where an output can go, by its kind. The entry that takes an address, and that of the nodes.
constexpr const char* kOneAddress = "one address";
constexpr const char* kNodes = "nodes that answer";

Names waysOf(OutputKind kind) {
  switch (kind) {
    case OutputKind::Sacn:
      return {"multicast groups", kOneAddress};
    case OutputKind::Artnet:
      return {"broadcast", kOneAddress, kNodes};
    case OutputKind::Ddp:
      return {kOneAddress};
    case OutputKind::Ola:
      break;
  }
  return {"this machine", kOneAddress};
}

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string setting(const char* key, const std::string& value) {
  return value.empty() ? "" : std::string(",") + key + "=" + value;
}

/// The part of a text of a target between two marks.
std::string between(const std::string& text, char from, const std::string& to) {
  const std::size_t head = text.find(',');
  const std::string all = text.substr(0, head);
  const std::size_t first = all.find(from);
  if (first == std::string::npos) return {};
  const std::size_t last = all.find_first_of(to, first + 1);
  return all.substr(first + 1, last == std::string::npos ? last : last - first - 1);
}

}  // namespace

std::string usualUniverses(OutputKind kind, int count) {
  if (kind == OutputKind::Ddp) return {};
  const int first = kind == OutputKind::Artnet ? 0 : 1;
  return std::to_string(first) + (count > 1 ? "-" + std::to_string(first + count - 1) : "");
}

OutputPanel::OutputPanel()
    : outputGroup("outputGroup", {.caption = "Output"}),
      name("outputName", {.toolTip = "what the output is called here", .label = "Name : "}, "",
           kTakenAtTheEnd),
      kind("outputKind", {.toolTip = "the protocol", .label = "Kind : "}),
      universes("universes",
                {.toolTip = "the protocol's universes that carry those of the wall from its first "
                            "on, as in 1-15 or 1-4+10; 3=101 sends the wall's third as 101. sACN "
                            "1 to 63999; Art-Net port address 0 to 32767; OLA 0 and on",
                 .label = "Universes : "},
                "1", kTakenAtTheEnd),
      way("way", {.toolTip = "who receives it", .label = "Sent to : "}),
      address("address",
              {.toolTip = "IPv4 address of the receiver, as in 192.168.1.20; with a port other "
                          "than the usual, 192.168.1.20:7000",
               .label = "Address : "},
              "", kTakenAtTheEnd),
      interface("interface",
                {.toolTip = "network interface, as in eth0; empty: the routing table decides",
                 .label = "Interface : "},
                "", kTakenAtTheEnd),
      rate("rate", {.toolTip = "most pictures a second, 1 to 1000", .label = "Rate limit : "}, "44",
           kTakenAtTheEnd),
      end("atEnd", {.toolTip = "what the lamps are left with when the output ends, by you or by a "
                               "signal to the program: black; hold the last picture; release, "
                               "nothing more than the protocol's farewell",
                    .label = "At the end : "}),
      lookGroup("lookGroup", {.caption = "Curve and white balance"}),
      gamma("gamma",
            {.toolTip = "curve from a value to light, 1 (linear) to 4; lamps that are "
                        "bright too soon want about 2.2",
             .label = "Gamma : "},
            "1", kTakenAtTheEnd),
      smooth("smooth", {.caption = "Smooth dark steps",
                        .toolTip = "steps that the curve loses at the dark end are shown by "
                                   "neighbouring lamps"}),
      red("balanceRed", {.toolTip = "share of red, 0 to 100 %", .label = "Red % : "}, "100",
          kTakenAtTheEnd),
      green("balanceGreen", {.toolTip = "share of green, 0 to 100 %", .label = "Green % : "}, "100",
            kTakenAtTheEnd),
      blue("balanceBlue", {.toolTip = "share of blue, 0 to 100 %", .label = "Blue % : "}, "100",
           kTakenAtTheEnd),
      sacnGroup("sacnGroup", {.caption = "sACN"}),
      priority("priority",
               {.toolTip = "0 to 200; receivers take the highest", .label = "Priority : "}, "100",
               kTakenAtTheEnd),
      source("source",
             {.toolTip = "source name that receivers show, 1 to 63 bytes", .label = "Source : "},
             "Korvane", kTakenAtTheEnd),
      synchronisation("synchronisation",
                      {.toolTip = "synchronisation universe, 1 to 63999, whose packets release a "
                                  "picture on all receivers at once; empty: none",
                       .label = "Sync universe : "},
                      "", kTakenAtTheEnd),
      artnetGroup("artnetGroup", {.caption = "Art-Net"}),
      artSync("artSync", {.caption = "ArtSync",
                          .toolTip = "a packet behind each picture that shows it on all nodes at "
                                     "once"}) {
  Names kinds;
  for (const OutputKindRow& row : outputKinds()) kinds.emplace_back(row.name);
  kind.setItems(kinds);
  end.setItems({"black", "hold", "release"});
  show({});
  bind();
}

void OutputPanel::bind() {
  for (Control* control : controls()) {
    if (auto* list = dynamic_cast<ListBox*>(control)) list->onClick = [this] { changed(); };
    if (auto* box = dynamic_cast<CheckBox*>(control)) box->onClick = [this] { changed(); };
    if (auto* text = dynamic_cast<TextBox*>(control)) text->onChange = [this] { changed(); };
  }
  kind.onClick = [this] { kindChosen(); };
}

OutputKind OutputPanel::chosenKind() const {
  return outputKinds()[static_cast<std::size_t>(std::max(0, kind.index()))].kind;
}

// Universes and receivers of one kind mean nothing to another.
void OutputPanel::kindChosen() {
  if (filling_) return;
  filling_ = true;
  universes.setText(usualUniverses(chosenKind(), universesOfWall ? universesOfWall() : 1));
  setWays();
  filling_ = false;
  changed();
}

void OutputPanel::changed() {
  if (filling_) return;
  follow();
  if (onChange) onChange();
}

void OutputPanel::setWays() {
  const Names ways = waysOf(chosenKind());
  if (way.items() != ways) way.setItems(ways);
  if (way.index() < 0) way.setIndex(0);
}

void OutputPanel::follow() {
  const OutputKind now = chosenKind();
  const auto enable = [this](Control& control, bool on) {
    if (control.look().enabled != (on && usable_)) control.setEnabled(on && usable_);
  };
  for (Control* control : controls()) enable(*control, true);
  enable(universes, now != OutputKind::Ddp);
  enable(address, way.text() == kOneAddress);
  enable(interface, now != OutputKind::Ola);
  for (Control* control : std::initializer_list<Control*>{&priority, &source, &synchronisation})
    enable(*control, now == OutputKind::Sacn);
  enable(artSync, now == OutputKind::Artnet);
  const auto show = [](Control& group, bool shown) {
    if (group.look().visible != shown) group.setVisible(shown);
  };
  show(sacnGroup, now == OutputKind::Sacn);
  show(artnetGroup, now == OutputKind::Artnet);
}

void OutputPanel::setUsable(bool usable) {
  usable_ = usable;
  follow();
}

std::string OutputPanel::text() const {
  const OutputKind now = chosenKind();
  std::string text(rowOf(now).word);
  if (now != OutputKind::Ddp) text += ":" + trimmed(universes.text());
  if (way.text() == kOneAddress) text += "@" + trimmed(address.text());
  if (way.text() == kNodes) text += "@nodes";
  const std::string by = trimmed(interface.text());
  if (!by.empty() && now != OutputKind::Ola) text += "%" + by;
  text += setting("rate", trimmed(rate.text())) + setting("end", end.text()) +
          setting("gamma", trimmed(gamma.text())) + ",smooth=" + (smooth.checked() ? "on" : "off") +
          ",balance=" + trimmed(red.text()) + "/" + trimmed(green.text()) + "/" +
          trimmed(blue.text());
  if (now == OutputKind::Sacn)
    text += setting("priority", trimmed(priority.text())) +
            setting("source", escapedName(trimmed(source.text()))) +
            setting("sync", trimmed(synchronisation.text()));
  if (now == OutputKind::Artnet && artSync.checked()) text += ",sync=on";
  return text + setting("name", escapedName(trimmed(name.text())));
}

void OutputPanel::show(const OutputConfig& config) {
  filling_ = true;
  const std::string text = outputText(config);
  name.setText(config.name);
  const auto kinds = outputKinds();
  kind.setIndex(static_cast<int>(&rowOf(config.kind) - kinds.data()));
  universes.setText(between(text, ':', "@%"));
  setWays();
  const bool addressed = !config.address.empty();
  const Names ways = waysOf(config.kind);
  const auto entry = std::ranges::find(ways, config.toNodes ? kNodes : kOneAddress);
  way.setIndex(addressed || config.toNodes ? static_cast<int>(entry - ways.begin()) : 0);
  address.setText(addressed ? between(text, '@', "%") : "");
  interface.setText(config.interface);
  rate.setText(std::to_string(config.rate));
  end.setIndex(static_cast<int>(config.atEnd));
  gamma.setText(formatGeneral(config.look.gamma, {}));
  smooth.setValue(config.look.smooth ? 1 : 0);
  TextBox* const shares[] = {&red, &green, &blue};
  for (std::size_t i = 0; i < config.look.balance.size(); ++i)
    shares[i]->setText(std::to_string(config.look.balance[i]));
  priority.setText(std::to_string(config.priority));
  source.setText(config.source);
  const int universe = config.synchronisation;
  synchronisation.setText(universe == 0 ? "" : std::to_string(universe));
  artSync.setValue(config.artSync ? 1 : 0);
  filling_ = false;
  follow();
}

std::vector<Control*> OutputPanel::controls() {
  return {&name,       &kind,        &universes, &way,
          &address,    &interface,   &rate,      &end,
          &gamma,      &smooth,      &red,       &green,
          &blue,       &priority,    &source,    &synchronisation,
          &artSync,    &outputGroup, &lookGroup, &sacnGroup,
          &artnetGroup};
}

Layout OutputPanel::layout(Control& nodes) {
  const Layout look = column({row({Layout(gamma, 1), smooth}),
                              row({Layout(red, 1), Layout(green, 1), Layout(blue, 1)}), space()});
  const Layout sacn = column(
      {row({Layout(source, 1)}), row({Layout(priority, 1), Layout(synchronisation, 1)}), space()});
  return column(
      {boxed(outputGroup, grid(6, {name, kind, universes, way, address, interface, rate, end})),
       row({boxed(lookGroup, look, 1), boxed(sacnGroup, sacn, 1),
            boxed(artnetGroup, row({column({artSync, space()}), Layout(nodes, 1)}), 1)})});
}

}  // namespace korvane
