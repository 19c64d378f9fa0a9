// The map's band: from above a vertical curtain shows its edge only, so the track is drawn in the colours of one level.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "picture/Canvas.h"
#include "picture/ColourScale.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// A band is wanted and takes the curtain's place: in the straight projection the whole curtain is at most a pixel
/// high on the picture.
bool MostraBanda(const Curtain& cells, const ViewState& view);

/// Width of the band, pixels.
std::int32_t LarghezzaBanda(const ViewState& view);

class MapBand {
 public:
  /// Lays out a piece for each measurement with a reading of the level: from half-way to the one before to half-way to
  /// the one behind, with a joint in common, so that bends leave no gaps. A line of one measurement is a square.
  void prepara(const Curtain& cells, const ViewState& view, const ColourScale& colours);
  void dipingi(Canvas& canvas) const;

  const std::vector<PixelQuad>& quads() const { return quads_; }
  /// Measurement of a piece, 1-based.
  std::size_t misura(std::size_t quad) const { return owner_[quad]; }

 private:
  std::vector<PixelQuad> quads_;
  std::vector<std::uint32_t> owner_;
  std::vector<DepthKey> order_;
};

}  // namespace corvan
