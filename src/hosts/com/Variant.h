#pragma once

#include <ole2.h>

namespace korvane {

/// A VARIANT that frees what it holds.
struct Variant : VARIANT {
  Variant() { VariantInit(this); }
  ~Variant() { VariantClear(this); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
};

}  // namespace korvane
