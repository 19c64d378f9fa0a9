// A profile along a section and the depth under a place on it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace corvan {

/// One point of a profile.
struct ProfilePoint {
  double est = 0;       ///< easting, m
  double nord = 0;      ///< northing, m
  double prof = 0;      ///< depth, m, positive
  double distanza = 0;  ///< distance along the section from its first point, m; never less than the point before
};

/// Points Primo..Ultimo of a section, indexed by their measurement numbers.
class Profile {
 public:
  Profile() = default;
  Profile(std::int32_t first, std::int32_t last)
      : first_(first), last_(last), points_(last < first ? 0 : static_cast<std::size_t>(last - first) + 1) {}

  std::int32_t Primo() const { return first_; }
  std::int32_t Ultimo() const { return last_; }
  ProfilePoint& operator()(std::int32_t p) { return points_.at(static_cast<std::size_t>(p - first_)); }
  const ProfilePoint& operator()(std::int32_t p) const { return points_.at(static_cast<std::size_t>(p - first_)); }

 private:
  std::int32_t first_ = 1;
  std::int32_t last_ = 0;
  std::vector<ProfilePoint> points_;
};

/// Depth at a distance along the section: that of the first point of Primo..Ultimo at or beyond |Distanza|, of the
/// last one when all lie before it, of Primo when Distanza is negative; 0 when Primo is greater than Ultimo. A step
/// look-up without interpolation, by binary search, since distances along a section never decrease.
/// @throws RunTimeError when the depth has no single-precision form
float AssegnaZ(const Profile& Tabella, std::int32_t Primo, std::int32_t Ultimo, double Distanza);

}  // namespace corvan
