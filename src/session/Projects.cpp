// Saving and opening projects: the run as a value, and that value done again.
#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Checksum.h"
#include "base/Errors.h"
#include "base/ErrorTrap.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "base/Text.h"
#include "session/Session.h"

namespace corvan {
namespace {

constexpr const char* Opening = "OpenProject";

/// An angle as it was typed, where it was typed: 135 rather than 135.00000000000003.
double Gradi(double radians) {
  constexpr double places = 1e9;
  const double exact = InGradi(radians), round = std::round(exact * places) / places;
  return InRadianti(round) == radians ? round : exact;
}

/// The files that acts read, each once.
std::vector<std::filesystem::path> FileLetti(const std::vector<Act>& acts) {
  std::vector<std::filesystem::path> files;
  for (const Act& act : acts) {
    if (const auto* read = std::get_if<ReadAct>(&act)) {
      files.insert(files.end(), read->in.File1.begin(), read->in.File1.end());
    }
    if (const auto* track = std::get_if<TrackAct>(&act)) files.push_back(track->file);
  }
  return files;
}

std::filesystem::path Intero(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(path, error).lexically_normal();
  return error ? path : whole;
}

void Intera(Act& act) {
  if (auto* read = std::get_if<ReadAct>(&act)) {
    for (auto& file : read->in.File1) file = Intero(file);
  }
  if (auto* track = std::get_if<TrackAct>(&act)) track->file = Intero(track->file);
}

}  // namespace

ProjectFile Scheda(const std::filesystem::path& path) {
  ProjectFile card{path, 0, 0, false};
  Findings unheard;
  Trappola(unheard, Opening, [&] {
    FileReader reader(path);
    Checksum sum;
    std::vector<std::byte> block(std::size_t{1} << 20);
    for (std::size_t got = reader.read(block); got > 0; got = reader.read(block)) {
      sum.add(std::span(block).first(got));
      card.bytes += got;
    }
    card.checksum = sum.value();
    card.there = true;
  });
  return card;
}

Project Session::progetto() const {
  Project p;
  p.acts = history_.atti();
  for (Act& act : p.acts) Intera(act);
  for (const auto& file : FileLetti(p.acts)) p.files.push_back(Scheda(file));
  const Survey& s = survey.dati();
  p.dataEast = s.settings.TraslDatiEst;
  p.dataNorth = s.settings.TraslDatiNord;
  p.depthEast = static_cast<double>(s.settings.TraslFondoEst);
  p.depthNorth = static_cast<double>(s.settings.TraslFondoNord);
  p.limits = s.qualita.limiti;
  p.byHand = s.qualita.aMano;
  p.from = selection.primo();
  p.to = selection.secondo();
  p.outputs = exporter.FrameFileOut;
  p.outputs.FileOutTxt = Intero(PercorsoDi(p.outputs.FileOutTxt)).string();
  p.others = exporter.altre;
  if (!p.others.picture.empty()) p.others.picture = Intero(p.others.picture);
  if (!p.others.section.empty()) p.others.section = Intero(p.others.section);
  p.offsets = {TestoNumero(exporter.offsetCavo()), TestoNumero(exporter.offsetEco()), exporter.quotaKml()};
  p.colours = survey.colori().scelta();
  const ViewState& v = view.state();
  p.view = {Gradi(v.AngoloVista),
            Gradi(v.AngoloPhi),
            Gradi(v.AngoloGamma),
            static_cast<double>(v.ZoomFattore),
            v.projection == Projection::Perspective,
            v.layers,
            v.mappa,
            view.picture().scene().esagerazione};
  p.section = section.view();
  p.section.window.reset();
  return p;
}

void Session::rifai(const Act& act) {
  struct Again {
    Session& s;
    void operator()(const ReadAct& act) const {
      const InputPanel shown = std::exchange(s.survey.FrameFileIn, act.in);
      s.survey.FrameFileIn.Dir1 = shown.Dir1;
      s.answers_.ripeti(act.answers);
      s.leggi();
    }
    void operator()(const TrackAct& act) const {
      s.answers_.ripeti(act.answers);
      s.leggiTraccia(act.file);
    }
    void operator()(const CableAct& act) const { s.survey.impostaCavo(act.text); }
    void operator()(const ZoneAct& act) const { s.survey.impostaZona(act.zone); }
    void operator()(const TimeLinkAct& act) const { s.collegaPerTempo(act.clockOffset); }
    void operator()(const PlaceLinkAct& act) const {
      s.track.dimenticaConnessioni();
      for (std::size_t k = 0; k < 2; ++k) {
        s.track.connetti(act.connections.measurement.at(k), act.connections.fix.at(k));
      }
      s.collegaPerPosizione();
    }
    void operator()(const DepthAct& act) const { s.survey.correggiProfondita(act.measurement); }
  };
  std::visit(Again{*this}, act);
}

void Session::rifai(const std::vector<Act>& acts) {
  for (const Act& act : acts) rifai(act);
}

void Session::esegui(const Project& project) {
  confronta(project);
  survey.dati().qualita.limiti = {};  // those of the survey before say nothing about this one
  rifai(project.acts);
  riprendi(project);
}

void Session::confronta(const Project& project) {
  for (const ProjectFile& was : project.files) {
    const ProjectFile now = Scheda(was.path);
    if (!now.there || !was.there || (now.bytes == was.bytes && now.checksum == was.checksum)) continue;
    const std::string how = now.bytes == was.bytes
                                ? "its bytes differ"
                                : std::to_string(now.bytes) + " bytes instead of " + std::to_string(was.bytes);
    findings_.fault(Opening, "has changed since the project was saved (" + how + "): it is read as it is now",
                    was.path.string());
  }
}

void Session::riprendi(const Project& project) {
  for (const auto& [what, metres] :
       {std::pair(Translation::DataEast, project.dataEast), std::pair(Translation::DataNorth, project.dataNorth),
        std::pair(Translation::DepthEast, project.depthEast), std::pair(Translation::DepthNorth, project.depthNorth)}) {
    if (metres != 0.0) translations.trasla(what, metres);
  }
  survey.qualita().imposta(project.limits);
  survey.qualita().decidi(project.byHand);
  survey.colori().riprendi(project.colours);
  if (project.from) selection.imposta(Extreme::First, *project.from);
  if (project.to) selection.imposta(Extreme::Second, *project.to);
  const bool shown = exporter.FrameFileOut.visible;
  exporter.FrameFileOut = project.outputs;
  exporter.FrameFileOut.visible = shown;
  exporter.altre = project.others;
  exporter.proponi(Val(project.offsets.cable), Val(project.offsets.echo), project.offsets.kml);
  section.impostaOffset(exporter.offsetCavo());
  guarda(project);
  history_.dimentica();
}

/// The view and the flat section as a project has them.
void Session::guarda(const Project& project) {
  const ProjectView& v = project.view;
  for (const LayerEntry& layer : LayerTable) view.mostra(layer.flag, v.layers.*layer.flag);
  view.proietta(v.perspective ? Projection::Perspective : Projection::Orthographic);
  view.ruota(Axis::Theta, v.theta);
  view.ruota(Axis::Phi, v.phi);
  view.ruota(Axis::Gamma, v.gamma);
  view.zoom(static_cast<float>(v.zoom));
  view.mostraAngoli();
  view.mostraBanda(v.map);
  view.esagera(v.exaggeration);
  section.scegli(project.section.lines, project.section.line);
  section.misura(project.section.depth);
  for (std::size_t k = 0; k < Curves; ++k) section.mostra(static_cast<Curve>(k), project.section.curves.at(k));
}

void Session::salvaProgetto(const std::filesystem::path& file, const Project& project) {
  exporter.progetto(file, TestoProgetto(project, Intero(file).parent_path()));
}

std::optional<Project> Session::leggiProgetto(const std::filesystem::path& file) {
  std::optional<Project> project;
  exporter.proteggi(file);
  Trappola(findings_, Opening, [&] {
    const FileBytes bytes = LeggiTutto(file);
    std::vector<std::string> notes;
    try {
      project = LeggiProgetto(std::string(bytes.text()), Intero(file).parent_path(), notes);
    } catch (const RunTimeError& error) {
      findings_.fault(Opening, error.what(), file.string());
    }
    for (const std::string& note : notes) findings_.note(Opening, note, file.string());
  });
  return project;
}

bool Session::apriProgetto(const std::filesystem::path& file) {
  const std::optional<Project> project = leggiProgetto(file);
  if (project) esegui(*project);
  return project.has_value();
}

}  // namespace corvan
