#include "picture/Caption.h"

#include "picture/TextLayout.h"

namespace corvan {

std::string Riga(const Caption& caption, std::int32_t width, const Canvas& canvas) {
  const std::string whole = caption.files + caption.rest;
  if (canvas.LarghezzaTesto(whole) <= width) return whole;
  const std::string files = Accorcia(canvas, caption.files, width - canvas.LarghezzaTesto(caption.rest));
  return files.empty() ? Accorcia(canvas, whole, width) : files + caption.rest;
}

}  // namespace corvan
