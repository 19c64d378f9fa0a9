#include "export/CellEdges.h"

namespace corvan {

CellEdges BordiDiCella(const SectionPoint& own, const SectionPoint* before, const SectionPoint* behind,
                       double spacing) {
  const PlanPoint here{own.estVero, own.nordVero};
  const auto neighbour = [&own](const SectionPoint* p) {
    return p != nullptr && p->file == own.file && p->linea == own.linea ? p : nullptr;
  };
  const SectionPoint *first = neighbour(before), *second = neighbour(behind);
  if (first == nullptr && second == nullptr) {
    const double half = (spacing > 0.0 ? spacing : 1.0) / 2.0;
    return {{here.est - half, here.nord}, {here.est + half, here.nord}};
  }
  const auto edge = [&here](const SectionPoint* p) {
    return p == nullptr ? here : PlanPoint{(p->estVero + here.est) * 0.5, (p->nordVero + here.nord) * 0.5};
  };
  return {edge(first), edge(second)};
}

}  // namespace corvan
