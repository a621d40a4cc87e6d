#pragma once

#include <vector>

/// The shapes of the sounds, each a wave of any height over the time since its beginning.
namespace mimkins::waves {

/// A bubble that bursts: a tone that rises quickly and is gone.
double pop(double seconds);
/// A cat: low pulses, of which each is a little hum.
double purr(double seconds);
/// A small piece of metal: high partials that don't fit together.
double tink(double seconds);
/// A struck glass: the first modes of a thin bowl.
double glass(double seconds);
/// Two croaks: a fast train of pulses, each of which makes two hollows of the body ring.
double frog(double seconds);
/// Breath over the neck of a bottle: one low tone that comes slowly, and air.
double bottle(double seconds);
/// A bell that says one thing: nearly a pure tone.
double ping(double seconds);

} // namespace mimkins::waves
