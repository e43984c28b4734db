#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "generators/kit/EffectKind.h"

namespace korvane {

/// All kinds of effects. An effect's `type` is the place of its kind here.
std::span<const EffectKind* const> kinds();
/// The kind of a type; nullptr for a type that does not exist.
const EffectKind* kindOf(std::int16_t type);
/// The names of all kinds, for the type lists.
std::vector<std::string> kindNames();

/// What a type keeps of its record; empty for a type that does not exist.
const std::vector<EffectField>& effectFields(std::int16_t type);
/// Gives the arrays of every list their slots, whatever the type of the effect: two lists share an
/// array, two a count, and a record may become of another type. To be called wherever a count or an
/// array was set. Never shortens an array.
void fitLists(Effect& effect);

/// Copies the fields of the type `from.type` from one record to another; those of other types stay.
/// For a matrix, pictures are copied cell by cell in its size: kSubscript where one lacks a cell.
void copyEffectFields(const Effect& from, Effect& to, const Variablen* matrix = nullptr);

}  // namespace korvane
