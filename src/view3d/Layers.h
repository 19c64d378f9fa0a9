// What the picture may show beside the cells, each with the names by which window, keys and command line know it.
#pragma once

#include <array>

namespace corvan {

/// Which layers are shown; the last is no layer of the picture but the two panels that move them.
struct Layers {
  bool MostraElettrodi = true;
  bool MostraGPS2 = false;
  bool MostraProfondita = false;
  bool MostraScalaColori = false;
  bool MostraNord = false;
  bool MostraNomi = true;
  bool MostraGriglia = true;
  bool MostraAsse = true;
  bool MostraScala = true;
  bool MostraInfo = true;
  bool MostraTraslazione = false;
};

struct LayerEntry {
  bool Layers::*flag;
  const char* name;     ///< of its menu item
  const char* caption;  ///< of its menu item
  const char* key;
  const char* word;  ///< on the command line; none where it has no option
};

inline constexpr std::array LayerTable{
    LayerEntry{&Layers::MostraElettrodi, "SHelectrodes", "Show/Hide Floating Electrodes", "F2", "electrodes"},
    LayerEntry{&Layers::MostraGPS2, "SH2ndGps", "Show/Hide 2nd GPS", "F3", "gps"},
    LayerEntry{&Layers::MostraProfondita, "SHdepth", "Show/Hide Depth Profile", "F4", "depth"},
    LayerEntry{&Layers::MostraScalaColori, "SHcolour", "Show/Hide Colour Scale", "F5", "scale"},
    LayerEntry{&Layers::MostraNord, "SHNord", "Show/Hide Nord Arrow", "F6", "north"},
    LayerEntry{&Layers::MostraNomi, "SHnames", "Show/Hide Line Names", "Shift+F2", "names"},
    LayerEntry{&Layers::MostraGriglia, "SHgrid", "Show/Hide Map Grid", "Shift+F3", "grid"},
    LayerEntry{&Layers::MostraAsse, "SHaxis", "Show/Hide Depth Axis", "Shift+F4", "axis"},
    LayerEntry{&Layers::MostraScala, "SHscale", "Show/Hide Scale Bar", "Shift+F5", nullptr},
    LayerEntry{&Layers::MostraInfo, "SHInfoLabel", "Show/Hide Info Label", "F7", nullptr},
    LayerEntry{&Layers::MostraTraslazione, "SHtranslation", "Show/Hide Translation Panel", "F8", nullptr}};

}  // namespace corvan
