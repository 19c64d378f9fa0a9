// The window with the page of the flat section. In the plan of Window::readPlan the boat is at 0, 2.5, 5, 7.5 and 10 m,
// and channel c lies 5 + 2.5 c m behind it: what is shown reaches from half a step before the first reading of channel
// 10, -31.25 m, to half a step behind the last boat, 11.25 m.
#pragma once

#include <QWheelEvent>

#include "Hand.h"
#include "paint/ImageCanvas.h"

namespace corvan::test {

inline constexpr double First = -31.25, Last = 11.25;

struct Flat : Window {
  Flat() {
    readPlan();
    key("F9");
    QCoreApplication::processEvents();
  }
  SectionPic* pic() const { return static_cast<SectionPic*>(get<QWidget>("SectionPic")); }
  const SectionLayout& layout() { return session().section.disposta(); }
  const SectionBlock& block() { return layout().blocks.at(0); }
  QPoint logical(double X, double Y) const {
    const double scale = pic()->devicePixelRatioF();
    return {static_cast<int>(X / scale), static_cast<int>(Y / scale)};
  }
  /// A place along the track, as long as all of it is shown, in pixels of the picture.
  double column(double metres) {
    const PixelArea& plot = block().plot;
    return plot.left + (metres - First) / (Last - First) * plot.width();
  }
  QPoint air(double metres) { return logical(column(metres), (block().air.top + block().air.bottom) / 2.0); }
  QPoint cell(int measurement, std::size_t channel) {
    for (const SectionRow& row : session().section.modello().metres) {
      const double middle = (row.top + row.bottom) / 2 / layout().deepest * block().plot.height();
      if (row.channel == channel) {
        return logical(column(2.5 * (measurement - static_cast<int>(channel)) - 7.5), block().plot.top + middle);
      }
    }
    ADD_FAILURE() << channel;
    return {};
  }
  /// Inside the plot, where no cell is: above the first row, near its left end.
  QPoint empty() { return logical(column(-25), block().plot.top + 3); }
  void click(QPoint at) {
    QTest::mouseClick(pic(), Qt::LeftButton, {}, at);
    QCoreApplication::processEvents();
  }
  void move(QPoint at, Qt::MouseButton held = Qt::NoButton) const {
    QMouseEvent event(QEvent::MouseMove, at, pic()->mapToGlobal(at), Qt::NoButton, held, {});
    QApplication::sendEvent(pic(), &event);
  }
  void draw(QPoint from, QPoint to) const {
    QTest::mousePress(pic(), Qt::LeftButton, {}, from);
    move(to, Qt::LeftButton);
  }
  void drop(QPoint to) const {
    QTest::mouseRelease(pic(), Qt::LeftButton, {}, to);
    QCoreApplication::processEvents();
  }
  void wheel(QPoint at, int notches) const {
    QWheelEvent event(at, pic()->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(pic(), &event);
    QCoreApplication::processEvents();
  }
  void press(int key, Qt::KeyboardModifiers keys = {}) const {
    QTest::keyClick(pic(), static_cast<Qt::Key>(key), keys);
    QCoreApplication::processEvents();
  }
  using Window::press;
  /// "2-4", "2-", "-": the extremes, as session, boxes and picture of the section have them.
  std::string picked() {
    const auto& selection = session().selection;
    const std::string one = selection.primo() ? std::to_string(*selection.primo()) : "";
    const std::string two = selection.secondo() ? std::to_string(*selection.secondo()) : "";
    EXPECT_TRUE(one.empty() || text("E1Txt") == one) << text("E1Txt");
    EXPECT_TRUE(two.empty() || text("E2txt") == two) << text("E2txt");
    for (const auto& k : {selection.primo(), selection.secondo()}) {
      if (!k) continue;
      const int x = static_cast<int>(column(2.5 * (*k - 1)));
      EXPECT_TRUE(red(x) || red(x - 1)) << "the pole of " << *k;
    }
    return one + "-" + two;
  }
  /// The pole of an extreme stands in this column, above the deepest row.
  bool red(int x) {
    const QImage& seen = pic()->picture();
    return (seen.pixel(x, block().plot.bottom - 3) & 0xFFFFFF) == 0xC00020;
  }
  QImage saved(const char* name) const {
    return QImage(QString::fromStdString((folder / name).string())).convertToFormat(QImage::Format_RGB32);
  }
  /// The same picture from a desk that has forgotten all that it had worked out.
  QImage fresh() {
    QImage image = CreaImmagine(pic()->picture().width(), pic()->picture().height());
    ImageCanvas canvas(image);
    session().section.rifai();
    session().section.dipingiCopia(canvas, {});
    return image;
  }
};

}  // namespace corvan::test
