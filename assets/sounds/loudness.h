// How loud a sound is to the ear.
#pragma once

#include "assets/sounds/wave.h"

namespace sons {

/// Loudness units below full scale (so negative) of the loudest tenth of a second, weighted by frequency as
/// ITU-R BS.1770 does: a full-scale tone of 1 kHz has -3. A shorter sound counts with the silence after it.
/// The loudness of silence is minus infinity.
double Loudness(Wave wave);

}  // namespace sons
