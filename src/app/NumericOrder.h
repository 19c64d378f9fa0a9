// The order in which people count names: line_2 before line_10.
#pragma once

#include <QString>

namespace corvan {

/// True if a name stands before another: runs of digits compare as numbers of any length, letters without case; names
/// that are equal so far (line_1, LINE_01) compare plainly, so that no two different names tie.
bool PrimaPerNumero(const QString& a, const QString& b);

}  // namespace corvan
