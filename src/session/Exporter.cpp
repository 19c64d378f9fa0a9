#include "session/Exporter.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/PathText.h"
#include "base/Text.h"
#include "exchange/BottomTable.h"
#include "exchange/GeneralArray.h"
#include "exchange/GeoJson.h"
#include "exchange/GeoPackage.h"
#include "exchange/UnifiedData.h"
#include "exchange/VtuCurtain.h"
#include "export/BinWriter.h"
#include "export/SurveyKml.h"
#include "export/SurveyTable.h"
#include "export/TextWriters.h"
#include "session/BoxNumbers.h"
#include "session/Project.h"

namespace corvan {
namespace {

/// A file that a ticked box makes.
struct Output {
  bool OutputPanel::*box;
  const char* extension;  ///< behind the root of the names
};

constexpr std::array Outputs{Output{&OutputPanel::BinChk, ".bin"},
                             Output{&OutputPanel::TxtChk, ".txt"},
                             Output{&OutputPanel::EchoZChk, ".ecs"},
                             Output{&OutputPanel::EchoZChk, ".ecst"},
                             Output{&OutputPanel::KMLchk, ".kml"},
                             Output{&OutputPanel::ErtChk, ".ohm"},
                             Output{&OutputPanel::BottomChk, "_bottom.csv"},
                             Output{&OutputPanel::Res2dinvChk, ".dat"},
                             Output{&OutputPanel::GpkgChk, ".gpkg"},
                             Output{&OutputPanel::GeojsonChk, ".geojson"},
                             Output{&OutputPanel::VtuChk, ".vtu"}};

/// Extensions of the files that the ticked formats make.
std::vector<const char*> Estensioni(const OutputPanel& panel) {
  std::vector<const char*> all;
  for (const Output& output : Outputs) {
    if (panel.*output.box) all.push_back(output.extension);
  }
  return all;
}

}  // namespace

void Exporter::mostra(bool OutputPanel::*format) {
  FrameFileOut.visible = true;
  FrameFileOut.BinChk = FrameFileOut.TxtChk = FrameFileOut.EchoZChk = false;
  FrameFileOut.*format = true;
}

bool Exporter::spuntato(const OutputPanel& output) { return !Estensioni(output).empty(); }

bool Exporter::cartella(const OutputPanel& output) const {
  const std::filesystem::path folder = PercorsoDi(output.FileOutTxt).parent_path();
  std::error_code error;
  if (folder.empty() || std::filesystem::is_directory(folder, error)) return true;
  desk_.findings.fault("SalvaEstrattoFile", "the folder is not there: nothing is written",
                       std::filesystem::absolute(folder, error).string());
  return false;
}

void Exporter::scrivi(const ExportRequest& request) {
  section_.reset();
  Trappola(desk_.findings, "SalvaEstrattoFile", [&] {
    if (!chiediSostituzione(request.output)) return;
    const std::optional<SectionRequest> asked = chiediSezione(request);
    if (!asked) return;
    const Section section = EstraiSezione(survey_, *asked, desk_.findings);
    section_ = SectionSummary{section.E1, section.E2, section.points, section.NqpBin()};
    step_ = {ProgressStep::Work::Writing, "", 0, Estensioni(request.output).size()};
    try {
      scriviSezione(section, request);
    } catch (const Interrotto&) {
      kml_.reset();
      desk_.findings.fault("SalvaEstrattoFile", "given up: it is not written, nor is what was to follow",
                           step_.subject);
    }
    step_ = {};
    desk_.dialogs.Avanzamento(step_);
  });
}

/// Tells how many files are written and that this one is being written; the user may give it up.
FileWriter::Progress Exporter::progresso(const std::filesystem::path& name) {
  if (step_.total == 0) return {};  // a single small file
  step_.subject = name.filename().string();
  return [this](std::uintmax_t) {
    if (!desk_.dialogs.Avanzamento(step_)) throw Interrotto();
  };
}

/// Asks once before files are replaced; those that may not be are not asked for.
/// @return false when they shall stay: nothing is written then
bool Exporter::chiediSostituzione(const OutputPanel& output) {
  std::string names;
  for (const char* extension : Estensioni(output)) {
    std::error_code error;
    if (FinisceInCartella(output.FileOutTxt)) continue;
    const std::filesystem::path name = NomeUscita(output.FileOutTxt, extension);
    if (!std::filesystem::is_regular_file(name, error)) continue;
    Findings refused;
    if (Trappola(refused, "", [&] { outputs_.controlla(name); })) {
      names += (names.empty() ? "" : "\n") + name.filename().string();
    }
  }
  if (names.empty()) return true;
  std::error_code error;
  const auto folder = std::filesystem::absolute(PercorsoDi(output.FileOutTxt), error).parent_path();
  if (desk_.dialogs.MsgBox({Question::ReplaceFiles, "In " + folder.string() + ":\n" + names}) == Answer::Ok)
    return true;
  desk_.findings.note("SalvaEstrattoFile", "nothing is written: the files that were there stay");
  return false;
}

/// The window of the smoothing, where the cable lies along the track. @return false when it was refused
bool Exporter::leggiLisciatura(const OutputPanel& output, SectionRequest& section) {
  if (output.cable == CableShape::Straight || Rifila(output.SmoothTxt).empty()) return true;
  section.smoothing = NumeroDaCasella<double>(
      output.SmoothTxt, {"SalvaEstrattoFile", "smoothing of the track", 0.0, WidestSmoothing}, desk_.findings);
  return section.smoothing.has_value();
}

/// @return none when an answer was refused: nothing is written then
std::optional<SectionRequest> Exporter::chiediSezione(const ExportRequest& request) {
  const std::int32_t last = survey_.NumMisure();
  SectionRequest section;
  section.E1 = std::clamp(std::min(request.E1, request.E2), 1, last);
  section.E2 = std::clamp(std::max(request.E1, request.E2), 1, last);
  section.shape = request.output.cable;
  if (!leggiLisciatura(request.output, section)) return std::nullopt;
  const auto ask = [this](double& offset, Question question, const char* what) {
    const std::optional<std::string> answer =
        desk_.dialogs.InputBox({.question = question, .defaultAnswer = TestoNumero(offset), .details = "Metres."});
    if (!answer && offset != 0.0) {
      desk_.findings.note("SalvaEstrattoFile", std::string(what) + " cancelled: 0 is taken");
    }
    const auto metres = NumeroDaCasella<double>(answer.value_or("0"), {"SalvaEstrattoFile", what}, desk_.findings);
    if (metres) offset = *metres;
    return metres.has_value();
  };
  if (!ask(offsetCavo_, Question::CableOffset, "offset") ||
      !ask(offsetEco_, Question::EchoOffset, "echo-sounder offset")) {
    return std::nullopt;
  }
  section.OffsetCavo = offsetCavo_;
  section.OffsetEco = offsetEco_;
  section.echoSounder = request.output.EchoZChk;
  if (request.output.TruePosChk) {
    section.position = request.output.ExtGPSChk ? TruePosition::ExternalGps : TruePosition::BehindBoat;
  }
  return section;
}

void Exporter::scriviSezione(const Section& section, const ExportRequest& request) {
  const std::int32_t NqpBin = section.NqpBin();
  const std::string& root = request.output.FileOutTxt;
  if (request.output.BinChk) {
    scrivi("SalvaBinPro", root, ".bin",
           [&](FileWriter& out) { SalvaBinPro(out, section.RecordOut, NqpBin, clock_()); });
  }
  if (request.output.TxtChk) {
    scrivi("SalvaAscii", root, ".txt", [&](FileWriter& out) { SalvaAscii(out, section.RecordOut, NqpBin); });
  }
  if (request.output.EchoZChk) {
    const auto profile = [&](const char* extension, const Profile& along) {
      scrivi("SalvaTraccia", root, extension,
             [&](FileWriter& out) { SalvaTraccia(out, along, along.Primo(), along.Ultimo()); });
    };
    profile(".ecs", section.Profilo);
    profile(".ecst", section.ProfiloVero);
  }
  if (request.output.KMLchk) scriviKml(section, request);
  scriviAperti(section, request);
}

void Exporter::scriviAperti(const Section& section, const ExportRequest& request) {
  const OutputPanel& output = request.output;
  const auto write = [&](bool ticked, const char* procedure, const char* extension, auto&& body) {
    if (ticked) scrivi(procedure, output.FileOutTxt, extension, body);
  };
  Findings& findings = desk_.findings;
  write(output.ErtChk, "SalvaDatiUnificati", ".ohm", [&](FileWriter& out) {
    SalvaDatiUnificati(out, survey_, section, output.Ert3DChk ? ErtDimension::Three : ErtDimension::Two, findings);
  });
  write(output.BottomChk, "SalvaFondo", "_bottom.csv",
        [&](FileWriter& out) { SalvaFondo(out, survey_, section, findings); });
  write(output.Res2dinvChk, "SalvaSchieraGenerale", ".dat",
        [&](FileWriter& out) { SalvaSchieraGenerale(out, survey_, section, findings); });
  write(output.GpkgChk, "SalvaGeoPackage", ".gpkg", [&](FileWriter& out) {
    SalvaGeoPackage(out, survey_, section, {request.colours, clock_()}, findings);
  });
  write(output.GeojsonChk, "SalvaGeoJson", ".geojson",
        [&](FileWriter& out) { SalvaGeoJson(out, survey_, section, findings); });
  write(output.VtuChk, "SalvaVtu", ".vtu", [&](FileWriter& out) { SalvaVtu(out, survey_, section, findings); });
}

void Exporter::scriviKml(const Section& section, const ExportRequest& request) {
  Trappola(desk_.findings, "NomeUscita", [&] {
    const std::string answer = desk_.chiedi(
        {.question = Question::KmlOffset, .defaultAnswer = proposedKml_, .details = "An empty answer is 0."});
    quotaKml_ = answer;
    const std::optional<double> height =
        Rifila(answer).empty() ? std::optional(0.0)
                               : NumeroDaCasella<double>(answer, {"SalvaKML", "vertical offset"}, desk_.findings);
    if (!height) return;
    const std::filesystem::path name = NomeUscita(request.output.FileOutTxt, ".kml");
    const bool written = salva("SalvaKML", name, [&] {
      if (!kml_) kml_ = std::make_unique<KmlGoogle>();
      kml_->FileName(name.string());
      kml_->progresso(progresso(name));
      SalvaKML(*kml_, section,
               {request.colours, *height, request.output.KmlExactChk ? KmlPositions::Exact : KmlPositions::Given},
               desk_.findings);
    });
    if (!written) kml_.reset();  // gives up the half-written file
  });
}

void Exporter::tabella(const std::string& root) {
  scrivi("SalvaTabella", root, ".csv", [this](FileWriter& out) { SalvaTabella(out, survey_); });
}

void Exporter::immagine(const std::filesystem::path& name, const std::function<std::string()>& compose) {
  scriviFile("SalvaImmagine", name, [&compose](FileWriter& out) { out.write(compose()); });
}

void Exporter::proponi(double cable, double echo, std::string kml) {
  offsetCavo_ = cable;
  offsetEco_ = echo;
  quotaKml_ = proposedKml_ = std::move(kml);
}

void Exporter::progetto(const std::filesystem::path& name, const std::string& text) {
  Trappola(desk_.findings, "SaveProject", [&] {
    std::error_code ignored;
    constexpr std::size_t enough = 200;
    const bool older =
        std::filesystem::is_regular_file(name, ignored) && SembraProgetto(LeggiInizio(name, enough).text());
    if (!older) outputs_.controlla(name);
    FileWriter out(name);
    out.write(text);
    out.close();
    annota(name);
  });
}

/// Opens ROOT + extension, lets `body` write it and lists it as written; failures end in the findings.
void Exporter::scrivi(const char* procedure, const std::string& root, const char* extension,
                      const std::function<void(FileWriter&)>& body) {
  Trappola(desk_.findings, "NomeUscita", [&] { scriviFile(procedure, NomeUscita(root, extension), body); });
}

/// The same for a whole name.
void Exporter::scriviFile(const char* procedure, const std::filesystem::path& name,
                          const std::function<void(FileWriter&)>& body) {
  salva(procedure, name, [&] {
    FileWriter out(name, progresso(name));
    body(out);
    out.close();
  });
}

/// Every output goes through here: refuses a name that is not to be written, lets `save` write and lists it.
bool Exporter::salva(const char* procedure, const std::filesystem::path& name, const std::function<void()>& save) {
  return Trappola(desk_.findings, procedure, [&] {
    outputs_.controlla(name);
    save();
    annota(name);
  });
}

/// Lists an output that is there.
void Exporter::annota(const std::filesystem::path& name) {
  outputs_.scritto(name);
  ++step_.done;
  const std::size_t command = desk_.findings.commands().size();
  if (std::exchange(recentCommand_, command) != command) recent_.clear();
  recent_.push_back(std::filesystem::absolute(name));
}

std::vector<std::filesystem::path> Exporter::ultimi() const {
  return recentCommand_ == desk_.findings.commands().size() ? recent_ : std::vector<std::filesystem::path>();
}

}  // namespace corvan
