#include "state/EffectFields.h"

namespace korvane {

const std::vector<FadeField>& fadeFields() {
  using F = FadeEntry;
  static const std::vector<FadeField> fields = {
      {"type", &F::type}, {"name", &F::name}, {"time", &F::time}, {"color", &F::color}};
  return fields;
}

}  // namespace korvane
