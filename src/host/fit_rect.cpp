#include <algorithm>

#include "base/conversions.h"
#include "host/picture_gdi.h"

namespace vellumark::host {

void fitRect(std::int32_t srcW, std::int32_t srcH, std::int32_t dstW, std::int32_t dstH, std::int32_t& left,
             std::int32_t& top, std::int32_t& width, std::int32_t& height, bool enlarge) {
  if (srcW <= dstW && srcH <= dstH && !enlarge) {
    width = srcW;
    height = srcH;
  } else {
    // The ratios are singles, their products aren't.
    const double ratioW = static_cast<double>(base::toSingle(base::divide(dstW, srcW)));
    const double ratioH = static_cast<double>(base::toSingle(base::divide(dstH, srcH)));
    if (ratioW < ratioH) {
      width = dstW;
      height = base::toInt32(ratioW * srcH);
    } else {
      height = dstH;
      width = base::toInt32(ratioH * srcW);
    }
  }
  width = std::max(width, 1);
  height = std::max(height, 1);
  left = (dstW - width) / 2;
  top = (dstH - height) / 2;
}

}  // namespace vellumark::host
