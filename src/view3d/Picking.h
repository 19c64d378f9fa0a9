// From pixels back to the scene.
#pragma once

#include <cstdint>
#include <optional>

#include "view3d/Routine3D.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// The window as it was when the drag began, moved so that the scene follows the pointer from (XDown, YDown) to
/// (XNow, YNow) at any zoom.
void SpostaFinestra(ViewState& view);

/// Another zoom that leaves the place under a pixel where it is. @param factor over 1 shows more; the zoom is held to
/// 0.001..100
void ZoomaVerso(ViewState& view, const PuntoPixel& place, double factor);

/// The place with z = 0 that is seen at a pixel in the straight projection; none in perspective or where the surface is
/// seen edge-on.
std::optional<Punto3D> SuperficieSotto(const ViewState& view, const PuntoPixel& pixel);

/// A cell of the curtain as it is asked for on the picture.
struct CellaVista {
  std::int32_t misura = 0;   ///< 1-based
  std::int32_t livello = 0;  ///< 1..10 from the surface
  float resistivita = 0;     ///< apparent, ohm m
  bool esclusa = false;      ///< the reading is excluded: its outline alone is seen
};

/// The cell that a pixel shows: of those with a reading that cover it the one that is painted last. Labels and lines
/// above the cells are left aside. Some 3 ms for 100,000 measurements.
std::optional<CellaVista> CellaSotto(const Scene& scene, const ViewState& view, const PuntoPixel& pixel);

}  // namespace corvan
