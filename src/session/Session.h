// The whole state of a run and every command of the program, without a toolkit.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Dialogs.h"
#include "base/Findings.h"
#include "base/OleDate.h"
#include "export/KmlGoogle.h"
#include "export/OutputFiles.h"
#include "export/Section.h"
#include "geo/ZoneConstants.h"
#include "input/FileRead.h"
#include "input/Originals.h"
#include "picture/ColourScale.h"
#include "session/Panels.h"
#include "survey/Survey.h"
#include "track/TrackAnalysis.h"
#include "track/TrackLink.h"
#include "view3d/Renderer.h"
#include "view3d/Scene.h"
#include "view3d/ViewState.h"

namespace corvan {

/// What the last extraction gave.
struct SectionSummary {
  std::int32_t from = 0;
  std::int32_t to = 0;
  std::int32_t points = 0;
  std::int32_t records = 0;
};

inline constexpr int EnterKey = 13;

/// Asked for a log without a date.
inline constexpr const char* DomandaData = "Date of the first fix (yyyy-mm-dd)";

enum class MouseButton { Left, Right };

/// The mouse on the picture, in its pixels.
struct MouseEvent {
  MouseButton button = MouseButton::Left;
  bool shift = false;
  bool ctrl = false;
  std::int32_t x = 0;
  std::int32_t y = 0;
};

/// What the pressed mouse is doing on the picture.
enum class Dragging { Nothing, Rotation, Zoom, Move, Marker, Label, Cable };

/// Window and command line own one Session each and turn every control or option into one of its commands. Commands
/// trap their own errors: what went wrong is in findings(), what the user must hear goes through Dialogs.
class Session {
 public:
  using Clock = std::function<DateTime()>;

  /// @param dialogs must outlive the session
  /// @param clock the local date and time, for the header of binary files
  Session(Dialogs& dialogs, Clock clock);

  // The panels, read and set by whoever shows them.
  InputPanel FrameFileIn;
  OutputPanel FrameFileOut;
  ExtremaPanel FrameExtrema;
  TranslationPanel FrameDataMove;
  ViewPanel FrameView;
  InfoLabel InfoLbl;

  const Survey& survey() const { return survey_; }
  const TrackResult& fixes() const { return fixes_; }
  const ColourRange& colours() const { return colours_; }
  const ViewState& view() const { return view_; }
  const Scene& scene() const { return scene_; }
  const Findings& findings() const { return findings_; }
  /// Takes what a front end has to say about a command of its own user.
  void annota(const char* procedure, std::string reason) { findings_.note(procedure, std::move(reason)); }
  const std::vector<std::filesystem::path>& outputs() const { return outputs_.written(); }
  const std::optional<SectionSummary>& section() const { return section_; }
  /// 0 no extreme chosen, 1 the first, 2 both.
  std::int16_t StatoSelezione() const { return statoSelezione_; }

  // Reading.
  void Form_Load();              ///< settings and labels back to their defaults
  void LoadFiles_Click();        ///< shows "File In"
  void CancCmd_Click();          ///< hides it
  void ConvertAsciiCmd_Click();  ///< "Read File": reads the selected files and runs the whole chain

  // Cable, zone and colours.
  void CableConf_Click();   ///< "Set Cable Configuration"
  void SetUtmZone_Click();  ///< "Set UTM Zone"; an empty answer sets zone 32
  void SetRange_Click();    ///< "Set Colour Scale Range"

  // The two extremes of the section.
  /// A click on a measurement: the first and second choose the extremes, the third clears both.
  /// @param Index 1-based; an index that is no measurement is ignored and noted
  void ptlbl_Click(std::int32_t Index);
  void E1Txt_KeyPress(int key);
  void E2txt_KeyPress(int key);
  void SelFirst_Click();
  void SelectLast_Click();
  /// Asks whether to replace the depth of a measurement by the mean of its neighbours'.
  void dptlbl_DblClick(std::int32_t Index);

  // Translations of the view, m.
  void EmCmd_Click() { spostaDati(-Step, 0.0); }
  void EpCmd_Click() { spostaDati(Step, 0.0); }
  void NmCmd_Click() { spostaDati(0.0, -Step); }
  void NpCmd_Click() { spostaDati(0.0, Step); }
  void TestTxt_KeyPress(int key);
  void TnordTxt_KeyPress(int key);
  void DEmCmd_Click() { spostaFondo(survey_.settings.TraslFondoEst, -Step); }
  void DEpCmd_Click() { spostaFondo(survey_.settings.TraslFondoEst, Step); }
  void DNmCmd_Click() { spostaFondo(survey_.settings.TraslFondoNord, -Step); }
  void DNpCmd_Click() { spostaFondo(survey_.settings.TraslFondoNord, Step); }
  void DTestTxt_KeyPress(int key);
  void DTnordTxt_KeyPress(int key);

  // The view.
  /// Paints from now on on this canvas, which must outlive its use: takes over its size and repaints. None: the session
  /// paints no more.
  void Form_Resize(Canvas* canvas);
  void DisegnaImmagineQ();  ///< repaints the picture
  void Thetatxt_KeyPress(int key);
  void Phitxt_KeyPress(int key);
  void GammaTxt_KeyPress(int key);
  void Zoomtxt_KeyPress(int key);
  void LeftThetacmd_Click() { ruota(view_.AngoloVista, -1.0, FrameView.Thetatxt); }
  void RightThetacmd_Click() { ruota(view_.AngoloVista, 1.0, FrameView.Thetatxt); }
  void LeftPhicmd_Click() { ruota(view_.AngoloPhi, -1.0, FrameView.Phitxt); }
  void RightPhicmd_Click() { ruota(view_.AngoloPhi, 1.0, FrameView.Phitxt); }
  void LeftGammaCmd_Click() { ruota(view_.AngoloGamma, -1.0, FrameView.GammaTxt); }
  void RightGammaCmd_Click() { ruota(view_.AngoloGamma, 1.0, FrameView.GammaTxt); }
  void MaxZoomcmd_Click();
  void MinZoomcmd_Click();
  void Oopt_Click() { scegliProiezione(Projection::Orthographic); }
  void Popt_Click() { scegliProiezione(Projection::Perspective); }
  void Mopt_Click();        ///< "Map view (top view)"
  void TopViewCmd_Click();  ///< "Reset Top View [ Zoom = 1 ]"; phi stays
  void ResCmd_Click();      ///< back to the centre of the data
  void SHelectrodes_Click();
  void SH2ndGps_Click();
  void SHdepth_Click();
  void SHcolour_Click();
  void SHNord_Click();
  void SHInfoLabel_Click();
  void SHtranslation_Click() { view_.MostraTraslazione = !view_.MostraTraslazione; }
  void SaveCmd_Click();  ///< "Save Current Picture": img0.bmp in the current folder

  // The mouse on the picture. A label under the pointer takes the press; else the picture does.
  void CoordPic_MouseDown(const MouseEvent& mouse);
  void CoordPic_MouseMove(const MouseEvent& mouse);
  void CoordPic_MouseUp(const MouseEvent& mouse);
  void CoordPic_DblClick(const MouseEvent& mouse);
  Dragging dragging() const { return dragging_; }
  /// What the label under a pixel stands for: its tool tip. Empty where there is none.
  std::string Suggerimento(std::int32_t x, std::int32_t y) const;
  /// The measurement whose label lies under a pixel.
  std::optional<std::int32_t> MisuraSotto(std::int32_t x, std::int32_t y) const;
  /// Easting and northing of the place on the water's surface under a pixel, m. None in perspective, for an empty
  /// survey and where the surface is seen edge-on.
  std::optional<std::pair<double, double>> PostoSotto(std::int32_t x, std::int32_t y) const;

  // The external track.
  /// Reads a track with the reader that its name calls for and shows it; an empty name does nothing.
  void LeggiGPSEsterno(const std::filesystem::path& fileName);
  /// "Link Data to External GPS by Time". @param clockOffset seconds added to the measurements' times
  void LinkDataGPST(double clockOffset = 0.0);
  void LinkDataGPSP();  ///< "Link Data to External GPS by Pos."
  /// A pick of a measurement for the link by position asks for the fix recorded there; the third pick clears both.
  void ptlbl_Collega(std::int32_t Index);
  /// A click on a fix chooses the nearest measurement as an extreme.
  void gpslbl_Click(std::int32_t Index);
  const std::optional<TimeLink>& timeLink() const { return timeLink_; }
  std::int16_t NumCollegamenti() const { return numCollegamenti_; }

  // Writing.
  void SaveFileOut_Click();     ///< shows "File Out" with .BIN ticked
  void SaveFileOutTxt_Click();  ///< with .TXT ticked
  void SaveEcho_Click();        ///< with .ECS ticked
  void SaveOutCmd_Click();      ///< ">> Save File Out <<"
  void SalvaEstrattoFile();     ///< extracts the section and writes the ticked formats
  void SalvaTabella();          ///< writes the whole survey as ROOT.csv
  /// Writes a picture. @param compose puts it into the bytes of its format
  void SalvaImmagine(const std::filesystem::path& name, const std::function<std::string()>& compose);

 private:
  static constexpr double Step = 0.1;

  void BatOperation();
  void AnalisiFile();
  void stabilisciGriglia();
  void ImpostaZona(std::int16_t zone);
  ReadOptions opzioni() const;
  void leggiFile(const ReadOptions& options);
  void rilevaLettura();
  void rilevaGettoni(const std::string& cable);
  std::string motivoNulla() const;
  void rifiuta(const char* procedure, const std::string& message);
  void rilevaCollegamento(const char* procedure, const LinkNotes& notes);
  void rilevaDistanza(const char* procedure);
  std::string chiedi(const InputRequest& request) { return dialogs_.InputBox(request).value_or(""); }
  void azzeraSelezione();
  void scegliEstremo(std::int32_t index, std::string& box, TaggedLabel& label);
  void spostaDati(double east, double north);
  void spostaFondo(float& target, double step);
  void CreaFourArray();
  void rifaiStrati();
  void rifaiDati();   ///< analysis, scene and picture after the data were translated
  void rifaiFondo();  ///< echo sounder and picture after depths or their translation changed
  void rifaiScena();  ///< cells, then a repaint
  void leggiAngolo(int key, const std::string& box, double& angle);
  void ruota(double& angle, double degrees, std::string& box);
  void scegliProiezione(Projection projection);
  void alterna(bool& shown);
  void mostraAngoli();
  void mostraTrascinamento();
  void iniziaTrascinamento(Dragging kind, const MouseEvent& mouse);
  void DisegnaContorno();
  void mostraCavo(std::int32_t index);
  bool leggiTraccia(const std::filesystem::path& fileName);
  bool chiediZonaTraccia();
  void prendiTraccia(Array1<PuntoGPSEst> fixes, const std::string& name);
  void allineaTraccia(const char* procedure);
  bool GrigliaIgnota() const;
  void rilevaTempi(const TimeLink& link);
  void rifaiFinestra();
  void mostraUscita(bool bin, bool txt, bool echo);
  std::optional<SectionRequest> chiediSezione();
  void scriviSezione(Section& section);
  /// Opens ROOT + extension, lets `body` write it and lists it as written; failures end in the findings.
  void scrivi(const char* procedure, const char* extension, const std::function<void(FileWriter&)>& body);
  /// The same for a whole name.
  void scriviFile(const char* procedure, const std::filesystem::path& name,
                  const std::function<void(FileWriter&)>& body);
  /// Every output goes through here: refuses a name that is not to be written, lets `save` write and lists it.
  bool salva(const char* procedure, const std::filesystem::path& name, const std::function<void()>& save);

  Dialogs& dialogs_;
  Clock clock_;
  Findings findings_;
  Survey survey_;
  ZoneConstants zona_;
  TrackResult fixes_;
  ColourRange colours_;
  bool rangeTyped_ = false;  ///< the user typed the colour range: it no longer follows the data
  ViewState view_;
  Scene scene_;
  Renderer renderer_;
  Canvas* canvas_ = nullptr;
  Dragging dragging_ = Dragging::Nothing;
  std::int32_t pressedLabel_ = 0;  ///< the measurement whose label took the press
  std::int32_t pressedFix_ = 0;    ///< or the fix
  std::vector<std::int32_t> pickedFixes_;
  std::string nomeTraccia_;  ///< file of the external track
  std::int16_t numCollegamenti_ = 0;
  Collegamenti collegamenti_;
  std::optional<TimeLink> timeLink_;
  OutputFiles outputs_{Originale};
  std::unique_ptr<KmlGoogle> kml_;
  std::optional<SectionSummary> section_;
  std::int16_t statoSelezione_ = 0;
  double offsetCavo_ = 0;  ///< distance of the first floating electrode from the instrument, m
  double offsetEco_ = 0;   ///< distance of the echo sounder from the instrument, m
};

}  // namespace corvan
