// Places on the UTM plane and their straight-line distance.
#pragma once

namespace corvan {

/// A place in the plane, m.
struct PlanPoint {
  double est = 0;
  double nord = 0;
};

/// Distance between two points of the UTM plane.
/// @param x1,y1,x2,y2 easting and northing in metres, both points in the same zone
/// @return metres, never negative; the distance in the projection, up to 0.04 % shorter than on the ground at the
/// central meridian
double dist(double x1, double y1, double x2, double y2);

}  // namespace corvan
