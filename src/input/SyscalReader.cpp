#include "input/SyscalReader.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>
#include <utility>

#include "base/ErrorTrap.h"
#include "base/Fields.h"
#include "base/NumberCheck.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "input/FiringBuilder.h"
#include "input/RecordBorders.h"
#include "input/RecordExtent.h"
#include "input/SyscalFile.h"
#include "input/SyscalFindings.h"

namespace corvan {
namespace {

constexpr std::size_t FirstLook = 4096;  // records from which the rest of a file is foreseen
constexpr int MostLooks = 6;             // an unchanged file is understood after four at most

/// What the records of a file, or its first ones, say before any firing is built.
struct Look {
  RecordExtent extent;
  BorderStatistics borders;

  Look(const SyscalFile& file, const BorderRule& rule) : extent(file), borders(rule, file) {}
  void prendi(const RecordWalk& walk) {
    extent.prendi(walk.number(), walk.record());
    borders.prendi(walk.number(), walk.record());
  }
};

/// Looks at records 1 to `count` under a rule and again until it is the one that they ask for.
Look Guarda(const SyscalFile& file, std::size_t count, BorderRule rule) {
  for (int looks = 0; looks < MostLooks; ++looks) {
    Look look(file, rule);
    RecordWalk walk(file, 1, count);
    while (walk.next()) look.prendi(walk);
    look.borders.fine();
    BorderRule asked = look.borders.rule(file);
    if (asked == rule) return look;
    rule = std::move(asked);
  }
  throw FileError(file.path(), "was written to while it was read");
}

/// Records of a firing unless somebody says otherwise.
std::size_t Consueto(const Look& look) { return look.borders.usual().value_or(look.extent.counted()); }

Grouping Raggruppa(const Look& look, ReadSpan span, std::size_t number) {
  Grouping grouping;
  grouping.rule = look.borders.pairs().rule();
  grouping.first = look.extent.PrimoValido();
  const bool past = span == ReadSpan::PastLostFixes && look.extent.anyFix();
  grouping.last = past ? look.extent.lastFix() : look.extent.UltimoValido();
  grouping.leading = grouping.first > 1;
  grouping.number = number;
  grouping.grid = look.borders.usual() != number;
  grouping.highBits = look.borders.highBits();
  grouping.longRuns = look.borders.longRuns();
  return grouping;
}

/// Firings built by one would be those built by the other.
bool Concordi(const Grouping& a, const Grouping& b) {
  return a.rule == b.rule && a.first == b.first && a.last == b.last && a.number == b.number && a.grid == b.grid &&
         a.highBits == b.highBits && a.longRuns.empty() && b.longRuns.empty();
}

/// Where firings go.
struct Receiver {
  MisuraSink take;
  std::function<void()> restart;                   ///< what it took is void; never set: it takes firings only once
  std::function<void(std::size_t)> announce = {};  ///< about how many will come
};

class SyscalReading {
 public:
  SyscalReading(const std::filesystem::path& path, const ReadOptions& options, const Receiver& receiver,
                FileReport& report)
      : file_(path), options_(options), receiver_(receiver), report_(report) {}

  void leggi();

 private:
  void riassumi();
  bool prevedi(const Look& beginning);
  void costruisci();
  bool chiediCanali();
  void concludi();

  SyscalFile file_;
  const ReadOptions& options_;
  const Receiver& receiver_;
  FileReport& report_;
  std::optional<Look> look_;
  Grouping grouping_;
  std::size_t number_ = 0;
  std::optional<FiringBuilder> builder_;
};

void SyscalReading::leggi() {
  const auto& restart = receiver_.restart;
  riassumi();
  if (file_.size() == 0) return;
  Look beginning = Guarda(file_, std::min(FirstLook, file_.size()), {});
  const BorderRule foreseen = beginning.borders.pairs().rule();
  const bool built = restart && file_.size() > FirstLook && prevedi(beginning);
  if (file_.size() <= FirstLook) {
    look_.emplace(std::move(beginning));
  } else if (!built || look_->borders.rule(file_) != foreseen) {
    look_.emplace(Guarda(file_, file_.size(), foreseen));
  }
  if (look_->extent.otherKind()) throw FileError(file_.path(), "is neither a Syscal file nor a text export");
  file_.requireUnchanged();
  if (!chiediCanali()) {
    if (restart) restart();
    return;
  }
  Grouping grouping = Raggruppa(*look_, options_.span, number_);
  if (!built || builder_->overrun() || !Concordi(grouping, grouping_)) {
    if (restart) restart();
    grouping_ = std::move(grouping);
    costruisci();
  }
  concludi();
}

void SyscalReading::riassumi() {
  FileSummary& summary = report_.summary;
  summary.format = "syscal";
  summary.recordLength = file_.length();
  summary.records = file_.size();
  report_.HeaderBin = file_.header();
  RilieviFile(file_, report_.findings);
}

/// Builds the firings of the whole file as its beginning foresees them and looks at all records on the way.
/// @return false when the beginning foresees nothing
bool SyscalReading::prevedi(const Look& beginning) {
  if (!beginning.extent.anyFix() || !beginning.borders.usual()) return false;
  grouping_ = Raggruppa(beginning, options_.span, Consueto(beginning));
  grouping_.last = file_.size();
  grouping_.longRuns.clear();
  if (receiver_.announce) receiver_.announce(file_.size() / grouping_.number + 1);
  look_.emplace(file_, grouping_.rule);
  builder_.emplace(file_, grouping_, options_, receiver_.take);
  RecordWalk walk(file_, 1, file_.size());
  while (walk.next()) {
    look_->prendi(walk);
    if (walk.number() >= grouping_.first) builder_->prendi(walk, look_->borders.pairs());
  }
  look_->borders.fine();
  builder_->fine();
  return true;
}

void SyscalReading::costruisci() {
  builder_.emplace(file_, grouping_, options_, receiver_.take);
  RecordPairs pairs(grouping_.rule, file_);
  RecordWalk walk(file_, grouping_.first, grouping_.last);
  while (walk.next()) {
    pairs.prendi(walk.record());
    builder_->prendi(walk, pairs);
  }
  builder_->fine();
}

/// Settles the number of records of a firing. @return false for an answer that is none
bool SyscalReading::chiediCanali() {
  const auto usual = static_cast<std::int32_t>(
      std::min<std::size_t>(Consueto(*look_), static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())));
  report_.largestChannel = look_->extent.MaxCanale();
  std::int32_t channels = usual;
  if (usual != report_.largestChannel && options_.channels) {
    const std::string answer = options_.channels(usual);
    try {
      if (!Rifila(answer).empty()) channels = AInt16(Val(answer));
      if (channels < 1) throw RunTimeError("channel number " + std::to_string(channels) + " is not 1 or more");
    } catch (const RunTimeError& error) {
      report_.findings.fault(SyscalProcedure, error.what());
      return false;
    }
    if (!Rifila(answer).empty() && !SoloNumero(answer)) {
      report_.findings.note(SyscalProcedure, "the channel number " + Citazione(answer) +
                                                 " is no number from end to end: read as " + std::to_string(channels));
    }
  }
  number_ = static_cast<std::size_t>(channels);
  report_.summary.channels = channels;
  return true;
}

void SyscalReading::concludi() {
  file_.requireUnchanged();
  report_.summary.firings = builder_->tally().firings;
  RilieviScatti(
      {file_, look_->extent, grouping_, builder_->tally(), builder_->format(), options_, look_->borders.usual()},
      report_.findings);
}

void Leggi(const std::filesystem::path& path, const ReadOptions& options, const Receiver& receiver,
           FileReport& report) {
  report.summary.path = path;
  Findings failure;
  const bool read = Trappola(failure, SyscalProcedure, [&] {
    SyscalReading reading(path, options, receiver, report);
    report.summary.bytes = std::filesystem::file_size(path);
    reading.leggi();
  });
  if (read) return;
  report.summary.format.clear();
  report.summary.channels = 0;
  report.summary.firings = 0;
  report.findings = failure;
  if (receiver.restart) receiver.restart();
}

}  // namespace

FileReport PercorriSyscal(const std::filesystem::path& path, const ReadOptions& options, const MisuraSink& sink) {
  FileReport report;
  Leggi(path, options, {sink, {}, {}}, report);
  return report;
}

FileRead LeggiSyscalPro2(const std::filesystem::path& path, const ReadOptions& options) {
  FileRead read;
  std::vector<Misura>& kept = read.measurements;
  const Receiver keeper{[&](const Misura& m) {
                          kept.push_back(m);
                          options.progredisci(kept.size(), kept.capacity());
                        },
                        [&kept] { kept.clear(); }, [&kept](std::size_t firings) { kept.reserve(firings); }};
  Leggi(path, options, keeper, read);
  return read;
}

OldSyscalFile LeggiBin2(const std::filesystem::path& path, std::size_t recordLength) {
  const FileBytes file = LeggiTutto(path);
  OldSyscalFile old;
  if (file.size() < ShortestSyscal) return old;
  const auto bytes = file.bytes();
  const double records = static_cast<double>(bytes.size() - FirstRecord) / static_cast<double>(recordLength);
  old.HeaderBin = file.text().substr(0, HeaderLength);
  old.RecordBin.resize(static_cast<std::size_t>(ArrotondaPari(records)));
  std::size_t first = FirstRecord;
  for (auto& record : old.RecordBin) {
    const std::size_t held = std::min(OldRecordLength, bytes.size() - std::min(first, bytes.size()));
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(std::min(first, bytes.size())), held, record.begin());
    first += recordLength;
  }
  return old;
}

}  // namespace corvan
