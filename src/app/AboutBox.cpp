#include "app/AboutBox.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSysInfo>
#include <QThread>

#include "app/Frame.h"

namespace corvan {
namespace {

QString Compilatore() {
#if defined(__clang__)
  return QStringLiteral("clang %1.%2").arg(__clang_major__).arg(__clang_minor__);
#elif defined(__GNUC__)
  return QStringLiteral("g++ %1.%2.%3").arg(__GNUC__).arg(__GNUC_MINOR__).arg(__GNUC_PATCHLEVEL__);
#elif defined(_MSC_VER)
  return QStringLiteral("MSVC %1").arg(_MSC_VER);
#else
  return "unknown";
#endif
}

}  // namespace

QString DatiSistema() {
  QStringList lines{"Corvan: " CORVAN_VERSION,
                    "Compiler: " + Compilatore(),
                    QStringLiteral("Qt: %1 (built with %2)").arg(QString::fromLatin1(qVersion()), QT_VERSION_STR),
                    QStringLiteral("System: %1, %2").arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion()),
                    "Architecture: " + QSysInfo::currentCpuArchitecture(),
                    QStringLiteral("Processors: %1").arg(QThread::idealThreadCount()),
                    "Display: " + QGuiApplication::platformName()};
  for (const QScreen* screen : QGuiApplication::screens()) {
    lines << QStringLiteral("Screen: %1 x %2 points, device pixel ratio %3")
                 .arg(screen->size().width())
                 .arg(screen->size().height())
                 .arg(screen->devicePixelRatio());
  }
  return lines.join('\n');
}

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
  setObjectName("frmAbout");
  setWindowTitle("About Corvan");
  auto* icon = new QLabel;
  icon->setPixmap(QIcon(":/app/corvan.png").pixmap(64, 64));
  auto* title = new QLabel("<b>Corvan</b>");
  auto* text = new QLabel("Pre-processing of marine electrical-resistivity surveys\n\nVersion " CORVAN_VERSION
                          "\nFree software under the MIT licence");
  auto* figures = Named(new QPlainTextEdit(DatiSistema()), "AboutFigures");
  figures->setReadOnly(true);
  figures->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  figures->setLineWrapMode(QPlainTextEdit::NoWrap);
  figures->setTabChangesFocus(true);
  figures->setMinimumSize(52 * Unit, 9 * figures->fontMetrics().lineSpacing());
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
  auto* copy = Named(buttons->addButton("&Copy", QDialogButtonBox::ActionRole), "AboutCopy",
                     "Copy the figures, for the report of a fault");
  connect(copy, &QPushButton::clicked, this,
          [figures] { QGuiApplication::clipboard()->setText(figures->toPlainText()); });
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  buttons->button(QDialogButtonBox::Ok)->setDefault(true);
  buttons->button(QDialogButtonBox::Ok)->setFocus();
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(3 * Unit, 3 * Unit, 3 * Unit, 2 * Unit);
  grid->setHorizontalSpacing(3 * Unit);
  grid->setVerticalSpacing(Unit);
  grid->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
  grid->addWidget(title, 0, 1);
  grid->addWidget(text, 1, 1);
  grid->addWidget(figures, 2, 0, 1, 2);
  grid->addWidget(buttons, 3, 0, 1, 2);
}

}  // namespace corvan
