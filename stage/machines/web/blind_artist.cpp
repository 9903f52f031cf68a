// Tools have no page to draw in.
#include "stage/machines/scripted/blind_artist.h"

std::unique_ptr<stage::Artist> stage::MakeArtist() { return std::make_unique<BlindArtist>(); }
