#include "desk/windows/OutputSetup.h"

#include <cmath>
#include <stdexcept>

#include "desk/network/ArtnetPacket.h"

namespace korvane {
namespace {

constexpr int kReceiverLines = 4;

std::string rounded(double value) { return std::to_string(std::lround(value)); }

// The cells of an output's row.
std::vector<std::string> cellsOf(const Output& output) {
  const OutputConfig& config = output.config();
  if (!output.on()) return {config.name, "off", describe(config), "", "", ""};
  const OutputFigures figures = output.figures();
  const std::string& problem = figures.problem();
  return {config.name,
          "on",
          describe(config),
          rounded(figures.packetsPerSecond),
          std::to_string(figures.late),
          problem.empty() ? "well" : problem};
}

// Art-Net's universes in all their parts.
std::string portAddresses(const OutputConfig& config) {
  if (config.kind != OutputKind::Artnet) return {};
  const int first = config.routes.front().universe, last = config.routes.back().universe;
  return "Port address " + describePortAddress(first) +
         (first == last ? "" : " to " + describePortAddress(last)) + ". ";
}

std::string figuresOf(const Output& output) {
  const std::string where = portAddresses(output.config());
  if (!output.on()) return where + "Off: there is no thread and no socket of it.";
  const OutputFigures figures = output.figures();
  const std::string concern = figures.concern.empty() ? "" : " " + figures.concern + ".";
  return where + rounded(figures.packetsPerSecond) + " packets a second, " +
         std::to_string(figures.packets) + " in all; " + std::to_string(figures.late) +
         " pictures late; last error: " + (figures.lastError.empty() ? "none" : figures.lastError) +
         "." + concern;
}

std::string receiversOf(const Output& output) {
  if (!output.config().toNodes || !output.on()) return {};
  std::string text;
  for (const std::string& line : output.figures().receivers) text += line + "\n";
  return text.empty() ? "no node has answered yet" : text;
}

}  // namespace

OutputSetup::OutputSetup(Desktop& desktop, Outputs& outputs, std::function<int()> universesOfWall)
    : Form("DeskOutput", "Outputs"),
      list("outputs", {.toolTip = "where the levels go; what is below is of the row that is lit"}),
      addOutput("addOutput", {.caption = "Add", .toolTip = "one more output, which is off"}),
      removeOutput("removeOutput",
                   {.caption = "Remove", .toolTip = "end this output and forget it"}),
      on("on", {.caption = "On", .toolTip = "send by this output"}),
      figures("figures", {.caption = " ", .toolTip = "how this output fares"}),
      receivers("receivers",
                {.toolTip = "the Art-Net nodes that answered, with their names, addresses and "
                            "universes",
                 .label = "Nodes : "},
                "", {.readOnly = true, .lines = kReceiverLines}),
      off("off", {.toolTip = "what the lamps do when DMX is switched off or the tool is closed",
                  .label = "DMX off : "}),
      state("state", {.toolTip = "what is wrong with the settings or with the network"}),
      OK("OK", {.caption = "Close", .toolTip = "close this window"}),
      outputs_(outputs),
      universesOfWall_(std::move(universesOfWall)) {
  add({&list, &addOutput, &removeOutput, &on});
  add(panel.controls());
  add({&figures, &receivers, &off, &state, &OK});
  list.setColumns({{"Name", 0.15},
                   {"On", 0.07},
                   {"Sends", 0.37},
                   {"Packets/s", 0.11},
                   {"Late", 0.07},
                   {"State", 0.23}});
  off.setItems({"lamps go dark", "lamps hold what they show", "ask"});
  off.setIndex(0);
  declareLayout();
  bind();
  OK.onClick = [this, &desktop] { desktop.hide(*this); };
  onEnter = onEscape = OK.onClick;
  showChosen();
  desktop.add(*this);
}

void OutputSetup::declareLayout() {
  setLayout(column({Layout(list, 1), row({addOutput, removeOutput, on, space(), off}),
                    panel.layout(receivers), figures, row({Layout(state, 1), OK})}));
}

void OutputSetup::bind() {
  panel.universesOfWall = universesOfWall_;
  panel.onChange = [this] { apply(); };
  list.onClick = [this](int row, int) { choose(row); };
  addOutput.onClick = [this] { addOne(); };
  removeOutput.onClick = [this] { removeChosen(); };
  on.onClick = [this] {
    if (filling_ || chosen() < 0) return;
    on.checked() ? output().switchOn() : output().switchOff();
    kept();
  };
  off.onClick = [this] { kept(); };
}

void OutputSetup::kept() {
  refresh();
  if (onKept) onKept();
}

void OutputSetup::take(const OutputEntry& entry) {
  Output& added = outputs_.add(entry.config);
  if (entry.on) added.switchOn();
  list.add("", std::vector<std::string>(5));
  choose(list.count() - 1);
}

void OutputSetup::takeAll(const std::vector<OutputEntry>& wanted) {
  if (wanted == entries()) return;
  outputs_.switchAllOff();
  while (!outputs_.empty()) outputs_.remove(outputs_.size() - 1);
  list.clear();
  for (const OutputEntry& entry : wanted) take(entry);
  showChosen();
}

void OutputSetup::addOne() {
  const int universes = universesOfWall_();
  take({parseOutput("sacn:" + usualUniverses(OutputKind::Sacn, universes)), false});
  kept();
}

void OutputSetup::removeChosen() {
  if (chosen() < 0) return;
  outputs_.remove(static_cast<std::size_t>(chosen()));
  list.remove(chosen());
  choose(list.current());
  kept();
}

std::vector<OutputEntry> OutputSetup::entries() const {
  std::vector<OutputEntry> all;
  for (std::size_t i = 0; i < outputs_.size(); ++i)
    all.push_back({outputs_.at(i).config(), outputs_.at(i).on()});
  return all;
}

void OutputSetup::choose(int row) {
  if (row >= 0) list.select(row);
  showChosen();
}

// The settings of the chosen output as they are in force: a wrong entry is forgotten.
void OutputSetup::showChosen() {
  complaint_.clear();
  const bool any = chosen() >= 0;
  filling_ = true;
  on.setValue(any && output().on() ? 1 : 0);
  filling_ = false;
  if (any) panel.show(output().config());
  panel.setUsable(any);
  for (Control* control : std::initializer_list<Control*>{&on, &removeOutput})
    control->setEnabled(any);
  refresh();
}

// A wrong entry changes nothing: the output goes on as it was.
void OutputSetup::apply() {
  if (chosen() < 0) return;
  complaint_.clear();
  try {
    const OutputConfig config = parseOutput(panel.text());
    output().configure(config);
    kept();
  } catch (const std::invalid_argument& error) {
    const std::string what = error.what();
    const std::size_t cut = what.find("': ");
    complaint_ = (cut == std::string::npos ? what : what.substr(cut + 3)) + "; not taken yet.";
    refresh();
  }
}

void OutputSetup::changeLook(const std::function<void(OutputLook&)>& change) {
  if (chosen() < 0) return;
  OutputConfig config = output().config();
  change(config.look);
  output().configure(config);
  showChosen();
  kept();
}

bool OutputSetup::sending() const {
  for (std::size_t i = 0; i < outputs_.size(); ++i) {
    if (outputs_.at(i).on()) return true;
  }
  return false;
}

std::vector<bool> OutputSetup::universesSent() const {
  if (!sending()) return {};
  std::vector<bool> sent(kWallUniverses + 1);
  for (std::size_t i = 0; i < outputs_.size(); ++i) {
    if (!outputs_.at(i).on()) continue;
    const OutputConfig& config = outputs_.at(i).config();
    if (config.kind == OutputKind::Ddp) return {};
    for (const Route& route : config.routes) sent[static_cast<std::size_t>(route.wall)] = true;
  }
  return sent;
}

std::string OutputSetup::target() const {
  std::string text;
  int count = 0;
  for (std::size_t i = 0; i < outputs_.size(); ++i) {
    if (!outputs_.at(i).on()) continue;
    text = outputs_.at(i).title();
    ++count;
  }
  return count > 1 ? std::to_string(count) + " outputs" : text;
}

std::string OutputSetup::fault() const {
  std::string text = complaint_;
  for (std::size_t i = 0; i < outputs_.size(); ++i) {
    const Output& one = outputs_.at(i);
    const std::string problem = one.on() ? one.figures().problem() : "";
    if (problem.empty()) continue;
    text += (text.empty() ? "" : " ") + (outputs_.size() > 1 ? one.title() + ": " : "") + problem;
  }
  return text;
}

void OutputSetup::refresh() {
  for (int row = 0; row < list.count(); ++row) {
    const std::vector<std::string> cells = cellsOf(outputs_.at(static_cast<std::size_t>(row)));
    for (int col = 0; col < static_cast<int>(cells.size()); ++col) {
      const std::string& cell = cells[static_cast<std::size_t>(col)];
      if (list.cell(row, col) != cell) list.setCell(row, col, cell);
    }
  }
  const auto caption = [](Label& label, const std::string& text) {
    if (label.look().caption != text) label.setCaption(text);
  };
  const bool any = chosen() >= 0;
  caption(figures, any ? figuresOf(output()) : "Add gives the first output.");
  receivers.setText(any ? receiversOf(output()) : "");
  const bool nodes = any && output().config().toNodes;
  if (receivers.look().visible != nodes) receivers.setVisible(nodes);
  const std::string wrong = fault();
  const std::string now = !wrong.empty() ? wrong
                          : !sending()   ? "Nothing is sent: no output is on."
                                         : target();
  caption(state, now);
}

}  // namespace korvane
