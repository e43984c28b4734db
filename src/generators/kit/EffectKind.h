#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "generators/kit/EffectDialog.h"
#include "state/EffectFields.h"
#include "state/Engine.h"

namespace korvane {

/// What made an effect start.
enum class StartCause {
  TypeChanged,  ///< the type list, and the record was of another type
  TypeChosen,   ///< the type list, and the record had this type already
  RowSelected   ///< a click on a row of the effect list
};

inline bool byTypeList(StartCause cause) { return cause != StartCause::RowSelected; }

/// A part of a kind that must be given: a kind that leaves it out does not compile.
template <class T>
class Given {
 public:
  constexpr Given(T value) : value_(value) {}  // NOLINT(google-explicit-constructor): as if bare
  Given(std::nullptr_t) = delete;              // NOLINT(google-explicit-constructor)
  constexpr operator T() const { return value_; }  // NOLINT(google-explicit-constructor)

 private:
  T value_;
};

/// What becomes of an open dialog when another effect is edited, and at `Closeall`.
enum class OnEdit { CommittedFirst, StaysOpen };
enum class AtCloseall { Hidden, StaysOpen };

/// How a kind's dialog is made, and found among the windows.
struct KindOfDialog {
  std::unique_ptr<EffectDialog> (*make)(Engine&);
  EffectDialog* (*find)(const Engine&);
};

template <class Dialog>
constexpr KindOfDialog kindOfDialog() {
  return {[](Engine& engine) -> std::unique_ptr<EffectDialog> {
            return std::make_unique<Dialog>(engine);
          },
          [](const Engine& engine) -> EffectDialog* { return engine.desktop.find<Dialog>(); }};
}

/// All that the rest of the system asks of a kind of effect.
struct EffectKind {
  using Step = void (*)(Engine&, Deck&);

  Given<const char*> name;  ///< in the type lists
  /// What the kind keeps of its record beyond `type` and `name`, in the order of its file block.
  Given<const std::vector<EffectField>& (*)()> fields;
  Given<Step> defaults;  ///< the fields that a record gets when it becomes of the kind
  Given<void (*)(Engine&, Deck&, StartCause)> start;  ///< the deck's timers are stopped
  Given<Step> tick;          ///< of the step timer, which is off; one that goes on turns it on
  Given<Step> sequenceTick;  ///< the same of the sequence timer
  Given<Step> beat;          ///< of the host, while the deck follows it and none is locked out
  Given<void (*)(Deck&, const Effect&)> loaded;         ///< a record of the kind came from a file
  Given<void (*)(const Engine&, Effect&)> gridChanged;  ///< the matrix has another size
  Given<OnEdit> onEdit;
  Given<AtCloseall> atCloseall;
  Given<KindOfDialog> dialog;
};

/// The dialog of a kind; nullptr if its window was never made.
inline EffectDialog* dialogOf(const Engine& engine, const EffectKind& kind) {
  return KindOfDialog(kind.dialog).find(engine);
}

// For a kind that has nothing to do there.
inline void nothing(Engine&, Deck&) {}
inline void nothingLoaded(Deck&, const Effect&) {}
inline void anyGrid(const Engine&, Effect&) {}

/// A tick of an effect that runs on by itself. The timer is turned on last, so that a slow tick
/// never piles up.
template <EffectKind::Step step>
void steadily(Engine& engine, Deck& deck) {
  step(engine, deck);
  deck.timer1.enable();
}

/// A beat that makes a step. While the sequence timer runs, beats are dropped.
template <EffectKind::Step step>
void onBeat(Engine& engine, Deck& deck) {
  deck.timer2.enable();
  step(engine, deck);
}

}  // namespace korvane
