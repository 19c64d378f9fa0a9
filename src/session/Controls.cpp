#include "session/Controls.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>

namespace corvan {
namespace {

constexpr double Step = 0.1;      // m, of the translation buttons
constexpr double ZoomStep = 0.1;  // decades

template <Translation What, int Sign>
void Passo(Session& s, const std::string&) {
  s.translations.passo(What, Sign * Step);
}

template <Translation What, std::string TranslationPanel::*Box>
void Trasla(Session& s, const std::string& text) {
  const auto metres = NumeroDaCasella<double>(text, CasellaDi(What), s.findings());
  if (metres) s.translations.trasla(What, *metres);
  s.translations.FrameDataMove.*Box = text;
}

template <Axis Which, int Sign>
void Gira(Session& s, const std::string&) {
  s.view.passo(Which, Sign);
}

template <Axis Which, std::string ViewPanel::*Box>
void Angolo(Session& s, const std::string& text) {
  s.view.FrameView.*Box = text;
  const auto degrees = NumeroDaCasella<double>(text, AngleBox, s.findings());
  if (degrees) s.view.ruota(Which, *degrees);
}

template <Extreme Which>
void Estremo(Session& s, const std::string& text) {
  const BoxNumber& box = Which == Extreme::First ? FirstExtremeBox : SecondExtremeBox;
  const auto index = NumeroDaCasella<std::int32_t>(text, box, s.findings());
  if (index) s.selection.imposta(Which, *index);
}

template <bool Layers::*Layer>
void Alterna(Session& s, const std::string&) {
  s.view.alterna(Layer);
}

template <bool OutputPanel::*Format>
void Mostra(Session& s, const std::string&) {
  s.exporter.mostra(Format);
}

void Salva(Session& s, const std::string&) {
  const OutputPanel& out = s.exporter.FrameFileOut;
  if (!Exporter::spuntato(out)) {
    s.findings().note("SaveOutCmd_Click", "no format is ticked: nothing is written");
  }
  if (!s.exporter.cartella(s.exporter.FrameFileOut)) return;
  s.salvaEstratto(s.exporter.FrameFileOut);
  s.exporter.FrameFileOut.visible = false;
}

template <PaletteName Which>
void Tavolozza(Session& s, const std::string&) {
  s.survey.colori().scegli(Which);
}

template <std::optional<double> QualityLimits::*Limit>
void Limita(Session& s, const std::string& text) {
  const double least = Limit == &QualityLimits::rhoMin || Limit == &QualityLimits::rhoMax
                           ? -std::numeric_limits<double>::infinity()
                           : 0.0;
  s.survey.qualita().digita(Limit, {"Quality", "limit", least}, text);
}

void Zoom(Session& s, const std::string& text) {
  s.view.FrameView.Zoomtxt = text;
  const auto zoom = NumeroDaCasella<float>(text, ZoomBox, s.findings());
  if (zoom) s.view.zoom(*zoom);
}

/// The box of phi as it stands keeps its turn.
void DaSopra(Session& s, const std::string&) {
  const auto phi = NumeroDaCasella<double>(s.view.FrameView.Phitxt, AngleBox, s.findings());
  if (phi) s.view.daSopra(*phi);
}

using S = Session;
using T = const std::string&;

constexpr std::array Table{
    Control{"LoadFiles_Click", nullptr, [](S& s, T) { s.survey.FrameFileIn.visible = true; }},
    Control{"CancCmd_Click", nullptr, [](S& s, T) { s.survey.FrameFileIn.visible = false; }},
    Control{"ConvertAsciiCmd_Click", "Read File", [](S& s, T) { s.leggi(); }},
    Control{"SaveFileOut_Click", nullptr, Mostra<&OutputPanel::BinChk>},
    Control{"SaveFileOutTxt_Click", nullptr, Mostra<&OutputPanel::TxtChk>},
    Control{"SaveEcho_Click", nullptr, Mostra<&OutputPanel::EchoZChk>},
    Control{"SaveOutCmd_Click", "Save File Out", Salva},
    Control{"LinkToGPST_Click", "Link by Time", [](S& s, T) { s.chiediCollegaPerTempo(); }},
    Control{"LinkToGPSP_Click", "Link by Position", [](S& s, T) { s.collegaPerPosizione(); }},
    Control{"SetUtmZone_Click", "Set UTM Zone", [](S& s, T) { s.survey.chiediZona(); }},
    Control{"CableConf_Click", "Set Cable Configuration", [](S& s, T) { s.survey.chiediCavo(); }},
    Control{"SetRange_Click", "Set Colour Scale Range", [](S& s, T) { s.survey.colori().chiediIntervallo(); }},
    Control{"RangeData_Click", "Set Colour Scale Range", [](S& s, T) { s.survey.colori().intervalloDaiDati(); }},
    Control{"RangePercentile_Click", "Set Colour Scale Range",
            [](S& s, T) { s.survey.colori().intervalloPercentile(Percentiles{}); }},
    Control{"PaletteSpectrum_Click", "Set Palette", Tavolozza<PaletteName::Spectrum>},
    Control{"PaletteViridis_Click", "Set Palette", Tavolozza<PaletteName::Viridis>},
    Control{"PaletteCividis_Click", "Set Palette", Tavolozza<PaletteName::Cividis>},
    Control{"PaletteGrey_Click", "Set Palette", Tavolozza<PaletteName::Grey>},
    Control{"ReverseColours_Click", "Reverse Colours",
            [](S& s, T) { s.survey.colori().inverti(!s.survey.colours().reversed); }},
    Control{"LogColours_Click", "Logarithmic Colours",
            [](S& s, T) { s.survey.colori().logaritmo(!s.survey.colours().logarithmic); }},
    Control{"SelFirst_Click", nullptr, [](S& s, T) { s.selection.FrameExtrema.visible = true; }},
    Control{"SelectLast_Click", nullptr, [](S& s, T) { s.selection.FrameExtrema.visible = true; }},
    Control{"E1Txt_KeyPress", "Select First Data", Estremo<Extreme::First>},
    Control{"E2txt_KeyPress", "Select Last Data", Estremo<Extreme::Second>},
    Control{"Quality_Click", nullptr, [](S& s, T) { s.survey.qualita().FrameQuality.visible = true; }},
    Control{"MinCurrentTxt_KeyPress", "Quality", Limita<&QualityLimits::corrente>},
    Control{"MinPotentialTxt_KeyPress", "Quality", Limita<&QualityLimits::potenziale>},
    Control{"MaxDeviationTxt_KeyPress", "Quality", Limita<&QualityLimits::deviazione>},
    Control{"RhoMinTxt_KeyPress", "Quality", Limita<&QualityLimits::rhoMin>},
    Control{"RhoMaxTxt_KeyPress", "Quality", Limita<&QualityLimits::rhoMax>},
    Control{"DespikeChk_Click", "Quality", [](S& s, T) { s.survey.qualita().alternaPicchi(); }},
    Control{"DespikeTxt_KeyPress", "Quality", [](S& s, T t) { s.survey.qualita().digitaFattore(t); }},
    Control{"DespikeWidthTxt_KeyPress", "Quality", [](S& s, T t) { s.survey.qualita().digitaFinestra(t); }},
    Control{"NegativeChk_Click", "Quality", [](S& s, T) { s.survey.qualita().alternaNegative(); }},
    Control{"ForgetCmd_Click", "Forget Choices by Hand", [](S& s, T) { s.survey.qualita().dimenticaScelte(); }},
    Control{"Undo_Click", "Undo", [](S& s, T) { s.annulla(); }},

    Control{"EmCmd_Click", "Data Translation", Passo<Translation::DataEast, -1>},
    Control{"EpCmd_Click", "Data Translation", Passo<Translation::DataEast, 1>},
    Control{"NmCmd_Click", "Data Translation", Passo<Translation::DataNorth, -1>},
    Control{"NpCmd_Click", "Data Translation", Passo<Translation::DataNorth, 1>},
    Control{"TestTxt_KeyPress", "Data Translation", Trasla<Translation::DataEast, &TranslationPanel::TestTxt>},
    Control{"TnordTxt_KeyPress", "Data Translation", Trasla<Translation::DataNorth, &TranslationPanel::TnordTxt>},
    Control{"DEmCmd_Click", "Depth Translation", Passo<Translation::DepthEast, -1>},
    Control{"DEpCmd_Click", "Depth Translation", Passo<Translation::DepthEast, 1>},
    Control{"DNmCmd_Click", "Depth Translation", Passo<Translation::DepthNorth, -1>},
    Control{"DNpCmd_Click", "Depth Translation", Passo<Translation::DepthNorth, 1>},
    Control{"DTestTxt_KeyPress", "Depth Translation", Trasla<Translation::DepthEast, &TranslationPanel::DTestTxt>},
    Control{"DTnordTxt_KeyPress", "Depth Translation", Trasla<Translation::DepthNorth, &TranslationPanel::DTnordTxt>},

    Control{"LeftThetacmd_Click", nullptr, Gira<Axis::Theta, -1>},
    Control{"RightThetacmd_Click", nullptr, Gira<Axis::Theta, 1>},
    Control{"LeftPhicmd_Click", nullptr, Gira<Axis::Phi, -1>},
    Control{"RightPhicmd_Click", nullptr, Gira<Axis::Phi, 1>},
    Control{"LeftGammaCmd_Click", nullptr, Gira<Axis::Gamma, -1>},
    Control{"RightGammaCmd_Click", nullptr, Gira<Axis::Gamma, 1>},
    Control{"Thetatxt_KeyPress", nullptr, Angolo<Axis::Theta, &ViewPanel::Thetatxt>},
    Control{"Phitxt_KeyPress", nullptr, Angolo<Axis::Phi, &ViewPanel::Phitxt>},
    Control{"GammaTxt_KeyPress", nullptr, Angolo<Axis::Gamma, &ViewPanel::GammaTxt>},
    Control{"Zoomtxt_KeyPress", nullptr, Zoom},
    Control{"MaxZoomcmd_Click", nullptr, [](S& s, T) { s.view.passoZoom(ZoomStep); }},
    Control{"MinZoomcmd_Click", nullptr, [](S& s, T) { s.view.passoZoom(-ZoomStep); }},
    Control{"Oopt_Click", nullptr, [](S& s, T) { s.view.proietta(Projection::Orthographic); }},
    Control{"Popt_Click", nullptr, [](S& s, T) { s.view.proietta(Projection::Perspective); }},
    Control{"Mopt_Click", nullptr, [](S& s, T) { s.view.mappa(); }},
    Control{"TopViewCmd_Click", nullptr, DaSopra},
    Control{"ResCmd_Click", nullptr, [](S& s, T) { s.view.ricentra(); }},
    Control{"Oblique_Click", nullptr, [](S& s, T) { s.view.obliqua(); }},
    Control{"Frame_Click", nullptr, [](S& s, T) { s.view.inquadra(); }},
    Control{"MapColours_Click", nullptr, [](S& s, T) { s.view.alternaBanda(); }},
    Control{"MapLevel_Click", "Map Level", [](S& s, T) { s.view.chiediBanda(); }},
    Control{"Exaggeration_Click", "Vertical Exaggeration", [](S& s, T) { s.view.chiediEsagerazione(); }},
    Control{"SaveCmd_Click", "Save Current Picture", [](S& s, T) { s.salvaImmagine(); }},

    Control{"SHelectrodes_Click", nullptr, Alterna<&Layers::MostraElettrodi>},
    Control{"SH2ndGps_Click", nullptr, Alterna<&Layers::MostraGPS2>},
    Control{"SHdepth_Click", nullptr, Alterna<&Layers::MostraProfondita>},
    Control{"SHcolour_Click", nullptr, Alterna<&Layers::MostraScalaColori>},
    Control{"SHNord_Click", nullptr, Alterna<&Layers::MostraNord>},
    Control{"SHnames_Click", nullptr, Alterna<&Layers::MostraNomi>},
    Control{"SHgrid_Click", nullptr, Alterna<&Layers::MostraGriglia>},
    Control{"SHaxis_Click", nullptr, Alterna<&Layers::MostraAsse>},
    Control{"SHscale_Click", nullptr, Alterna<&Layers::MostraScala>},
    Control{"SHInfoLabel_Click", nullptr, Alterna<&Layers::MostraInfo>},
    Control{"SHtranslation_Click", nullptr, Alterna<&Layers::MostraTraslazione>}};

}  // namespace

std::span<const Control> Controls() { return Table; }

void EseguiControllo(Session& session, std::string_view name, const std::string& text) {
  const auto found = std::find_if(Table.begin(), Table.end(), [name](const Control& c) { return c.name == name; });
  if (found == Table.end()) throw std::out_of_range("no control " + std::string(name));
  if (found->command != nullptr) {
    session.findings().comincia(found->command);
  } else {
    session.findings().cominciaSeDetto(found->name);
  }
  found->run(session, text);
}

}  // namespace corvan
