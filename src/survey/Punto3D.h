// A point of the scene.
#pragma once

namespace corvan {

/// x east, y north, z upwards (all m, relative to the scene's origin); w is a value carried along by every transform.
struct Punto3D {
  float x = 0;
  float y = 0;
  float z = 0;
  float w = 0;
};

}  // namespace corvan
