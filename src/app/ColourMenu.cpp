#include "app/ColourMenu.h"

#include <QIcon>
#include <QPixmap>
#include <utility>

#include "picture/Palette.h"
#include "session/Controls.h"

namespace corvan {
namespace {

/// The palette as a small bar, its lowest colour to the left.
QIcon Barra(PaletteName palette) {
  QIcon icon;
  for (const int side : {16, 32, 64}) {  // pixels, for screens of one to four dots each
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const PaletteColours& colours = ColoriDi(palette);
    for (int x = 0; x < side; ++x) {
      const std::size_t index = static_cast<std::size_t>(x) * (colours.size() - 1) / static_cast<std::size_t>(side - 1);
      for (int y = side / 8; y < side - side / 8; ++y) image.setPixel(x, y, 0xFF000000U | colours.at(index));
    }
    icon.addPixmap(QPixmap::fromImage(image));
  }
  return icon;
}

}  // namespace

ColourMenu::ColourMenu(Session& session, std::function<void()> changed, QWidget* parent)
    : QMenu("Co&lours", parent), session_(session), changed_(std::move(changed)) {
  setObjectName("Colours");
  setToolTipsVisible(true);
  auto* palettes = new QActionGroup(this);
  for (const PaletteEntry& entry : PaletteTable) {
    QAction* action = voce(entry.item, entry.caption, palettes);
    action->setIcon(Barra(entry.name));
    action->setToolTip(QString::fromUtf8(entry.source));
    palettes_.push_back(action);
  }
  addSeparator();
  reversed_ = voce("ReverseColours", "&Reversed", nullptr);
  logarithmic_ = voce("LogColours", "&Logarithmic", nullptr);
  addSeparator();
  auto* range = new QActionGroup(this);
  data_ = voce("RangeData", "From the &Data", range);
  percentile_ = voce("RangePercentile", "2nd to 98th &Percentile", range);
  typed_ = voce("SetRange", "Set Colour Scale Range", range);
  typed_->setShortcut(QKeySequence("Ctrl+R"));
}

QAction* ColourMenu::voce(const char* name, const QString& caption, QActionGroup* group) {
  QAction* action = addAction(caption);
  action->setObjectName(QLatin1String(name));
  action->setCheckable(true);
  action->setActionGroup(group);
  connect(action, &QAction::triggered, this, [this, control = std::string(name) + "_Click"] {
    EseguiControllo(session_, control);
    changed_();
  });
  return action;
}

void ColourMenu::mostra() {
  const ColourDesk& desk = session_.survey.colori();
  const ColourScale& scale = desk.scale();
  palettes_.at(static_cast<std::size_t>(scale.palette))->setChecked(true);
  reversed_->setChecked(scale.reversed);
  logarithmic_->setChecked(scale.logarithmic);
  using From = ColourDesk::RangeFrom;
  const bool offered = desk.origine() == From::Percentiles && desk.percentili() == Percentiles{};
  (desk.origine() == From::Data ? data_ : offered ? percentile_ : typed_)->setChecked(true);
}

}  // namespace corvan
