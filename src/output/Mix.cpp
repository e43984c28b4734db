#include "output/Mix.h"

#include <algorithm>
#include <string>

#include "platform/Failure.h"
#include "state/Effect.h"

namespace korvane {
namespace {

using Byte = std::uint8_t;

// The sums in the order of their formulas, for any position.
double crossed(double a, double b, double m) { return a * (1 - m) + b * m; }

double through(double a, double b, double m, double c) {
  const double f = m > 0.5 ? (m - 0.5) * 2 : m * 2;
  return m > 0.5 ? f * b + (1 - f) * c : a * (1 - f) + f * c;
}

double added(double a, double b, double m) {
  const double i = 1 - m;
  return std::min(m > 0.5 ? a * i + a * i + b : b * m + b * m + a, 255.0);
}

Byte floorByte(double sum) { return static_cast<Byte>(static_cast<int>(sum)); }

}  // namespace

void crossFade(const Byte* __restrict a, const Byte* __restrict b, Byte* __restrict out,
               std::size_t n, double m) {
  const double i = 1 - m;
  for (std::size_t k = 0; k < n; ++k) out[k] = floorByte(a[k] * i + b[k] * m);
}

void fadeThrough(const Byte* __restrict a, const Byte* __restrict b, Byte* __restrict out,
                 std::size_t n, double m, const Rgb& c) {
  const bool arriving = m > 0.5;
  const double f = arriving ? (m - 0.5) * 2 : m * 2;
  const Byte* __restrict deck = arriving ? b : a;
  const double deckShare = arriving ? f : 1 - f;
  const double colorShare = arriving ? 1 - f : f;
  const double red = colorShare * c[0];
  const double green = colorShare * c[1];
  const double blue = colorShare * c[2];
  for (std::size_t k = 0; k < n; k += 3) {
    out[k] = floorByte(deck[k] * deckShare + red);
    out[k + 1] = floorByte(deck[k + 1] * deckShare + green);
    out[k + 2] = floorByte(deck[k + 2] * deckShare + blue);
  }
}

void addFade(const Byte* __restrict a, const Byte* __restrict b, Byte* __restrict out,
             std::size_t n, double m) {
  const bool arriving = m > 0.5;
  const double share = arriving ? 1 - m : m;
  const Byte* __restrict part = arriving ? a : b;
  const Byte* __restrict whole = arriving ? b : a;
  for (std::size_t k = 0; k < n; ++k) {
    const int v = static_cast<int>(part[k] * share + part[k] * share + whole[k]);
    out[k] = static_cast<Byte>(std::min(v, 255));
  }
}

void mixOutside(std::int16_t fadeType, const Rgb& a, const Rgb& b, Rgb& out, double m,
                const Rgb& middle) {
  for (std::size_t i = 0; i < out.size(); ++i) {
    const double sum = fadeType == kCrossFade ? crossed(a[i], b[i], m)
                       : fadeType == kAdd     ? added(a[i], b[i], m)
                                              : through(a[i], b[i], m, middle[i]);
    const bool fits = sum >= 0 && sum < 256;
    if (!fits) throw Failure(kOverflow, "master position " + std::to_string(m));
    out[i] = floorByte(sum);
  }
}

void selectByMap(const Rgb* a, const Rgb* b, const float* map, Rgb* out, std::size_t cells) {
  for (std::size_t k = 0; k < cells; ++k) out[k] = map[k] == 1.0F ? b[k] : a[k];
}

}  // namespace korvane
