#include "input/Originals.h"

#include <array>
#include <cstddef>

#include "input/ColumnReader.h"
#include "input/InputDriver.h"
#include "input/TrackFile.h"
#include "survey/RecordSyscalPro.h"

namespace corvan {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view Signature = "\x02\0\0\x80"sv;
constexpr std::string_view OwnSequence = "\0myseq      "sv;  // only files of our own carry it
static_assert(OwnSequence.size() == SequenzaLength);

bool FileDelloStrumento(std::string_view bytes) {
  if (bytes.substr(0, Signature.size()) != Signature) return false;
  const bool ownWithoutRecords = bytes.size() == HeaderLength && bytes.back() == '\x01';
  if (ownWithoutRecords) return false;
  constexpr std::size_t sequence = FirstRecord + campo::Sequenza;
  return bytes.size() < sequence || bytes.substr(sequence, SequenzaLength) != OwnSequence;
}

/// The table of the bottom, which this program writes, begins with the word of text exports.
constexpr std::string_view OwnBottom = "distance,easting,northing,";

bool EsportazioneDiTesto(std::string_view text) {
  if (text.starts_with(OwnBottom)) return false;
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.substr(0, mark.size()) == mark) text.remove_prefix(mark.size());
  return TestataDiTesto(text);
}

template <TrackKind Wanted>
bool Traccia(std::string_view text) {
  return GenereDaContenuto(text) == Wanted;
}

bool TestoAColonne(std::string_view text) { return InizioColonne(text) == ColumnStart::Named; }

struct Kind {
  bool (*shows)(std::string_view beginning);
  const char* name;
};

// Every further format that is read adds its row here.
constexpr std::array Kinds{Kind{FileDelloStrumento, "an instrument's file"},
                           Kind{EsportazioneDiTesto, "an instrument's text export"},
                           Kind{Traccia<TrackKind::Nmea>, "an NMEA 0183 log"},
                           Kind{Traccia<TrackKind::SixColumns>, "a track of six columns"},
                           Kind{Traccia<TrackKind::Csv>, "a track's table of positions"},
                           Kind{Traccia<TrackKind::Gpx>, "a GPX track"},
                           Kind{TestoAColonne, "a column text"}};

}  // namespace

std::string Originale(std::string_view beginning) {
  for (const Kind& kind : Kinds) {
    if (kind.shows(beginning)) return kind.name;
  }
  return "";
}

}  // namespace corvan
