#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/Color.h"

namespace korvane {

// The formulas of the mix, over n contiguous bytes of the decks' frames a and b. m is the position,
// 0 deck A - 1 deck B. All sums are of 64-bit floats and never negative, so the conversion to an
// integer is their floor.

/// out = Int(A x (1 - m) + B x m)
void crossFade(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* out, std::size_t n,
               double m);
/// Through the colour c, which is reached at m = 0.5. n is a multiple of 3.
void fadeThrough(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* out, std::size_t n,
                 double m, const Rgb& c);
/// The arriving deck on top of the leaving one, full at the midpoint, clipped at 255.
void addFade(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* out, std::size_t n,
             double m);
/// The same formulas for one cell at a position outside 0 to 1, of the fade types that obey the
/// position. kOverflow for a component whose sum no byte holds; those before it are stored.
void mixOutside(std::int16_t fadeType, const Rgb& a, const Rgb& b, Rgb& out, double m,
                const Rgb& middle);
/// Each cell whole from b where its map value equals 1.0, else from a.
void selectByMap(const Rgb* a, const Rgb* b, const float* map, Rgb* out, std::size_t cells);

}  // namespace korvane
