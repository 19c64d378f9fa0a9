// The menu of the colours, driven by the mouse and by keys.
#include <QSettings>

#include "app/Remembered.h"
#include "Window.h"

namespace corvan {
namespace {

using test::Window;

/// Opens the menu and clicks an item there.
void Click(Window& w, const char* item) {
  auto* colours = w.get<QMenu>("Colours");
  colours->popup(w.window.mapToGlobal(QPoint(40, 60)));
  QCoreApplication::processEvents();
  QTest::mouseClick(colours, Qt::LeftButton, {}, colours->actionGeometry(w.get<QAction>(item)).center());
  QCoreApplication::processEvents();
}

/// Five firings of one channel: 0.94248 ohm m times 1, 2, 3, 40 and 100.
void ReadSpike(Window& w) {
  auto records = test::Firings(5, 1);
  constexpr std::array<float, 5> potentials{10, 20, 30, 400, 1000};
  for (std::size_t k = 0; k < records.size(); ++k) records[k].potential = potentials.at(k);
  w.window.leggi({QString::fromStdString(w.folder.write("spike.bin", test::SyscalFile(records)).string())});
  QCoreApplication::processEvents();
}

TEST(ColourMenus, EachDoTheirOwnItemAndTickWhatIsInForce) {
  Window w;
  ReadSpike(w);
  const std::string asked = " question=Scale (Min; Max)";
  struct Item {
    const char* item;
    std::string changes;
    const char* typed = nullptr;
  };
  const Item items[] = {{"PaletteViridis", "PaletteSpectrum=0 PaletteViridis=1 palette=1 picture"},
                        {"PaletteViridis", ""},
                        {"PaletteCividis", "PaletteCividis=1 PaletteViridis=0 palette=2 picture"},
                        {"PaletteGrey", "PaletteCividis=0 PaletteGrey=1 palette=3 picture"},
                        {"ReverseColours", "ReverseColours=1 picture"},
                        {"PaletteSpectrum", "PaletteGrey=0 PaletteSpectrum=1 palette=0 picture"},
                        {"ReverseColours", "ReverseColours=0 picture"},
                        {"LogColours", "LogColours=1 picture"},
                        {"LogColours", "LogColours=0 picture"},
                        {"RangePercentile", "RangeData=0 RangePercentile=1 max=89.7241 min=1.01788 picture"},
                        {"SetRange", "RangePercentile=0 SetRange=1 max=7 min=2" + asked + " picture", "2;7"},
                        {"RangePercentile", "RangePercentile=1 SetRange=0 max=89.7241 min=1.01788 picture"},
                        {"SetRange", "RangePercentile=0 SetRange=1 max=82.9382 min=1.13098 picture", "p5,95"},
                        {"SetRange", "RangePercentile=1 SetRange=0 max=89.7241 min=1.01788 picture", "p2,98"},
                        {"SetRange", "", "p98,5"},
                        {"RangeData", "RangeData=1 RangePercentile=0 max=94.248 min=0.94248 picture"},
                        {"SetRange", ""}};
  for (const Item& item : items) {
    if (item.typed != nullptr) w.dialogs.answers[Question::ColourRange] = {item.typed};
    EXPECT_EQ(w.changes([&] { Click(w, item.item); }), item.changes) << item.item;
  }
  w.key("Ctrl+Z");
  EXPECT_TRUE(w.get<QAction>("RangePercentile")->isChecked()) << "taken back, and ticked so";
}

/// The bars are what the palette promises from its left to its right.
TEST(ColourMenus, ShowEachPaletteAsABar) {
  Window w;
  const struct {
    const char* item;
    QRgb left, right;
  } bars[] = {{"PaletteSpectrum", 0xFF7800FE, 0xFFFF0900},
              {"PaletteViridis", 0xFF440154, 0xFFFDE725},
              {"PaletteCividis", 0xFF00224E, 0xFFFEE838},
              {"PaletteGrey", 0xFF181818, 0xFFE2E2E2}};
  for (const auto& [item, left, right] : bars) {
    const QImage bar = w.get<QAction>(item)->icon().pixmap(16, 16).toImage();
    EXPECT_EQ(bar.pixel(0, bar.height() / 2), left) << item;
    EXPECT_EQ(bar.pixel(bar.width() - 1, bar.height() / 2), right) << item;
    EXPECT_FALSE(w.get<QAction>(item)->toolTip().isEmpty()) << item;
  }
}

TEST(ColourMenus, AreOpenedByKeysAlone) {
  Window w;
  ReadSpike(w);
  auto* image = w.get<QMenu>("Image");
  auto* colours = w.get<QMenu>("Colours");
  image->popup(w.window.mapToGlobal(QPoint(10, 30)));
  QTest::keyClick(image, Qt::Key_L);
  ASSERT_TRUE(colours->isVisible());
  QTest::keyClick(colours, Qt::Key_V);
  EXPECT_EQ(w.session().survey.colours().palette, PaletteName::Viridis);
  EXPECT_FALSE(image->isVisible());
}

TEST(ColourMenus, KeepPaletteDirectionAndLogarithmForTheNextStart) {
  QSettings settings(QSettings::defaultFormat(), QSettings::UserScope, "Ardevo", "Corvan");
  settings.clear();
  {
    Window w;
    w.window.ripristina({1024, 680});
    EXPECT_TRUE(w.get<QAction>("PaletteSpectrum")->isChecked()) << "the first start";
    ReadSpike(w);
    for (const char* item : {"PaletteCividis", "ReverseColours", "LogColours", "RangePercentile"}) w.choose(item);
    w.window.close();
  }
  {
    Window w;
    w.window.ripristina({1024, 680});
    const auto ticked = [&w](const char* item) { return w.get<QAction>(item)->isChecked(); };
    for (const int reading : {0, 1}) {
      EXPECT_TRUE(ticked("PaletteCividis") && ticked("ReverseColours") && ticked("LogColours")) << reading;
      EXPECT_TRUE(ticked("RangeData")) << "the range is that of the survey";
      EXPECT_FALSE(w.get<QAction>("Undo")->isEnabled()) << "nobody has changed anything";
      ReadSpike(w);
    }
    w.choose("ReverseColours");
    w.window.close();
  }
  settings.sync();
  settings.setValue("view/palette", "nonsense");
  settings.setValue("view/logarithmicColours", "perhaps");
  settings.sync();
  Window w;
  w.window.ripristina({1024, 680});
  EXPECT_TRUE(w.get<QAction>("PaletteSpectrum")->isChecked()) << "a damaged value is its default";
  EXPECT_FALSE(w.get<QAction>("LogColours")->isChecked());
  EXPECT_FALSE(w.get<QAction>("ReverseColours")->isChecked());
  settings.clear();
}

}  // namespace
}  // namespace corvan
