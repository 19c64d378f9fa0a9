#include "app/StatusLine.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "app/Frame.h"
#include "app/StatusText.h"

namespace corvan {
namespace {

constexpr const char* LongestSection = "88888 to 88888: 88888 points, 88888 m";

}  // namespace

StatusLine::StatusLine(Session& session, std::function<void()> openMessages)
    : session_(session),
      openMessages_(std::move(openMessages)),
      files_(new ElidedLabel("StatusFiles")),
      zone_(new ElidedLabel("StatusZone")),
      note_(new ElidedLabel("StatusNote")),
      place_(new ElidedLabel("StatusPlace")),
      degrees_(new ElidedLabel("StatusDegrees")),
      point_(new ElidedLabel("StatusPoint")),
      cell_(new ElidedLabel("StatusCell")),
      reading_(new ElidedLabel("StatusReading")),
      section_(new ElidedLabel("StatusSection")) {
  // Each place is wide enough for its longest usual text, so that no change of one moves another.
  const std::pair<ElidedLabel*, QString> rooms[] = {
      {files_, "88 files, 88888 measurements, track of 88888 fixes"},
      {zone_, "UTM 88 N"},
      {place_, "E 888888.8  N 88888888.8"},
      {degrees_, QString::fromUtf8("88.88888\u00B0 N  888.88888\u00B0 W")},
      {point_, "measurement 888888"},
      {cell_, "level 88, 88888.88 Ohm m"},
      {section_, LongestSection}};
  for (const auto& [label, longest] : rooms) {
    label->setContentsMargins(Unit, 0, Unit, 0);
    label->riserva(longest);
  }
  for (ElidedLabel* label : {note_, reading_}) label->setContentsMargins(Unit, 0, Unit, 0);
  auto* lines = new QVBoxLayout(this);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(0);
  auto* above = new QHBoxLayout;
  auto* below = new QHBoxLayout;
  for (QHBoxLayout* line : {above, below}) {
    line->setSpacing(0);
    lines->addLayout(line);
  }
  for (ElidedLabel* label : {files_, zone_}) above->addWidget(label);
  above->addWidget(note_, 1);
  for (ElidedLabel* label : {place_, degrees_, point_, cell_}) below->addWidget(label);
  below->addWidget(reading_, 100);
  below->addStretch(1);
  below->addWidget(section_);
  reading_->hide();
}

void StatusLine::mostra() {
  const Survey& survey = session_.survey.dati();
  files_->mostra(TestoFile(survey));
  zone_->mostra(TestoZona(survey));
  const QString section = TestoSezione(survey, session_.selection.primo(), session_.selection.secondo());
  section_->mostra(section);
  section_->riserva(reading_->isHidden() ? LongestSection : section);  // a reading's line needs the room that is left
  mostraNota();
  if (pointer_) punta(*pointer_);
}

void StatusLine::mostraNota() {
  const StatusNote note = NotaDi(session_.findings().ultimi(), session_.exporter.ultimi());
  note_->tinta(note.tone);
  note_->mostra(note.text, note.more, note.whole);
  note_->alClic(session_.findings().empty() ? nullptr : openMessages_);
}

void StatusLine::punta(const PuntoPixel& place) {
  pointer_ = place;
  const auto at = session_.mouse.posto(place.X, place.Y);
  const GridZone& grid = session_.survey.dati().settings.griglia;
  place_->mostra(at ? TestoGriglia(at->first, at->second) : QString());
  degrees_->mostra(at ? TestoCoordinate({at->first, at->second, grid.zone, grid.hemisphere}) : QString());
  const Target target = session_.mouse.bersaglio(place.X, place.Y);
  QString point;
  if (target.kind == TargetKind::Measurement) point = QStringLiteral("measurement %1").arg(target.index);
  if (target.kind == TargetKind::Fix) point = QStringLiteral("fix %1").arg(target.index);
  point_->mostra(point);
  const std::optional<CellaVista> cell = session_.mouse.cella(place.X, place.Y);
  cell_->mostra(cell ? TestoCella(*cell) : QString());
}

void StatusLine::lascia() {
  pointer_.reset();
  for (ElidedLabel* label : {place_, degrees_, point_, cell_}) label->mostra({});
}

void StatusLine::dellaSezione(bool section) {
  lascia();
  mostraLettura({});
  for (ElidedLabel* label : {place_, degrees_, point_, cell_}) label->setVisible(!section);
  reading_->setVisible(section);
}

bool StatusLine::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Leave) lascia();
  return QWidget::eventFilter(watched, event);
}

}  // namespace corvan
