// The external track of a run: reading it, connecting measurements to its fixes, the two links.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "input/TrackFile.h"
#include "session/BoxNumbers.h"
#include "session/Desk.h"
#include "survey/Survey.h"
#include "track/TrackLink.h"

namespace corvan {

/// The fix of a connection, and the seconds added to the instrument's clock: 120 years at most.
inline constexpr BoxNumber FixBox{"ptlbl_MouseDown", "fix"};
inline constexpr BoxNumber ClockBox{"LinkDataGPST", "clock offset", -4e9, 4e9};

class TrackDesk {
 public:
  /// States the zone of a survey that has none; see SurveyDesk.
  using SetZone = std::function<void(std::int16_t)>;

  TrackDesk(Desk desk, Survey& survey, SetZone setZone);

  /// Reads a track, its kind told by its content. An empty name does nothing; Cancel in a question leaves all as it
  /// was. @return true when another track is there
  bool leggi(const std::filesystem::path& file);
  /// Brings the track onto the grid of the survey.
  void allinea(const char* procedure);
  const std::string& nome() const { return name_; }

  /// Asks for the seconds to add to the measurements' times. @return none for Cancel or an answer that is refused
  std::optional<double> chiediOrologio();
  /// Gives every measurement the place and depth of the track at its own second.
  /// @param clockOffset seconds added to the measurements' times
  /// @return true when they have them: all that follows from positions must be derived anew
  bool collegaPerTempo(double clockOffset);
  /// Stretches the measurements between the two connections along the track, likewise.
  bool collegaPerPosizione();
  const std::optional<TimeLink>& timeLink() const { return timeLink_; }
  /// Takes the last link by time back to the one before it.
  void riprendi(const std::optional<TimeLink>& link) { timeLink_ = link; }

  /// A pick of a measurement: asks for the fix recorded there; the third pick clears both connections.
  void chiediConnessione(std::int32_t measurement);
  /// The same with the fix known; a number beyond the track's end takes its last one, which is a fault.
  void connetti(std::int32_t measurement, std::int32_t fix);
  std::int16_t NumCollegamenti() const { return numCollegamenti_; }
  const Collegamenti& connessioni() const { return collegamenti_; }
  void dimenticaConnessioni() { numCollegamenti_ = 0; }

  /// Another survey: its measurements are linked to nothing.
  void azzera();
  /// A link cannot be made while the track is not shown.
  void rilevaNascosta();

 private:
  bool leggiTraccia(const std::filesystem::path& file);
  bool chiediZona(const std::string& title);
  void ricampiona(TrackRead& read, const TrackOptions& options, const std::string& title);
  void prendi(Array1<PuntoGPSEst> fixes, const std::string& name);
  bool avanza(std::int32_t measurement);

  Desk desk_;
  Survey& survey_;
  SetZone setZone_;
  std::string name_;  ///< file of the track
  std::int16_t numCollegamenti_ = 0;
  Collegamenti collegamenti_;
  std::optional<TimeLink> timeLink_;
};

}  // namespace corvan
