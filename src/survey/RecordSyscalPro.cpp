#include "survey/RecordSyscalPro.h"

namespace corvan {

std::int16_t LunghezzaRecord(std::int16_t type) {
  switch (type) {
    case 0:
      return 248;
    case 2:
      return 296;
    case 3:
      return 304;
    default:
      return 280;
  }
}

}  // namespace corvan
