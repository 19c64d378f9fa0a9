// Extracting the section and writing the outputs.
#include <algorithm>
#include <string>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "export/BinWriter.h"
#include "export/SurveyKml.h"
#include "export/SurveyTable.h"
#include "export/TextWriters.h"
#include "session/BoxNumbers.h"
#include "session/Session.h"

namespace corvan {

void Session::SaveFileOut_Click() { mostraUscita(true, false, false); }

void Session::SaveFileOutTxt_Click() { mostraUscita(false, true, false); }

void Session::SaveEcho_Click() { mostraUscita(false, false, true); }

void Session::mostraUscita(bool bin, bool txt, bool echo) {
  FrameFileOut.visible = true;
  FrameFileOut.BinChk = bin;
  FrameFileOut.TxtChk = txt;
  FrameFileOut.EchoZChk = echo;
}

void Session::SaveOutCmd_Click() {
  SalvaEstrattoFile();
  FrameFileOut.visible = false;
}

void Session::SalvaEstrattoFile() {
  section_.reset();
  if (statoSelezione_ != 2) {
    rifiuta("SalvaEstrattoFile", "No points selected");
    return;
  }
  Trappola(findings_, "SalvaEstrattoFile", [this] {
    const std::optional<SectionRequest> request = chiediSezione();
    if (!request) return;
    Section section = EstraiSezione(survey_, *request, findings_);
    section_ = SectionSummary{section.E1, section.E2, section.points, section.NqpBin()};
    scriviSezione(section);
  });
}

/// @return none when an answer was refused: nothing is written then
std::optional<SectionRequest> Session::chiediSezione() {
  SectionRequest request;
  const std::int32_t last = survey_.NumMisure();
  request.E1 = std::clamp(AInt32(Val(FrameExtrema.E1Txt)), 1, last);
  request.E2 = std::clamp(AInt32(Val(FrameExtrema.E2txt)), 1, last);
  if (request.E2 < request.E1) std::swap(request.E1, request.E2);

  const auto ask = [this](double& offset, const char* prompt, const char* title, const char* what) {
    const std::optional<std::string> answer = dialogs_.InputBox({prompt, title, TestoNumero(offset)});
    if (!answer && offset != 0.0) findings_.note("SalvaEstrattoFile", std::string(what) + " cancelled: 0 is taken");
    const auto metres = NumeroDaCasella<double>(answer.value_or("0"), {"SalvaEstrattoFile", what}, findings_);
    if (metres) offset = *metres;
    return metres.has_value();
  };
  if (!ask(offsetCavo_, "Distance of the first floating Electrode from Syscal", "Set Cable Offset Value ", "offset") ||
      !ask(offsetEco_, "Distance of EchoSounder from Syscal", "Set EchoSounder Offset Value ", "echo-sounder offset")) {
    return std::nullopt;
  }
  request.OffsetCavo = offsetCavo_;
  request.OffsetEco = offsetEco_;

  request.echoSounder = FrameFileOut.EchoZChk;
  if (FrameFileOut.TruePosChk) {
    request.position = FrameFileOut.ExtGPSChk ? TruePosition::ExternalGps : TruePosition::BehindBoat;
  }
  return request;
}

void Session::scriviSezione(Section& section) {
  const std::int32_t NqpBin = section.NqpBin();
  if (FrameFileOut.BinChk) {
    scrivi("SalvaBinPro", ".bin", [&](FileWriter& out) { SalvaBinPro(out, section.RecordOut, NqpBin, clock_()); });
  }
  if (FrameFileOut.TxtChk) {
    scrivi("SalvaAscii", ".txt", [&](FileWriter& out) { SalvaAscii(out, section.RecordOut, NqpBin); });
  }
  if (FrameFileOut.EchoZChk) {
    scrivi("SalvaTraccia", ".ecs", [&](FileWriter& out) {
      SalvaTraccia(out, section.Profilo, section.Profilo.Primo(), section.Profilo.Ultimo());
    });
    scrivi("SalvaTraccia", ".ecst", [&](FileWriter& out) {
      SalvaTraccia(out, section.ProfiloVero, section.ProfiloVero.Primo(), section.ProfiloVero.Ultimo());
    });
  }
  if (!FrameFileOut.KMLchk) return;
  Trappola(findings_, "NomeUscita", [&] {
    const std::string answer = chiedi({"Add vertical offset [m]", "OffSet Z", ""});
    const std::optional<double> height =
        Rifila(answer).empty() ? std::optional(0.0)
                               : NumeroDaCasella<double>(answer, {"SalvaKML", "vertical offset"}, findings_);
    if (!height) return;
    const std::filesystem::path name = NomeUscita(FrameFileOut.FileOutTxt, ".kml");
    const bool written = salva("SalvaKML", name, [&] {
      if (!kml_) kml_ = std::make_unique<KmlGoogle>();
      kml_->FileName(name.string());
      corvan::SalvaKML(*kml_, section, {colours_, *height}, findings_);
    });
    if (!written) kml_.reset();  // gives up the half-written file
  });
}

void Session::SalvaTabella() {
  scrivi("SalvaTabella", ".csv", [this](FileWriter& out) { corvan::SalvaTabella(out, survey_); });
}

void Session::SalvaImmagine(const std::filesystem::path& name, const std::function<std::string()>& compose) {
  scriviFile("SalvaImmagine", name, [&compose](FileWriter& out) { out.write(compose()); });
}

void Session::scrivi(const char* procedure, const char* extension, const std::function<void(FileWriter&)>& body) {
  Trappola(findings_, "NomeUscita",
           [&] { scriviFile(procedure, NomeUscita(FrameFileOut.FileOutTxt, extension), body); });
}

void Session::scriviFile(const char* procedure, const std::filesystem::path& name,
                         const std::function<void(FileWriter&)>& body) {
  salva(procedure, name, [&] {
    FileWriter out(name);
    body(out);
    out.close();
  });
}

bool Session::salva(const char* procedure, const std::filesystem::path& name, const std::function<void()>& save) {
  return Trappola(findings_, procedure, [&] {
    outputs_.controlla(name);
    save();
    outputs_.scritto(name);
  });
}

}  // namespace corvan
