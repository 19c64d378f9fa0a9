// Pictures through the toolkit: texts, polygons and files.
#include "paint/ImageCanvas.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <vector>

#include "paint/PictureFile.h"

namespace corvan {
namespace {

std::size_t Painted(const QImage& image, const QRect& within) {
  std::size_t count = 0;
  for (int y = within.top(); y <= within.bottom(); ++y) {
    for (int x = within.left(); x <= within.right(); ++x) count += image.pixel(x, y) != 0xFFFFFFFF ? 1U : 0U;
  }
  return count;
}

TEST(Texts, StandBelowAndRightOfTheirPlace) {
  QImage image = CreaImmagine(200, 100);
  ImageCanvas canvas(image);
  canvas.Testo({50, 40}, "Ohm", 0xFF0000);
  const int width = canvas.LarghezzaTesto("Ohm"), height = canvas.AltezzaTesto();
  EXPECT_GE(height, 12);
  EXPECT_GT(Painted(image, QRect(50, 40, width, height)), 40U);
  EXPECT_EQ(Painted(image, QRect(0, 0, 200, 100)), Painted(image, QRect(50, 40, width, height))) << "nothing beside";
  EXPECT_LT(canvas.LarghezzaTesto("ii"), canvas.LarghezzaTesto("MM"));
}

TEST(Texts, GrowWithThePicture) {
  QImage small = CreaImmagine(20, 20), large = CreaImmagine(20, 1500);
  EXPECT_GT(ImageCanvas(large).AltezzaTesto(), 2 * ImageCanvas(small).AltezzaTesto() - 8);
}

TEST(Polygons, LeaveOutWhatIsSurroundedTwice) {
  QImage image = CreaImmagine(60, 60);
  ImageCanvas canvas(image);
  const std::vector<PuntoPixel> corners{{5, 5},   {55, 5},  {55, 55}, {5, 55},  {5, 5},
                                        {20, 20}, {40, 20}, {40, 40}, {20, 40}, {20, 20}};
  canvas.Poligono(corners, 0x000080);
  EXPECT_EQ(image.pixel(10, 30), 0xFF000080);
  EXPECT_EQ(image.pixel(30, 30), 0xFFFFFFFF);
  EXPECT_EQ(image.pixel(55, 30), 0xFF000080) << "the outline belongs to it";
}

TEST(PictureFiles, HoldTheSamePixelsInBothFormats) {
  QImage image = CreaImmagine(37, 11);
  ImageCanvas canvas(image);
  canvas.Riquadro({3, 20, 2, 9}, 0x12AB34);
  for (const char* name : {"view.bmp", "VIEW.PNG"}) {
    EXPECT_TRUE(NomeImmagine(name));
    const std::string bytes = ComponiImmagine(image, name);
    QImage read = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
    EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), image) << name;
  }
  EXPECT_FALSE(NomeImmagine("view.jpg"));
  EXPECT_FALSE(NomeImmagine("png"));
}

}  // namespace
}  // namespace corvan

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
