// How a layer of resistivities opens in QGIS.
#pragma once

#include <string>

#include "picture/ColourScale.h"

namespace corvan {

/// A QML document that colours points by a column in classes of the scale; the outermost classes are open, as the scale
/// clamps what lies beyond its range. @param column of the layer
std::string StileQml(const std::string& column, const ColourScale& colours);

}  // namespace corvan
