// What effects look like. Lengths without a unit are pixels of the design resolution.
#pragma once

#include "stage/painting/effects.h"

namespace stage::look {

using std::chrono::milliseconds;

/// The image's area, which is gone, stays bright for two refreshes and fades in 130 ms; four sparks in its
/// colour fly from the point of it that is nearest to `source`.
Effect Burst(const Image& image, TwipPoint source);
/// A light runs along the rim in 100 ms.
Effect Glint(const Image& image);
/// A light runs over the face in 150 ms.
Effect Shimmer(const Image& image);
/// The area lights up and fades.
Effect Flash(const Image& image, Pixel colour, Moment length);
/// The image's shape lights up and fades, wherever the image goes.
Effect Glow(const Image& image, Pixel colour, Moment length);
/// What the image looks like now fades while it moves on by `way`, in twips, ever slower.
Effect Ghostly(const Image& image, Moment length, TwipPoint way = {});
/// What `plate` looks like now is drawn into `into` and flattened in 120 ms.
Effect Collapse(const Image& plate, const Image& into);
/// The area, in twips of the screen, lights up and fades in 100 ms.
Effect Line(const TwipRect& area, Pixel colour);
/// The image fades in after a while.
Effect Appear(Moment after, Moment length);
/// The image is seen in part.
Effect Dim(Pixel opacity);
/// Three chevrons rise above the image once a second, from `after` on.
Effect Chevrons(const Image& image, Moment after);

}  // namespace stage::look
