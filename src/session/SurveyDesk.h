// The survey of a run: the files it is read from, filter, cable, zone, colours and depths.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "geo/ZoneConstants.h"
#include "input/FileRead.h"
#include "session/BoxNumbers.h"
#include "session/ColourDesk.h"
#include "session/Desk.h"
#include "session/Panels.h"
#include "session/QualityDesk.h"
#include "survey/Survey.h"
#include "track/TrackAnalysis.h"

namespace corvan {

class SurveyDesk {
 public:
  static constexpr std::int16_t DefaultZone = 32;

  explicit SurveyDesk(Desk desk);

  InputPanel FrameFileIn;

  Survey& dati() { return survey_; }
  const Survey& dati() const { return survey_; }
  const TrackResult& fixes() const { return fixes_; }
  const ColourScale& colours() const { return colori_.scale(); }
  ColourDesk& colori() { return colori_; }
  const ColourDesk& colori() const { return colori_; }
  QualityDesk& qualita() { return qualita_; }
  const QualityDesk& qualita() const { return qualita_; }
  /// The line of information on the picture.
  const std::string& info() const { return info_; }
  /// It warns: the user shall see it.
  bool avvisa() const { return warns_; }

  void azzera();  ///< settings, zone and boxes back to those of the start
  /// Reads the panel's files, in their order, and analyses what they hold. Where nothing could be read the survey that
  /// was there stays, which is a fault.
  /// @return false when it stays
  bool leggi();
  void analizza();  ///< derives all that follows from the readings and their positions
  void rifai();     ///< the same, and the cells that show it
  /// The last reading asked for the columns, or for the spacing, of a column text.
  bool colonneChieste() const { return columnsUsed_; }
  bool passoChiesto() const { return spacingUsed_; }
  void scartaTutto();  ///< linked to an empty track: every measurement is left out, until the next analysis

  void chiediCavo();  ///< "Set Cable Configuration"
  /// @param text tokens by turns name and place, m. One that cannot be read changes nothing and is a fault.
  void impostaCavo(const std::string& text);
  void chiediZona();  ///< "Set UTM Zone": an empty answer sets zone 32, Cancel changes nothing
  /// States the zone of what was read without one and converts the rest into it. Beyond 1..60 the nearest is used.
  void impostaZona(std::int16_t zone);
  /// The zone of a survey that has none yet: nothing is converted.
  void dichiaraZona(std::int16_t zone);

  void chiediProfondita(std::int32_t index);  ///< asks whether to correct a measurement's depth
  /// The depth of a measurement becomes the mean of its neighbours', at an end that of the only one.
  void correggiProfondita(std::int32_t index);

 private:
  ReadOptions opzioni() const;
  Survey leggiTutti();
  void leggiFile(Survey& survey, const ReadOptions& options);
  std::string chiediColonne(const std::string& title);
  std::optional<double> chiediPasso(const std::string& title, bool whole);
  void prendi(Survey survey);
  void stabilisciGriglia();
  void segnaZona(std::int16_t zone);
  std::string chiarisciZona() const;
  float profonditaDaiVicini(std::size_t k) const;
  void rilevaLettura();
  void mostraQualita();
  void rilevaGettoni(const std::string& cable);
  void rilevaElettrodiPropri();
  void rilevaPosizioni();

  Desk desk_;
  Survey survey_;
  ZoneConstants zona_;
  TrackResult fixes_;
  ColourDesk colori_{desk_, survey_};
  QualityDesk qualita_{desk_, survey_, [this] { mostraQualita(); }};
  std::string info_;
  bool warns_ = false;
  bool columnsUsed_ = false, spacingUsed_ = false;
};

}  // namespace corvan
