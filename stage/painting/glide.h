// Images that glide: they move by beats and are seen on their way at every refresh of the display.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "stage/forms/controls.h"
#include "stage/time/refreshes.h"

namespace stage {

/// A place in the units of a container's interior.
struct Place {
  Single Left = 0;
  Single Top = 0;
};

/// Shows an image on the way from where it was at the last beat to where it is now. Only the picture glides:
/// whoever asks the image where it is, is told where this beat has put it. A step much longer than the one
/// before, and longer than the image a few times over, is a jump, which is seen at once.
class Glide {
 public:
  /// While `held` gives a place the image is seen there, whatever beat it is.
  explicit Glide(Image& image, std::function<std::optional<Place>()> held = {});
  Glide(const Glide&) = delete;
  Glide& operator=(const Glide&) = delete;
  ~Glide();

  /// A beat comes; what moves the image now, moves it from here.
  void Beat();
  /// Shows the image as it is to be seen `since` the beat, in beats; a moment before the beat is negative.
  void Show(Double since);
  /// More is to be seen before the next beat.
  bool UnderWay() const { return under_way_; }

 private:
  TwipPoint Corner(const Place& place) const;
  TwipPoint Corner() const { return Corner({image_.Left.Get(), image_.Top.Get()}); }
  bool Jumps(TwipPoint to) const;

  Image& image_;
  std::function<std::optional<Place>()> held_;
  TwipPoint before_;  // two beats ago, in twips of the screen
  TwipPoint from_;    // at the last beat
  bool under_way_ = false;
};

/// All that glides on a stage, seen at the display's refreshes.
class GlideSet {
 public:
  explicit GlideSet(Platform& platform) : platform_(platform), refreshes_(platform) {}

  void Add(Glide& glide) { glides_.push_back(&glide); }
  void Remove(const Glide& glide) { std::erase(glides_, &glide); }

  /// To be called when time may have passed, before anything ticks.
  void Beat();
  /// Shows everything as it is to be seen at the last refresh.
  void Show();
  /// The next refresh if something glides as last shown, else a time that never comes.
  Moment NextRefresh() const;

 private:
  Platform& platform_;
  Refreshes refreshes_;
  std::vector<Glide*> glides_;
  Moment beat_{};
};

}  // namespace stage
