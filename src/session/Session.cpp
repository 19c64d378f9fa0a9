#include "session/Session.h"

#include <memory>
#include <utility>

#include "picture/Bitmap.h"

namespace corvan {
namespace {

constexpr const char* PictureName = "img0.bmp";  // never counted on: each save replaces the one before

/// What a link changes in the measurements, as it was before.
class Positions {
 public:
  explicit Positions(const Survey& survey) {
    kept_.reserve(survey.Misure.size());
    for (const Misura& m : survey.Misure) {
      kept_.push_back({m.sorgente, m.Lat, m.Lon, m.UTMx, m.UTMy, m.Val12, m.Scartata, m.Interpolata, m.SenzaFix});
    }
  }
  void rimetti(Survey& survey) const {
    std::size_t k = 0;
    for (Misura& m : survey.Misure) {
      const Kept& was = kept_[k++];
      m.sorgente = was.sorgente;
      m.Lat = was.Lat;
      m.Lon = was.Lon;
      m.UTMx = was.UTMx;
      m.UTMy = was.UTMy;
      m.Val12 = was.Val12;
      m.Scartata = was.Scartata;
      m.Interpolata = was.Interpolata;
      m.SenzaFix = was.SenzaFix;
    }
  }

 private:
  struct Kept {
    PositionSource sorgente;
    double Lat, Lon, UTMx, UTMy;
    float Val12;
    bool Scartata, Interpolata, SenzaFix;
  };
  std::vector<Kept> kept_;
};

}  // namespace

Session::Session(Dialogs& dialogs, Clock clock)
    : answers_(dialogs),
      survey(desk()),
      track(desk(), survey.dati(), [this](std::int16_t zone) { survey.dichiaraZona(zone); }),
      selection(desk(), survey.dati()),
      view(desk(), survey.dati()),
      section(desk(), survey.dati()),
      exporter(desk(), survey.dati(), std::move(clock)),
      translations(desk(), survey.dati().settings) {
  view.informa(survey.info(), survey.avvisa());
}

Desk Session::desk() {
  return {answers_, findings_, history_, [this](Change change) { segui(change); }};
}

/// What must follow a change.
void Session::segui(Change change) {
  const bool seen =
      change == Change::Colours || change == Change::Track || change == Change::Selection || change == Change::Label;
  if (!seen) ++revision_;
  switch (change) {
    case Change::Survey:
      view.azzera();
      section.azzera();
      track.azzera();
      exporter.azzera();
      translations.azzera();
      letti_ = survey.FrameFileIn.File1;
      return;
    case Change::Analysis:
      track.allinea("AnalisiFile");
      view.picture().rifaiStrati();
      section.rifai();
      return;
    case Change::Cells:
      view.picture().rifaiCelle();
      section.rifai();
      return;
    case Change::Depths:
      view.picture().rifaiFondo();
      section.rifai();
      return;
    case Change::Translation:
      survey.rifai();
      return;
    case Change::Colours:
      view.picture().colora(survey.colours());
      view.picture().disegna();
      section.colora(survey.colours());
      return;
    case Change::Track:
      view.mostra(&Layers::MostraGPS2, true);
      view.picture().rifaiTraccia();
      return;
    case Change::Selection:
      view.segna(selection.scelte(), selection.fixScelti(), selection.primo(), selection.secondo());
      section.segna(selection.primo(), selection.secondo());
      return;
    case Change::Label:
      view.informa(survey.info(), survey.avvisa());
      return;
  }
}

void Session::leggi() {
  for (const auto& name : survey.FrameFileIn.File1) exporter.proteggi(name);
  const InputPanel chosen = survey.FrameFileIn;
  answers_.comincia();
  const bool read = survey.leggi();
  std::vector<GivenAnswer> given = answers_.dati();
  if (!read) return;
  history_.segna(ReadAct{chosen, std::move(given)});
  selection.preimposta();
  survey.FrameFileIn.visible = exporter.FrameFileOut.visible = false;
  view.mostraBanda(view.state().mappa);  // tells where the survey has no such level
  view.picture().rifaiCelle();
}

void Session::aggiungi(const std::vector<std::filesystem::path>& files) {
  survey.FrameFileIn.File1 = letti_;
  survey.FrameFileIn.File1.insert(survey.FrameFileIn.File1.end(), files.begin(), files.end());
  leggi();
}

void Session::leggiTraccia(const std::filesystem::path& file) {
  if (!file.empty()) exporter.proteggi(file);
  answers_.comincia();
  const bool read = track.leggi(file);
  std::vector<GivenAnswer> given = answers_.dati();
  if (read) history_.segna(TrackAct{file, std::move(given)});
}

/// All that follows from positions, after a link gave the measurements others.
/// @param without measurements that an empty track has no place for
void Session::collegata(const char* what, std::size_t without, std::function<void()> back, Act act) {
  survey.analizza();
  if (without > 0) survey.scartaTutto();
  view.picture().rifaiCelle();
  section.rifai();
  history_.ricorda(what, std::move(back), std::move(act));
}

void Session::collegaPerTempo(double clockOffset) {
  const auto before = std::make_shared<const Positions>(survey.dati());
  const bool shown = view.state().layers.MostraGPS2;
  const std::optional<TimeLink> link = track.timeLink();
  if (!track.collegaPerTempo(clockOffset)) return;
  view.mostra(&Layers::MostraGPS2, false);
  collegata(
      "Link by Time", track.timeLink()->withoutTrack,
      [this, before, shown, link] {
        before->rimetti(survey.dati());
        track.riprendi(link);
        view.mostra(&Layers::MostraGPS2, shown);
        survey.rifai();
      },
      TimeLinkAct{clockOffset});
}

void Session::chiediCollegaPerTempo() {
  if (const std::optional<double> offset = track.chiediOrologio()) collegaPerTempo(*offset);
}

void Session::collegaPerPosizione() {
  if (!view.state().layers.MostraGPS2) {
    track.rilevaNascosta();
    return;
  }
  const auto before = std::make_shared<const Positions>(survey.dati());
  if (!track.collegaPerPosizione()) return;
  collegata(
      "Link by Position", 0,
      [this, before] {
        before->rimetti(survey.dati());
        survey.rifai();
      },
      PlaceLinkAct{track.connessioni()});
}

void Session::salvaEstratto(const OutputPanel& output) {
  exporter.azzera();
  const std::optional<std::int32_t> first = selection.primo(), second = selection.secondo();
  if (!first || !second) {
    desk().rifiuta("SalvaEstrattoFile", Question::NoSection);
    return;
  }
  exporter.scrivi({*first, *second, output, survey.colours()});
  section.impostaOffset(exporter.offsetCavo());  // the last answer
}

void Session::salvaImmagine() {
  Canvas* canvas = section.mostrata() ? section.tela() : view.picture().tela();
  if (canvas == nullptr) return;
  section.mostrata() ? section.dipingi() : view.picture().dipingi();
  exporter.immagine(PictureName, [canvas] { return ComponiBmp(canvas->picture()); });
}

void Session::esegui(const PictureRequest& request) {
  const auto& [kind, index] = request.target;
  constexpr const char* commands[] = {"", "Select Data", "Connect Data and GPS", "Correct Depth"};
  static_assert(static_cast<int>(PictureAct::CorrectDepth) == 3, "commands in the order of the acts");
  if (request.act != PictureAct::Nothing) findings_.comincia(commands[static_cast<int>(request.act)]);
  switch (request.act) {
    case PictureAct::Nothing:
      return;
    case PictureAct::Pick:
      kind == TargetKind::Fix ? selection.scegliFix(index) : selection.scegli(index);
      return;
    case PictureAct::Connect:
      track.chiediConnessione(index);
      return;
    case PictureAct::CorrectDepth:
      survey.chiediProfondita(index);
      return;
  }
}

void Session::esegui(const SectionChoice& choice) {
  if (choice.pick || choice.section) findings_.comincia("Select Data");
  if (choice.pick) selection.scegli(*choice.pick);
  if (choice.toggle) escludi(*choice.toggle);
  if (!choice.section) return;
  selection.imposta(Extreme::First, choice.section->first);
  selection.imposta(Extreme::Second, choice.section->second);
}

void Session::escludi(const ReadingUnder& reading) {
  findings_.comincia("Exclude Reading");
  survey.qualita().alterna(reading.measurement, reading.channel);
}

void Session::annulla() { history_.annulla(); }

}  // namespace corvan
