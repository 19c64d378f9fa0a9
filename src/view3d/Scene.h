// The survey turned into points of the scene: the curtain of resistivity cells and the layers around it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Array1.h"
#include "survey/Misura.h"
#include "survey/Punto3D.h"
#include "survey/Survey.h"

namespace corvan {

/// The ten cells that hang below one measurement. They share two edges: half-way to the measurement before it and
/// half-way to the one behind it, or its own place where a line ends.
struct CellColumn {
  float x1 = 0, y1 = 0;                  ///< the edge towards the measurement before, m from the scene's origin
  float x2 = 0, y2 = 0;                  ///< the edge towards the one behind
  std::array<float, MaxChannels> rho{};  ///< apparent resistivity of levels 1..10, ohm m; NaN without a reading
  bool present = false;                  ///< the measurement has a position and is not left out
  ReadingSet escluse = 0;                ///< readings that show their outline alone
};

/// Cells are numbered c = 10 (i - 1) + k for measurement i and level k.
struct Curtain {
  Array1<CellColumn> columns;
  std::array<float, MaxChannels + 1> z{};  ///< height of the levels' edges, m: 0 at the surface, then downwards
  std::int32_t NQuad = 0;                  ///< number of the last cell

  /// Corner 1..4 of a cell: upper edge towards the measurement before and behind, then the lower edge back; w is the
  /// resistivity. Cells of a measurement without position are all zero.
  Punto3D QuadPunti(std::int32_t cell, std::size_t corner) const;
};

struct Scene {
  Curtain cells;
  double est0 = 0, nord0 = 0;          ///< the scene's origin on the survey's grid, m
  double esagerazione = 1;             ///< how many times as high as they are all heights are shown
  std::int32_t livelli = 0;            ///< levels of the curtain: the channels of a firing, at most 10
  std::vector<std::size_t> lineEnds;   ///< last measurement of each survey line (file of the batch)
  std::vector<std::string> lineNames;  ///< file names of the same lines, without folder
  std::vector<bool> placed;            ///< of each measurement, from 0: it has a position
  Array1<Punto3D> trajectory;          ///< one per measurement; w is the depth
  Array1<Punto3D> gps;                 ///< one per fix of the external track
  Array1<Punto3D> gpsDepth;            ///< the same at the depth that the track holds
  Array1<Punto3D> echoSounder;         ///< closed outline along the bottom, 2N + 1
  Array1<Punto3D> outline;             ///< of the section: along the surface and back along its bottom, 2N + 1
  Array1<Punto3D> northArrow;          ///< 18
  Array1<Punto3D> cable;               ///< 13 while the cable of a measurement is shown, else empty
};

/// Builds the cells.
void CreaFourArray(Scene& scene, const Survey& survey);

void GeneraTraiettoria(Scene& scene, const Survey& survey);
void GeneraGPS(Scene& scene, const Survey& survey);
void GeneraGPSD(Scene& scene, const Survey& survey);
/// Out along the trajectory with the depth translation, back without it: moving the profile leaves a trace of where it
/// was.
void GeneraEchoSounder(Scene& scene, const Survey& survey);
void GeneraContorno(Scene& scene, const Survey& survey);
/// @param L size of the window at zoom 1, m
void GeneraNordG(Scene& scene, double L);
/// The cable laid from (X, Y) along a slope; always towards increasing easting, whatever the sense of travel.
void GeneraCavoG(Scene& scene, const Survey& survey, double X, double Y, double Pendenza, bool Verticale);

/// The cable of measurement k along the line through its kept neighbours in the same file.
void GeneraCavoDiMisura(Scene& scene, const Survey& survey, std::size_t k);

}  // namespace corvan
