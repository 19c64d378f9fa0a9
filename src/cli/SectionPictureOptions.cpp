#include "cli/SectionPictureOptions.h"

#include <algorithm>
#include <map>
#include <vector>

#include "base/PathText.h"
#include "cli/PictureOptions.h"
#include "cli/Validators.h"
#include "paint/ImageCanvas.h"
#include "paint/PictureFile.h"

namespace corvan::cli {
namespace {

/// In the order of Curve.
const std::vector<std::string>& NomiCurve() {
  static const std::vector<std::string> names{"current", "potential", "resistivity", "depth", "speed", "time"};
  return names;
}

}  // namespace

void AggiungiSezionePiana(CLI::App& command, SectionPictureOptions& o) {
  CLI::Option* picture =
      command
          .add_option("--section-picture", o.file,
                      "Write the section laid flat, distance to the right and depth downwards, as .bmp or .png")
          ->check(FileImmagine())
          ->type_name("FILE");
  const std::map<std::string, DepthAxis> depths{{"metres", DepthAxis::Metres}, {"levels", DepthAxis::Levels}};
  command.add_option("--section-depth", o.depth, "Vertical axis of the flat section (default metres)")
      ->transform(CLI::Transformer(depths))
      ->needs(picture)
      ->type_name("metres|levels");
  command
      .add_option("--curves", o.curves,
                  "Curves below the flat section: comma-separated list of current, potential, resistivity, depth, "
                  "speed, time (default none)")
      ->check(Elenco(NomiCurve()))
      ->needs(picture)
      ->type_name("LIST");
}

void FaiSezionePiana(Session& session, const SectionPictureOptions& options, const SectionPicture& picture) {
  if (options.file.empty()) return;
  SectionDesk& section = session.section;
  if (options.depth) section.misura(*options.depth);
  const std::vector<std::string> curves = Voci(options.curves);
  for (std::size_t k = 0; k < Curves && !options.curves.empty(); ++k) {
    section.mostra(static_cast<Curve>(k), std::find(curves.begin(), curves.end(), NomiCurve().at(k)) != curves.end());
  }
  section.impostaOffset(picture.cableOffset);
  QImage image = CreaImmagine(session, picture.size, options.file);
  if (image.isNull()) return;
  ImageCanvas canvas(image);
  section.dipingi(canvas, picture.caption);
  session.exporter.immagine(PercorsoDi(options.file), [&] { return ComponiImmagine(image, options.file); });
}

}  // namespace corvan::cli
