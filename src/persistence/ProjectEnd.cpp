#include <variant>

#include "generators/Effects.h"
#include "persistence/ProjectFile.h"
#include "persistence/RecordLines.h"
#include "platform/Failure.h"
#include "platform/Text.h"

namespace korvane {
namespace {

void skip(LineReader& in, std::int64_t lines) {
  for (; lines > 0; --lines) in.skip();
}

std::int16_t number(LineReader& in) {
  std::int16_t value = 0;
  in.take(value);
  return value;
}

// Passes over the lines of a field, whatever they hold.
struct FieldSkipper {
  LineReader& in;

  template <class Value>
  void operator()(Value Effect::*) const {
    in.skip();
  }
  void operator()(Grid<Color> Effect::*) const {
    std::string size;
    in.take(size);
    const std::vector<std::string> sides = split(size, ',');
    if (sides.size() < 2) in.fail(kSubscript, "the size of a picture needs two numbers");
    skip(in, std::int64_t{in.integer16(sides[0])} * in.integer16(sides[1]));
  }
  void operator()(const ItemList& list) const {
    skip(in, number(in) * static_cast<std::int64_t>(list.columns.size()));
  }
};

void skipEffects(LineReader& in, std::int16_t rows) {
  for (; rows > 0; --rows) {
    in.skip();
    Boolean edited;
    in.take(edited);
    if (!edited) continue;
    const std::vector<EffectField>& fields = effectFields(number(in));
    if (!fields.empty()) in.skip();
    for (const EffectField& field : fields) std::visit(FieldSkipper{in}, field.value);
  }
}

void skipLists(LineReader& in) {
  in.skip();  // the master's position
  const std::int16_t a = number(in), b = number(in), x = number(in);
  for (int selection = 0; selection < 3; ++selection) number(in);
  skipEffects(in, a);
  skipEffects(in, b);
  skip(in, x * static_cast<std::int64_t>(1 + fadeFields().size()));
}

}  // namespace

bool projectEndsEarly(const std::string& path, Disk& disk) {
  bool ours = false;
  try {
    LineReader in(path, {}, disk);
    if (in.size() == 0) return true;
    std::string version;
    in.skip();
    in.take(version);
    ours = version == kProjectVersion;
    if (ours) skipLists(in);
    return false;
  } catch (const Failure& failure) {
    return ours && failure.number == kPastEndOfFile;
  }
}

}  // namespace korvane
