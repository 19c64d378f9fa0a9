#include "app/PickedLines.h"

#include <QStringList>

#include "app/Frame.h"
#include "app/StatusText.h"

namespace corvan {

PickedLines::PickedLines(const Session& session, QWidget* picture) : QLabel(picture), session_(session) {
  setObjectName("PickedLines");
  setTextFormat(Qt::PlainText);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  // The picture is white whatever colours the desktop has.
  setStyleSheet("color: #202020; background: rgba(255, 255, 255, 210); padding: 2px");
  move(3 * Unit / 2, 3 * fontMetrics().lineSpacing());  // below the line of information
  hide();
}

void PickedLines::mostra() {
  QStringList lines;
  const Survey& survey = session_.survey.dati();
  if (const auto first = session_.selection.primo()) lines << TestoEstremo(survey, 1, *first);
  if (const auto second = session_.selection.secondo()) lines << TestoEstremo(survey, 2, *second);
  setText(lines.join('\n'));
  adjustSize();
  setVisible(!lines.isEmpty());
}

}  // namespace corvan
