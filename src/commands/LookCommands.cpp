#include "commands/CommandError.h"
#include "commands/Console.h"
#include "commands/Describe.h"
#include "commands/Person.h"
#include "commands/Snapshot.h"
#include "commands/Values.h"
#include "platform/PictureBox.h"

namespace korvane {
namespace {

void forms(Console& console, const Arguments&, Json& reply) {
  Json all = Json::array();
  for (const Form* form : console.engine.desktop.forms()) {
    all.push_back({{"name", form->name()},
                   {"caption", form->caption()},
                   {"visible", form->visible()},
                   {"modal", form->modal()}});
  }
  reply["forms"] = std::move(all);
}

void get(Console& console, const Arguments& arguments, Json& reply) {
  const Target target = findTarget(console.engine, arguments.text(0));
  reply.update(target.control == nullptr ? describe(*target.form) : describe(*target.control));
}

void timers(Console& console, const Arguments&, Json& reply) {
  Json all = Json::object();
  for (const Timer* timer : console.engine.timers.timers())
    all[timer->name()] = {{"enabled", timer->enabled()}, {"interval", timer->interval()}};
  reply["timers"] = std::move(all);
}

void now(Console& console, const Arguments&, Json& reply) {
  reply["now"] = console.engine.timers.now();
}

const Frame& frameOf(const Variablen& v, const std::string& name) {
  const std::pair<const char*, const Frame*> frames[] = {
      {"A", &v.frameA},       {"B", &v.frameB},         {"M", &v.frameM},
      {"Sent", &v.frameSent}, {"WorkA", &v.frameWorkA}, {"WorkB", &v.frameWorkB}};
  for (const auto& [known, frame] : frames) {
    if (name == known) return *frame;
  }
  throw CommandError("The frame must be A, B, M, Sent, WorkA or WorkB, not " + inQuotes(name) +
                     ".");
}

void frame(Console& console, const Arguments& arguments, Json& reply) {
  const Frame& picture = frameOf(console.engine.v, arguments.text(0));
  reply["cols"] = std::max(picture.cols(), 0);
  reply["rows"] = std::max(picture.rows(), 0);
  reply["cells"] = rowsOf(picture.cols(), picture.rows(),
                          [&](int col, int row) { return hexColor(picture.at(col, row)); });
}

void fademap(Console& console, const Arguments&, Json& reply) {
  const Grid<float>& map = console.engine.v.fadeMap;
  reply["cells"] =
      rowsOf(map.cols(), map.rows(), [&](int col, int row) { return map.at(col, row); });
}

void map(Console& console, const Arguments&, Json& reply) {
  const Variablen& v = console.engine.v;
  const Grid<Boolean>& configured = v.cellConfigured;
  reply["cells"] = rowsOf(configured.cols(), configured.rows(),
                          [&](int col, int row) { return v.channelMap.at(col, row); });
  reply["configured"] = rowsOf(configured.cols(), configured.rows(), [&](int col, int row) {
    return static_cast<bool>(configured.at(col, row));
  });
}

void efx(Console& console, const Arguments& arguments, Json& reply) {
  const Deck& deck = deckOf(console.engine, arguments.text(0));
  const auto slot = static_cast<std::size_t>(arguments.index(1, "SLOT", deck.efx.size()));
  reply["record"] = toJson(deck.efx[slot]);
  reply["edited"] = slot < deck.efxEdited.size() && deck.efxEdited[slot];
}

void fade(Console& console, const Arguments& arguments, Json& reply) {
  const std::vector<FadeEntry>& fades = console.engine.v.efxX;
  const int slot = arguments.index(0, "SLOT", fades.size());
  reply["record"] = toJson(fades[static_cast<std::size_t>(slot)]);
}

Json scrollStrip(const Deck& deck) {
  const auto used = static_cast<std::size_t>(std::max<int>(deck.scrollLength, 0));
  const std::size_t length = std::min(used, deck.scrollStrip.size());
  if (length == 0) return Json::array();
  return rowsOf(static_cast<int>(length), 1, [&](int col, int) {
    return hexColor(deck.scrollStrip[static_cast<std::size_t>(col)]);
  });
}

/// The Ticker's strip with its last column and row: glyphs may paint there, and deck B reads them.
Json tickerStrip(const Deck& deck) {
  const Grid<Color>& cells = deck.tickerStrip;
  return rowsOf(cells.cols() + 1, cells.rows() + 1,
                [&](int col, int row) { return hexColor(cells.at(col, row)); });
}

void strip(Console& console, const Arguments& arguments, Json& reply) {
  Deck& deck = deckOf(console.engine, arguments.text(0));
  switch (deck.effect().type) {
    case kColorScroll:
      reply["cells"] = scrollStrip(deck);
      break;
    case kTicker:
      reply["cells"] = tickerStrip(deck);
      break;
    default:
      reply["cells"] = Json::array();
  }
}

void value(Console& console, const Arguments& arguments, Json& reply) {
  reply["value"] = sharedValue(console.engine.v, arguments.text(0));
}

/// The pixels of a picture box, or of a window that is one surface.
const Raster& pictureOf(const Console& console, const std::string& name, const char* command) {
  const Target target = findTarget(console.engine, name);
  if (target.control == nullptr && target.form->surface != nullptr)
    return target.form->surface->raster();
  return require<PictureBox>(target, command).raster();
}

void pixels(Console& console, const Arguments& arguments, Json& reply) {
  const Raster& picture = pictureOf(console, arguments.text(0), "pixels");
  reply["width"] = picture.width();
  reply["height"] = picture.height();
  reply["cells"] = rowsOf(picture.width(), picture.height(),
                          [&](int x, int y) { return hexColor(picture.pixel(x, y)); });
}

void snapshot(Console& console, const Arguments& arguments, Json&) {
  writeSnapshot(pictureOf(console, arguments.text(0), "snapshot"), arguments.text(1));
}

void calls(Console& console, const Arguments&, Json& reply) {
  Json all = Json::array();
  for (const HostCall& call : console.calls.all()) {
    if (call.kind == HostCall::Kind::UserInteraction)
      all.push_back(Json::array({"UserInteraction"}));
    else
      all.push_back(Json::array({"SetChannel", call.channel, call.value}));
  }
  console.calls.clear();
  reply["calls"] = std::move(all);
}

void boxes(Console& console, const Arguments&, Json& reply) {
  reply["boxes"] = std::exchange(console.platform.boxes, {});
}

constexpr Command kLookCommands[] = {
    {"forms", "", forms},      {"get", "NAME", get},
    {"timers", "", timers},    {"now", "", now},
    {"frame", "FRAME", frame}, {"fademap", "", fademap},
    {"map", "", map},          {"efx", "DECK SLOT", efx},
    {"fade", "SLOT", fade},    {"strip", "DECK", strip},
    {"value", "NAME", value},  {"pixels", "NAME", pixels},
    {"calls", "", calls},      {"snapshot", "NAME FILE", snapshot},
    {"boxes", "", boxes},
};

}  // namespace

std::span<const Command> lookCommands() { return kLookCommands; }

}  // namespace korvane
