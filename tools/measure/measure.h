// What korvane-measure can measure. Each prints what it found.
#pragma once

#include <span>

namespace measure {

/// The words after the verb.
using Words = std::span<char* const>;

/// How well timers keep their beats in the real window: "[SECONDS]".
void Beats(Words words);
/// How evenly the ball is seen to move: "[--window] [SECONDS]".
void Glide(Words words);
/// How soon a move of the hand is seen in the real window: "[COUNT]". Raises std::runtime_error if the
/// program was built without a hand.
void Hand(Words words);

}  // namespace measure
