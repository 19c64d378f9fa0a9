// Writes a section as a unified data file (.ohm) for inversion toolkits: electrodes first, then readings between them.
#pragma once

#include <cstdint>

#include "base/File.h"
#include "base/Findings.h"
#include "export/Section.h"
#include "survey/Survey.h"

namespace corvan {

/// What the coordinates of an electrode are.
enum class ErtDimension : std::uint8_t {
  Two = 2,   ///< x along the section and z
  Three = 3  ///< easting, northing and z
};

/// Every firing brings its own electrodes, those that its readings need; z is 0 for all, since the cable floats.
/// Readings: numbers of A, B, M, N from 1, resistance (ohm), apparent resistivity (ohm m), voltage (V), current (A)
/// and, where the instrument stored both for every firing, relative error (a share) and chargeability (mV/V). A
/// deviation of 0 would weigh a reading infinitely: it takes the section's smallest one over 0, which is noted, as is
/// every reading that is left out. docs/formats.md tells the layout.
/// @throws FileError @throws RunTimeError when no reading is left
void SalvaDatiUnificati(FileWriter& out, const Survey& survey, const Section& section, ErtDimension dimension,
                        Findings& findings);

}  // namespace corvan
