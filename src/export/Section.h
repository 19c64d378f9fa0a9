// A section of the survey turned into the records of a synthetic resistivity line.
#pragma once

#include <cstdint>

#include "base/Findings.h"
#include "base/Position.h"
#include "survey/Quadrupole.h"
#include "survey/Survey.h"
#include "track/Profile.h"

namespace corvan {

/// How true positions are found.
enum class TruePosition {
  AsStored,    ///< the stored position is the true one
  BehindBoat,  ///< moved back along the direction of travel by the cable's lag behind the boat's GPS
  ExternalGps  ///< the stored position, linked to an external track, is the true one
};

struct SectionRequest {
  std::int32_t E1 = 1;    ///< first measurement, 1-based, not greater than E2
  std::int32_t E2 = 1;    ///< last measurement
  double OffsetCavo = 0;  ///< distance of the first floating electrode from the instrument, m
  double OffsetEco = 0;   ///< distance of the echo sounder from the instrument, m
  TruePosition position = TruePosition::AsStored;
  bool echoSounder = false;  ///< electrodes get the water depth as z, and the profile of true positions is made
};

struct Section {
  std::int32_t E1 = 1;
  std::int32_t E2 = 1;
  std::int32_t points = 0;   ///< points that gave records
  double Passo = 0;          ///< electrode spacing, m
  double Lunghezza = 0;      ///< of the cable from its head to its tail, m
  double OffsetCavo = 0;     ///< as asked for, m
  double OffsetEco = 0;      ///< likewise
  Profile Profilo;           ///< stored positions and depths
  Profile ProfiloVero;       ///< true positions and the depths under the cable; made for the echo sounder
  GridZone griglia;          ///< the grid of all its positions
  double altezza = 1;        ///< height of a level of the curtain, m
  SectionRecords RecordOut;  ///< ten records a point

  std::int32_t NqpBin() const { return 10 * points; }
};

/// Extracts the section E1..E2 with all that its writers need. Positions interpolated in degrees are projected anew
/// from there. Measurements that are left out give no records; those without a position repeat the place of the kept
/// one before them, which is a fault. Without any kept point there are no records and the profiles are empty. The true
/// positions are written back to Deriv(3) and Deriv(4) for tables of the survey; nothing here reads them.
/// Errors: a failing step (an electrode spacing of 0, a reading that is not finite) leaves its target 0 and is noted.
Section EstraiSezione(Survey& survey, const SectionRequest& request, Findings& findings);

}  // namespace corvan
