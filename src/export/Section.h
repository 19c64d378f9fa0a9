// A section of the survey turned into the records of a synthetic resistivity line.
#pragma once

#include <cstdint>
#include <optional>

#include "base/Findings.h"
#include "base/Position.h"
#include "survey/Quadrupole.h"
#include "survey/Survey.h"
#include "track/Profile.h"
#include "track/SailedLines.h"

namespace corvan {

/// How true positions are found.
enum class TruePosition {
  AsStored,    ///< the stored position is the true one
  BehindBoat,  ///< moved back along the direction of travel by the cable's lag behind the boat's GPS
  ExternalGps  ///< the stored position, linked to an external track, is the true one
};

/// How the cable is taken to lie behind the boat.
enum class CableShape {
  /// Stretched along the straight line of the section, its electrodes on the grid of the electrode spacing.
  Straight,
  /// Every electrode on the sailed path, as far behind the antenna along the path as it is along the cable: an
  /// electrode passes where the boat passed before it. That holds for a cable that is towed slowly, without slack and
  /// without a current or wind across; nothing here corrects for drift, or for a cable that cuts the inside of a turn.
  /// What lies before the boat's first position gets distances below 0 on the first course prolonged, as the U.S.
  /// Geological Survey places it (Open-File Report 2005-1306, metadata of the extended track lines).
  AlongTrack
};

struct SectionRequest {
  std::int32_t E1 = 1;    ///< first measurement, 1-based, not greater than E2
  std::int32_t E2 = 1;    ///< last measurement
  double OffsetCavo = 0;  ///< distance of the first floating electrode from the instrument, m
  double OffsetEco = 0;   ///< distance of the echo sounder from the instrument, m
  TruePosition position = TruePosition::AsStored;
  bool echoSounder = false;  ///< electrodes get the water depth as z, and the profile of true positions is made
  CableShape shape = CableShape::Straight;
  /// Window over which the sailed path is smoothed, m; none: an electrode spacing.
  std::optional<double> smoothing = std::nullopt;
};

struct Section {
  std::int32_t E1 = 1;
  std::int32_t E2 = 1;
  std::int32_t points = 0;   ///< points that gave records
  double Passo = 0;          ///< electrode spacing, m
  double Lunghezza = 0;      ///< of the cable from its head to its tail, m
  double OffsetCavo = 0;     ///< as asked for, m
  double OffsetEco = 0;      ///< likewise
  Profile Profilo;           ///< stored positions and depths; along the track distances are path lengths
  Profile ProfiloVero;       ///< true positions and the depths under the cable; made for the echo sounder
  GridZone griglia;          ///< the grid of all its positions
  double altezza = 1;        ///< height of a level of the curtain, m
  SectionRecords RecordOut;  ///< ten records a point

  /// As asked for; along the track with the paths that the electrodes lie on.
  CableShape shape = CableShape::Straight;
  SailedLines lines;

  std::int32_t NqpBin() const { return 10 * points; }
};

/// Extracts the section E1..E2 with all that its writers need. With the cable along the track, x is the path length
/// from the section's first kept point (electrodes behind it lie below 0), the depth under an electrode that at its own
/// path length, and the true position, whether or not it is asked to lie behind the boat, the place on the path of the
/// current dipole's middle; external positions stay true as they stand. Positions interpolated in degrees are projected
/// anew from there. Measurements that are left out give no records; those without a position repeat the place of the
/// kept one before them, which is a fault. Without any kept point there are no records and the profiles are empty. The
/// true positions are written back to Deriv(3) and Deriv(4) for tables of the survey; nothing here reads them. Notes:
/// how far straight cable and sailed track differ where that is over half a spacing; along the track what lies on a
/// prolonged course, what the path passes over and how many files it is made of. A line without any direction is a
/// fault there, since its cable can only be guessed.
/// Errors: a failing step (an electrode spacing of 0, a reading that is not finite) leaves its target 0 and is noted.
Section EstraiSezione(Survey& survey, const SectionRequest& request, Findings& findings);

}  // namespace corvan
