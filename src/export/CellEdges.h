// How far the cells of a section's point reach towards its neighbours.
#pragma once

#include "geo/Plane.h"
#include "survey/Quadrupole.h"

namespace corvan {

/// The two upright edges of a point's cells, on the section's grid.
struct CellEdges {
  PlanPoint before;
  PlanPoint behind;
};

/// Half-way to the neighbours of the same line, its own true place where there is none; a point without any reaches
/// half an electrode spacing to west and east.
/// @param before,behind the placed points next to it; nullptr at the section's ends
/// @param spacing of the electrodes, m; 1 is taken where it is 0
CellEdges BordiDiCella(const SectionPoint& own, const SectionPoint* before, const SectionPoint* behind, double spacing);

}  // namespace corvan
