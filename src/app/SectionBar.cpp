#include "app/SectionBar.h"

#include <array>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <utility>

#include "app/Frame.h"

namespace corvan {
namespace {

// Entries of the list of lines that are no line; a line's entry holds its number, from 1 on.
constexpr int Stacked = 0, Along = -1;

struct CurveEntry {
  const char *item, *caption;
};

/// In the order of Curve.
constexpr std::array<CurveEntry, Curves> CurveTable{{{"CurveCurrent", "&Current"},
                                                     {"CurvePotential", "&Potential"},
                                                     {"CurveResistivity", "&Resistivity"},
                                                     {"CurveDepth", "&Depth"},
                                                     {"CurveSpeed", "&Speed"},
                                                     {"CurveTime", "&Time"}}};

QLabel* Didascalia(const char* text, QWidget* of) {
  auto* label = new QLabel(text);
  label->setBuddy(of);
  return label;
}

QComboBox* Elenco(const char* name, const char* what, int letters) {
  auto* list = Named(new QComboBox, name, what);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(letters);
  return list;
}

}  // namespace

SectionBar::SectionBar(Session& session, std::function<void()> changed)
    : session_(session),
      changed_(std::move(changed)),
      lines_(Elenco("SectionLines", "Which lines are shown, and how", 18)),
      depth_(Elenco("SectionDepth", "What the vertical axis counts", 7)) {
  setObjectName("SectionBar");
  depth_->addItems({"Metres", "Levels"});
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(Unit);
  row->addWidget(Didascalia("Li&nes", lines_));
  row->addWidget(lines_);
  row->addWidget(Didascalia("&Depth", depth_));
  row->addWidget(depth_);
  row->addWidget(creaCurve());
  row->addStretch(1);
  connect(lines_, &QComboBox::activated, this, [this](int index) { scegliLinee(index); });
  connect(depth_, &QComboBox::activated, this, [this](int index) {
    session_.section.misura(index == 0 ? DepthAxis::Metres : DepthAxis::Levels);
    changed_();
  });
}

QToolButton* SectionBar::creaCurve() {
  auto* button = Named(new QToolButton, "SectionCurves", "Curves below the section, on the same axis");
  auto* menu = new QMenu(button);
  for (std::size_t k = 0; k < Curves; ++k) {
    QAction* action = menu->addAction(CurveTable.at(k).caption);
    action->setObjectName(QLatin1String(CurveTable.at(k).item));
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, k](bool shown) {
      session_.section.mostra(static_cast<Curve>(k), shown);
      changed_();
    });
    curves_.push_back(action);
  }
  button->setText("C&urves");
  button->setMenu(menu);
  button->setPopupMode(QToolButton::InstantPopup);
  button->setFocusPolicy(Qt::StrongFocus);
  button->setMinimumHeight(depth_->sizeHint().height());
  return button;
}

void SectionBar::scegliLinee(int index) {
  const int which = lines_->itemData(index).toInt();
  if (which > 0) {
    session_.section.scegli(SectionLines::One, static_cast<std::size_t>(which));
  } else {
    session_.section.scegli(which == Along ? SectionLines::Along : SectionLines::Stacked);
  }
  changed_();
}

void SectionBar::mostra() {
  QStringList names;
  for (const SectionLine& line : session_.section.modello().lines) names << QString::fromStdString(line.name);
  QStringList offered;
  for (int k = 2; k < lines_->count(); ++k) offered << lines_->itemText(k);
  if (lines_->count() == 0 || offered != names) {
    lines_->clear();
    lines_->addItem("One under the other", Stacked);
    lines_->addItem("All along one axis", Along);
    for (int k = 0; k < names.size(); ++k) lines_->addItem(names[k], k + 1);
  }
  const SectionView& view = session_.section.view();
  const int one = static_cast<int>(view.line);
  lines_->setCurrentIndex(lines_->findData(view.lines == SectionLines::One     ? one
                                           : view.lines == SectionLines::Along ? Along
                                                                               : Stacked));
  depth_->setCurrentIndex(view.depth == DepthAxis::Metres ? 0 : 1);
  for (std::size_t k = 0; k < Curves; ++k) curves_.at(k)->setChecked(view.mostra(static_cast<Curve>(k)));
}

}  // namespace corvan
