// The UTM zone of a survey.
#pragma once

#include <cstdint>

namespace corvan {

/// Zone of a longitude in degrees; outside -180..180 it is taken as DDDMM.
/// @throws RunTimeError when the zone has no 16-bit form
std::int16_t SelezionaZonaUTM(float x);

}  // namespace corvan
