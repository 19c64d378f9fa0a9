#include "cli/PictureOptions.h"

#include <algorithm>
#include <map>
#include <optional>
#include <vector>

#include "base/NumberText.h"
#include "base/PathText.h"
#include "cli/Validators.h"
#include "paint/ImageCanvas.h"
#include "paint/PictureFile.h"

namespace corvan::cli {
namespace {

constexpr int LargestSide = 20000;  // pixels

/// Width and height of "WxH"; zeros when it is no size.
PuntoPixel Dimensioni(const std::string& size) {
  const std::size_t at = size.find('x');
  if (at == std::string::npos) return {};
  const auto side = [](const std::string& text) {
    const bool digits = !text.empty() && text.size() <= 5 && text.find_first_not_of("0123456789") == std::string::npos;
    return digits ? std::stoi(text) : 0;
  };
  const PuntoPixel sides{side(size.substr(0, at)), side(size.substr(at + 1))};
  const bool fits = sides.X >= 1 && sides.X <= LargestSide && sides.Y >= 1 && sides.Y <= LargestSide;
  return fits ? sides : PuntoPixel{};
}

CLI::Validator Dimensione() {
  return {[](std::string& text) -> std::string {
            return Dimensioni(text).X > 0
                       ? ""
                       : "\"" + text + "\" is not WxH with sides of 1 to " + std::to_string(LargestSide) + " pixels";
          },
          "WxH"};
}

CLI::Validator Positivo() {
  return {[](std::string& text) -> std::string {
            return SoloNumero(text) && Val(text) > 0.0 ? "" : "\"" + text + "\" is not a number greater than 0";
          },
          "NUMBER"};
}

/// Level and width of "K" or "K,PIXELS"; none when it is neither.
std::optional<MapColours> Banda(const std::string& text) {
  const std::size_t comma = text.find(',');
  const auto number = [](const std::string& digits, const BoxNumber& box) -> std::optional<std::int32_t> {
    if (digits.empty() || digits.size() > 3 || digits.find_first_not_of("0123456789") != std::string::npos) return {};
    const std::int32_t value = std::stoi(digits);
    return value <= box.high ? std::optional(value) : std::nullopt;
  };
  const auto level = number(text.substr(0, comma), BandLevelBox);
  const auto width = comma == std::string::npos ? std::optional(0) : number(text.substr(comma + 1), BandWidthBox);
  if (!level || !width || (comma != std::string::npos && *width == 0)) return std::nullopt;
  return MapColours{*level, *width};
}

CLI::Validator LivelloMappa() {
  return {[](std::string& text) -> std::string {
            return Banda(text) ? ""
                               : "\"" + text + "\" is not a level of 0 to 10, or one and a width of 1 to 200 pixels";
          },
          "K[,PIXELS]"};
}

CLI::Validator Esagerazione() {
  return {[](std::string& text) -> std::string {
            const bool in = SoloNumero(text) && Val(text) >= ExaggerationBox.low && Val(text) <= ExaggerationBox.high;
            return in ? "" : "\"" + text + "\" is not a number of 0.001 to 1000";
          },
          "NUMBER"};
}

void Ruota(Session& session, Axis axis, const std::string& text) {
  if (text.empty()) return;
  const auto degrees = NumeroDaCasella<double>(text, AngleBox, session.findings());
  if (degrees) session.view.ruota(axis, *degrees);
}

void ImpostaVista(Session& session, const PictureOptions& options) {
  Ruota(session, Axis::Theta, options.theta);
  Ruota(session, Axis::Phi, options.phi);
  Ruota(session, Axis::Gamma, options.gamma);
  if (!options.zoom.empty()) {
    const auto zoom = NumeroDaCasella<float>(options.zoom, ZoomBox, session.findings());
    if (zoom) session.view.zoom(*zoom);
  }
  if (options.projection) session.view.proietta(*options.projection);
  const std::vector<std::string> layers = Voci(options.layers);
  for (const LayerEntry& layer : LayerTable) {
    if (layer.word == nullptr || options.layers.empty()) continue;
    session.view.mostra(layer.flag, std::find(layers.begin(), layers.end(), layer.word) != layers.end());
  }
  if (const std::optional<MapColours> band = Banda(options.mapLevel)) session.view.mostraBanda(*band);
  if (!options.exaggeration.empty()) session.view.esagera(Val(options.exaggeration));
}

}  // namespace

CLI::Validator FileImmagine() {
  return {[](std::string& text) -> std::string {
            return NomeImmagine(text) ? "" : "\"" + text + "\" does not end in .bmp or .png";
          },
          "FILE", Offerta("endings", {"png", "bmp"})};
}

QImage CreaImmagine(Session& session, const std::string& size, const std::string& file) {
  const PuntoPixel sides = Dimensioni(size);
  QImage image = corvan::CreaImmagine(sides.X, sides.Y);
  if (image.isNull()) {
    session.findings().fault("SalvaImmagine", "not written: a picture of " + size + " does not fit into memory", file);
  }
  return image;
}

void AggiungiImmagine(CLI::App& command, PictureOptions& o) {
  CLI::Option* picture = command.add_option("--picture", o.file, "Write the picture of the survey, as .bmp or .png")
                             ->check(FileImmagine())
                             ->type_name("FILE");
  command.add_option("--size", o.size, "Size of the picture in pixels (default 1280x800)")
      ->check(Dimensione())
      ->type_name("WxH");
  command.add_option("--theta", o.theta, "Rotation about the X axis, degrees (default 90: the map view)")
      ->check(Numero())
      ->type_name("D");
  command.add_option("--phi", o.phi, "Rotation about the Z axis, degrees (default 0)")->check(Numero())->type_name("D");
  command.add_option("--gamma", o.gamma, "Rotation about the Y axis, degrees (default 0)")
      ->check(Numero())
      ->type_name("D");
  command.add_option("--zoom", o.zoom, "Zoom factor; a larger one shows more (default 1)")
      ->check(Positivo())
      ->type_name("F");
  const std::map<std::string, Projection> projections{{"orthographic", Projection::Orthographic},
                                                      {"perspective", Projection::Perspective}};
  command.add_option("--projection", o.projection, "Projection of the picture (default orthographic)")
      ->transform(CLI::Transformer(projections))
      ->type_name("orthographic|perspective");
  command
      .add_option(
          "--layers", o.layers,
          "Comma-separated list of electrodes, gps, depth, scale, north, names, grid, axis (default electrodes)")
      ->check(Elenco({"electrodes", "gps", "depth", "scale", "north", "names", "grid", "axis"}))
      ->type_name("LIST");
  command
      .add_option(
          "--map-level", o.mapLevel,
          "Level that colours the track seen from above, 0 for none, and the width of its band in pixels (default 1)")
      ->check(LivelloMappa())
      ->needs(picture)
      ->type_name("K[,PIXELS]");
  command.add_option("--exaggeration", o.exaggeration, "Heights of the curtain so many times as high (default 1)")
      ->check(Esagerazione())
      ->needs(picture)
      ->type_name("F");
  command.add_flag("--no-caption", o.noCaption, "Leave out the small line that explains the picture");
}

void FaiImmagine(Session& session, const PictureOptions& options) {
  if (options.file.empty()) return;
  ImpostaVista(session, options);
  QImage image = CreaImmagine(session, options.size, options.file);
  if (image.isNull()) return;
  ImageCanvas canvas(image);
  session.view.picture().tela(&canvas);
  session.view.picture().dipingiSu(canvas, options.noCaption ? Caption() : session.view.didascalia());
  session.exporter.immagine(PercorsoDi(options.file), [&] { return ComponiImmagine(image, options.file); });
  session.view.picture().tela(nullptr);
}

}  // namespace corvan::cli
