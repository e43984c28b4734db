#include "desk/windows/OutputSetup.h"

#include <stdexcept>

namespace korvane {
namespace {

constexpr TextBoxStyle kTakenAtTheEnd{.commit = TextBoxStyle::Commit::OnLeave};

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

OutputSetup::OutputSetup(Desktop& desktop, NetworkOutput& output)
    : Form("DeskOutput", "Output"),
      protocol("protocol",
               {.toolTip = "how the levels are sent to the lamps", .label = "Send by : "}),
      universe("universe",
               {.toolTip = "number of the universe that carries the 512 channels",
                .label = "Universe : "},
               "1", kTakenAtTheEnd),
      address("address",
              {.toolTip = "address of one receiver, such as 192.168.1.20; empty: all receivers",
               .label = "Address : "},
              "", kTakenAtTheEnd),
      off("off", {.toolTip = "what the lamps do when DMX is switched off or the tool is closed",
                  .label = "DMX off : "}),
      state("state", {.toolTip = "where the levels go, and the last error of the network"}),
      OK("OK", {.caption = "Close", .toolTip = "close this window"}),
      output_(output) {
  add({&protocol, &universe, &address, &off, &state, &OK});
  setLayout(
      column({fields({protocol, universe, address, off}), state, space(), row({space(), OK})}));
  std::vector<std::string> names = {"Off"};
  for (const Protocol& one : protocols()) names.emplace_back(one.name);
  protocol.setItems(names);
  protocol.setIndex(0);
  off.setItems({"lamps go dark", "lamps hold what they show", "ask"});
  off.setIndex(0);
  protocol.onClick = [this] { apply(); };
  universe.onChange = [this] { apply(); };
  address.onChange = [this] { apply(); };
  OK.onClick = [this, &desktop] { desktop.hide(*this); };
  onEnter = onEscape = OK.onClick;
  refresh();
  desktop.add(*this);
}

const Protocol* OutputSetup::chosen() const {
  const int index = protocol.index();
  return index <= 0 ? nullptr : &protocols()[static_cast<std::size_t>(index - 1)];
}

void OutputSetup::apply() {
  std::string target;
  if (const Protocol* one = chosen()) {
    target = std::string(one->word) + ":" + trimmed(universe.text());
    const std::string given = trimmed(address.text());
    if (!given.empty()) target += (given.front() == '%' ? "" : "@") + given;
  }
  if (target == applied_) return refresh();
  applied_ = target;
  complaint_.clear();
  target_.clear();
  output_.stop();
  try {
    if (!target.empty()) send(parseOutputTarget(target));
  } catch (const std::invalid_argument& error) {
    complaint_ = error.what();
  }
  refresh();
}

std::string OutputSetup::givenAddress(const OutputTarget& target) {
  const bool own = target.address == target.protocol->address(target.universe);
  std::string given = own ? "" : target.address;
  if (target.port != target.protocol->port)
    given = target.address + ":" + std::to_string(target.port);
  return target.interface.empty() ? given : given + "%" + target.interface;
}

void OutputSetup::use(const OutputTarget& target) {
  const auto quiet = [](auto& control, const auto& set) {
    const auto handler = std::exchange(control.onChange, nullptr);
    set();
    control.onChange = handler;
  };
  quiet(universe, [&] { universe.setText(std::to_string(target.universe)); });
  quiet(address, [&] { address.setText(givenAddress(target)); });
  protocol.setIndex(1 + static_cast<int>(target.protocol - protocols().data()));
  apply();
}

void OutputSetup::send(const OutputTarget& target) {
  output_.start(target);
  target_ = describe(target);
}

std::string OutputSetup::fault() const { return complaint_.empty() ? output_.error() : complaint_; }

void OutputSetup::refresh() {
  for (TextBox* box : {&universe, &address}) {
    if (box->look().enabled != (chosen() != nullptr)) box->setEnabled(chosen() != nullptr);
  }
  const std::string wrong = fault();
  const std::string now = !wrong.empty() ? wrong : target_.empty() ? "Nothing is sent." : target_;
  if (now != state.look().caption) state.setCaption(now);
}

}  // namespace korvane
