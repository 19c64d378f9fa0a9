// From where the survey is looked at: angles, zoom, window, projection and which layers are shown.
#pragma once

#include <cstdint>

#include "base/Rounding.h"
#include "picture/Pixels.h"
#include "survey/Punto3D.h"
#include "survey/Survey.h"
#include "view3d/Layers.h"

namespace corvan {

/// Edges of a view window, m. zmin falls on the top row of the picture: a larger z is drawn lower.
template <class Number>
struct ViewWindow {
  Number xmin = 0, xmax = 0, zmin = 0, zmax = 0;
};

enum class Projection { Orthographic, Perspective };

/// What the mouse dragged and from where.
struct ViewDrag {
  double AngoloVista0 = Pi / 2, AngoloPhi0 = 0, AngoloGamma0 = 0;  ///< the angles when the drag began, rad
  float XDown = 0, XNow = 0, YDown = 0, YNow = 0;                  ///< where it began and where the mouse is, pixels
  std::int32_t YZoomDown = 0, YZoomNow = 0;                        ///< the same of a zoom drag
  float LogZoom0 = 0;                                              ///< the zoom's decimal logarithm when it began
  ViewWindow<double> base;                                         ///< FinestraBase when it began
};

/// The perspective marker and the vanishing point that it gives.
struct ViewMarker {
  double MarcatoreX = 0, MarcatoreY = 0;  ///< the marker in its own units, see UnitaMarcatore
  bool posto = false;                     ///< the user has placed it
  float FugaX = 0;                        ///< vanishing point, m
  float OrizzonteZ = 0;                   ///< height of the horizon, m
  float DistanzaFuga = 0;                 ///< from the left edge of FinestraIniziale to the vanishing point, m
  float OrizzonteMin = 0, OrizzonteMax = 0.01F;
};

/// The map's band: what a curtain seen from above shows instead of its edge.
struct MapColours {
  std::int32_t livello = 1;    ///< level whose resistivities colour the track, 1..10; 0: no band
  std::int32_t larghezza = 0;  ///< pixels across; 0: as fits the picture
};

struct ViewState {
  double AngoloVista = Pi / 2;  ///< theta, about the X axis, rad; pi/2 is the map view
  double AngoloPhi = 0;         ///< phi, about the Z axis, rad
  double AngoloGamma = 0;       ///< gamma, about the Y axis, rad
  float ZoomFattore = 1;        ///< a larger one shows more of the survey
  Projection projection = Projection::Orthographic;

  Punto3D CentroVista;                 ///< centre of rotation: the scene's origin
  float Lato = 0.01F;                  ///< L: the survey's larger extent, m
  ViewWindow<double> FinestraBase;     ///< at zoom 1
  ViewWindow<float> FinestraIniziale;  ///< the same, before it was moved; for the perspective
  ViewWindow<float> Finestra;          ///< at the current zoom
  PixelArea AreaPixel{0, 1280, 0, 800};

  ViewDrag drag;
  ViewMarker marker;
  MapColours mappa;
  Layers layers;
};

/// Angles, zoom and layers back to those of the start; window, drawing area, projection and the map's band stay.
void AzzeraVista(ViewState& view);

/// How many times as high as L the window is before its lower edge is moved down by a tenth of it: from 1.15 on, or as
/// much as the legend and the line of the caption need below the survey, to 1.7 in very small pictures.
double Margine(const PixelArea& area);

/// The window at zoom 1 around the survey, of which L is the larger extent (at least 10 m). A metre has the same number
/// of pixels on both axes at every zoom: the window is wider than its own height asks for, since AggiornaZoom makes it
/// higher. Seen from above the survey keeps a margin to all sides, below it a band for the legend, and
/// in a picture higher than wide it is not cut at the sides.
void ImpostaFinestra(ViewState& view, const TrackExtent& extent);

/// The window at the current zoom. Its lower edge lies 1.2 times as far from the middle as the upper one, which leaves
/// a band free at the bottom of the picture.
void AggiornaZoom(ViewState& view);

/// The window at zoom 1, laid elsewhere by so many metres of the picture's plane.
void SpostaBase(ViewState& view, const ViewWindow<double>& from, double east, double down);

/// The picture has another size: what stood in its middle stays there, and the marker keeps its share of the picture.
void AdattaArea(ViewState& view, const PixelArea& area, const TrackExtent& extent);

/// The vanishing point from the perspective marker's end point (X1, Y1), which counts quarter pixels from the far
/// edges: see UnitaMarcatore. Without a marker placed by the user it is that of one in the middle of the picture.
void ImpostaProspettiva(ViewState& view);

/// The marker's own units for a pixel coordinate p of a picture that ends at `far`: 4 x units - far = p.
inline double UnitaMarcatore(double p, std::int32_t far) { return (p + far) / 4.0; }

/// What the mouse turns during a drag.
enum class DragAxis { Theta, Gamma, None };

/// The angles of a drag from (XDown, YDown) to (XNow, YNow): across the whole picture 2 pi. The three flags are the
/// boxes that let the mouse turn an angle.
struct FreeAngles {
  bool theta = true, phi = true, gamma = true;
};
void CalcolaThetaPhi(ViewState& view, DragAxis axis, const FreeAngles& free);

/// The zoom of a drag from YZoomDown to YZoomNow: from the top to the bottom edge 100 times. Not held to 0.1..10.
void CalcolaZoom(ViewState& view);

/// A tenth of a decade more or less, held to 0.1..10.
void PassoZoom(ViewState& view, double decades);

/// One of the angles changed by a number of degrees, held to -180..180.
void PassoAngolo(double& angle, double degrees);

constexpr double InRadianti(double degrees) { return degrees * Pi / 180.0; }
constexpr double InGradi(double radians) { return radians * 180.0 / Pi; }

}  // namespace corvan
