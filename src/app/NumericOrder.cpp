#include "app/NumericOrder.h"

namespace corvan {
namespace {

bool Cifra(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

/// Takes the run of digits that begins at `at`, without its leading zeros, and moves `at` behind it.
QStringView Numero(const QString& text, qsizetype& at) {
  while (at < text.size() && text[at] == QLatin1Char('0')) ++at;
  const qsizetype first = at;
  while (at < text.size() && Cifra(text[at])) ++at;
  return QStringView(text).sliced(first, at - first);
}

/// Less than, equal to or greater than 0, as numbers; neither has leading zeros.
int Confronta(QStringView a, QStringView b) {
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return a.compare(b);
}

}  // namespace

bool PrimaPerNumero(const QString& a, const QString& b) {
  qsizetype i = 0;
  qsizetype k = 0;
  while (i < a.size() && k < b.size()) {
    if (Cifra(a[i]) && Cifra(b[k])) {
      const int order = Confronta(Numero(a, i), Numero(b, k));
      if (order != 0) return order < 0;
    } else {
      const QChar left = a[i++].toCaseFolded();
      const QChar right = b[k++].toCaseFolded();
      if (left != right) return left < right;
    }
  }
  const bool aEnds = i == a.size();
  const bool bEnds = k == b.size();
  return aEnds == bEnds ? a < b : aEnds;
}

}  // namespace corvan
