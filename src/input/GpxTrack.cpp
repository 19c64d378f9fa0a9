// GPX tracks: points with time, position and depth.
#include <algorithm>
#include <cmath>
#include <pugixml.hpp>
#include <string>
#include <utility>
#include <vector>

#include "base/DateText.h"
#include "base/Errors.h"
#include "base/NumberCheck.h"
#include "base/OleDate.h"
#include "base/Text.h"
#include "geo/AngleText.h"
#include "input/GpxText.h"
#include "input/NmeaWalk.h"
#include "input/TrackFields.h"
#include "input/TrackFile.h"
#include "input/TrackSteps.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "LeggiGPSEsterno";

/// The name without its prefix.
std::string_view Nome(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  return name.substr(name.find(':') + 1);  // npos + 1 is 0
}

bool Chiamato(const pugi::xml_node& node, std::string_view name) { return Nome(node) == name; }

pugi::xml_node Figlio(const pugi::xml_node& of, std::string_view name) {
  return of.find_child([name](const pugi::xml_node& node) { return Chiamato(node, name); });
}

/// The first element of a depth below a point: its own or one of its extensions'.
pugi::xml_node Profondita(const pugi::xml_node& point, int levels) {
  for (const pugi::xml_node& node : point.children()) {
    if (Maiuscolo(Nome(node)) == "DEPTH") return node;
    if (levels == 0 || node.type() != pugi::node_element) continue;
    if (const pugi::xml_node found = Profondita(node, levels - 1)) return found;
  }
  return {};
}

/// The points of a document as fixes.
class GpxPoints {
 public:
  GpxPoints(std::string_view text, const TrackOptions& options) : lines_(text), layout_(options.layout) {
    read_.kind = TrackKind::Gpx;
  }

  /// @param broken the document ends before its end: what the last point tells may be cut
  void documento(const pugi::xml_node& gpx, bool broken) {
    for (const pugi::xml_node& track : gpx.children()) {
      if (Chiamato(track, "wpt") || Chiamato(track, "rte")) ++others_;
      if (!Chiamato(track, "trk")) continue;
      for (const pugi::xml_node& segment : track.children()) {
        if (Chiamato(segment, "trkseg")) segmento(segment);
      }
    }
    if (broken && last_) {
      read_.fixes.resize(read_.fixes.size() - 1);
      fixLines_.pop_back();
      if (lastTimeless_) --timeless_.count;
    }
    chiudi();
  }

  TrackRead& read() { return read_; }

 private:
  void segmento(const pugi::xml_node& segment) {
    const std::size_t before = points_;
    for (const pugi::xml_node& point : segment.children()) {
      if (Chiamato(point, "trkpt")) punto(point);
    }
    segments_ += points_ > before ? 1U : 0U;
  }

  void punto(const pugi::xml_node& point) {
    ++points_;
    line_ = lines_(static_cast<std::size_t>(std::max<std::ptrdiff_t>(point.offset_debug(), 0)));
    PuntoGPSEst fix;
    last_ = lastTimeless_ = false;
    if (!posizione(point, fix) || !tempo(point, fix)) return;
    last_ = true;
    lastTimeless_ = fix.DataOra == 0.0;
    profondita(point, fix);
    read_.fixes.append(fix);
    fixLines_.push_back(line_);
  }

  /// The number of a text; one that is too large is none that can be used.
  double numero(std::string_view text) {
    try {
      return numbers_.leggi(text, line_);
    } catch (const RunTimeError&) {
      return HUGE_VAL;
    }
  }

  bool posizione(const pugi::xml_node& point, PuntoGPSEst& fix) {
    const double latitude = numero(point.attribute("lat").value()), longitude = numero(point.attribute("lon").value());
    if (latitude == 0.0 || longitude == 0.0) {
      withoutPosition_.add(line_);
      return false;
    }
    if (!(std::abs(latitude) <= 90.0 && std::abs(longitude) <= 180.0)) {
      beyond_.add(line_);
      return false;
    }
    fix.sorgente = Geographic{latitude, longitude};
    fix.GeoA = NumeroDaGradi(latitude, layout_);
    fix.GeoB = NumeroDaGradi(longitude, layout_);
    return true;
  }

  /// @return false where the point tells a time that is none
  bool tempo(const pugi::xml_node& point, PuntoGPSEst& fix) {
    const std::string_view text = Figlio(point, "time").child_value();
    if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
      timeless_.add(line_);
      return true;  // whether it is kept depends on the others
    }
    try {
      const std::size_t first = text.find_first_not_of(" \t\r\n"), last = text.find_last_not_of(" \t\r\n");
      fix.DataOra = IstanteDaTesto(text.substr(first, last - first + 1));
    } catch (const RunTimeError&) {
      fix.DataOra = 0;
    }
    if (TempoValido(fix.DataOra)) return true;
    noTime_.add(line_);
    return false;
  }

  void profondita(const pugi::xml_node& point, PuntoGPSEst& fix) {
    constexpr int extensions = 3;  // extensions, a maker's element, the depth
    const std::string_view text = Profondita(point, extensions).child_value();
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return;
    const std::string_view depth = text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
    try {
      if (CercaNumero(depth).end == nullptr) throw RunTimeError("no number");
      fix.Prof = numbers_.leggi(depth, line_);
      fix.haProf = true;
    } catch (const RunTimeError&) {
      noDepth_.add(line_);
    }
  }

  /// Points without a time are fixes only where no point has one.
  void chiudi() {
    const std::size_t timeless = timeless_.count;
    const bool undated = timeless == read_.fixes.size();
    if (timeless > 0 && !undated) {
      Array1<PuntoGPSEst> timed;
      std::vector<std::size_t> lines;
      for (std::size_t k = 1; k <= read_.fixes.size(); ++k) {
        if (read_.fixes(k).DataOra == 0.0) continue;
        timed.append(read_.fixes(k));
        lines.push_back(fixLines_[k - 1]);
      }
      read_.fixes = std::move(timed);
      fixLines_ = std::move(lines);
    }
    rileva(undated);
  }

  void rileva(bool undated) {
    Findings& findings = read_.findings;
    const auto left = [](const Counted& points, const std::string& what) {
      return Quanti(points.count, "point ", "points ") + what + " left out" + Dove(points.count, points.line);
    };
    if (numbers_.count() > 0) findings.fault(Procedure, numbers_.detto());
    if (beyond_.count > 0) {
      findings.fault(Procedure, left(beyond_, "with a latitude over 90 or a longitude over 180 degrees"));
    }
    if (noTime_.count > 0) findings.fault(Procedure, left(noTime_, "whose time is none of 1980 to 2100"));
    if (undated && !read_.fixes.empty()) {
      findings.fault(Procedure, "no point tells its time: nothing can be linked by time");
    } else if (timeless_.count > 0) {
      findings.fault(Procedure, left(timeless_, "without a time"));
    }
    if (noDepth_.count > 0) {
      findings.fault(Procedure, Quanti(noDepth_.count, "depth is no number", "depths are no numbers") +
                                    Dove(noDepth_.count, noDepth_.line) +
                                    (noDepth_.count == 1 ? ": its fix has none" : ": their fixes have none"));
    }
    if (!undated) {
      if (const std::string fast = PassiVeloci(read_.fixes, fixLines_); !fast.empty()) findings.fault(Procedure, fast);
    }
    if (withoutPosition_.count > 0) findings.note(Procedure, left(withoutPosition_, "without a position"));
    const auto deep = std::count_if(read_.fixes.begin(), read_.fixes.end(), [](const auto& f) { return !f.haProf; });
    if (deep > 0) {
      findings.note(Procedure,
                    QuantiDi(static_cast<std::size_t>(deep), read_.fixes.size(), "fix", "fixes") + " no depth");
    }
    if (segments_ > 1) findings.note(Procedure, std::to_string(segments_) + " segments are read as one track");
    if (others_ > 0)
      findings.note(Procedure, Quanti(others_, "waypoint or route", "waypoints and routes") + " not read");
  }

  LineOf lines_;
  AngleFormat layout_;
  TrackRead read_;
  std::vector<std::size_t> fixLines_;
  std::size_t points_ = 0, segments_ = 0, others_ = 0;
  std::size_t line_ = 0;
  bool last_ = false, lastTimeless_ = false;  // the point read last became a fix, one without a time
  NumberCheck numbers_;
  Counted withoutPosition_, beyond_, timeless_, noTime_, noDepth_;
};

/// A document type with declarations of its own, which could hold entities that grow without end.
bool DichiaraTipo(const pugi::xml_document& document) {
  const auto declares = [](const pugi::xml_node& node) {
    return node.type() == pugi::node_doctype && std::string_view(node.value()).find('[') != std::string_view::npos;
  };
  return static_cast<bool>(document.find_child(declares));
}

}  // namespace

bool SembraGpx(std::string_view content) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (content.starts_with(mark)) content.remove_prefix(mark.size());
  constexpr std::size_t enough = std::size_t{1} << 16;
  content = content.substr(0, enough);
  const std::size_t first = content.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos || content[first] != '<') return false;
  for (std::size_t at = first; at != std::string_view::npos; at = content.find('<', at + 1)) {
    std::string_view rest = content.substr(at + 1);
    if (rest.starts_with("!--")) {
      at = content.find("-->", at);
      if (at == std::string_view::npos) return false;
      continue;
    }
    if (rest.starts_with("?") || rest.starts_with("!")) continue;
    std::string_view name = rest.substr(0, rest.find_first_of(" \t\r\n/>"));
    return name.substr(name.find(':') + 1) == "gpx" || content.substr(first).starts_with("<!DOCTYPE gpx");
  }
  return false;
}

std::size_t LineOf::operator()(std::size_t offset) {
  for (const std::size_t end = std::min(offset, text_.size()); at_ < end; ++at_) {
    const bool pair = text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n';
    if (text_[at_] == '\n' || (text_[at_] == '\r' && !pair)) ++line_;
  }
  return line_;
}

TrackRead LeggiFileGpx(std::string_view content, const TrackOptions& options) {
  GpxPoints points(content, options);
  TrackRead& read = points.read();
  read.lines = LineOf(content)(content.size());
  if (content.ends_with('\n') || content.ends_with('\r')) --read.lines;
  pugi::xml_document document;
  // Taken as UTF-8 whatever it declares: nothing that is read is other than ASCII, and places stay those of the file.
  const pugi::xml_parse_result parsed = document.load_buffer(
      content.data(), content.size(), pugi::parse_default | pugi::parse_doctype, pugi::encoding_utf8);
  if (DichiaraTipo(document)) {
    read.findings.fault(Procedure, "its document type declares entities or elements of its own: nothing is read");
    return std::move(read);
  }
  const pugi::xml_node root = document.document_element();
  if (!parsed) {
    const auto offset = static_cast<std::size_t>(std::max<std::ptrdiff_t>(parsed.offset, 0));
    read.findings.fault(Procedure, "the XML is broken in line " + std::to_string(LineOf(content)(offset)) + " (" +
                                       parsed.description() + "): the point there and what follows are not read");
  }
  if (!root || !Chiamato(root, "gpx")) {
    read.findings.fault(Procedure, "the first element is not gpx: nothing is read");
    return std::move(read);
  }
  points.documento(root, !parsed);
  return std::move(read);
}

}  // namespace corvan
