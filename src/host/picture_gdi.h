#pragma once
// Pictures made from what was copied in the host.

#include <cstdint>
#include <string>

namespace vellumark::host {

/// Draws the picture on the clipboard into a PNG file of that size in pixels, centred, made smaller where it
/// is larger, on a ground of that colour (0xAARRGGBB), and empties the clipboard. 0, or the positive number
/// of the step that failed. The path is the logic's.
std::int16_t renderClipboardToPng(std::int16_t width, std::int16_t height, std::uint32_t colour,
                                  const std::string& path);

/// Where a picture lies in a frame: it keeps its proportions, stands in the middle, and is made larger than
/// it is only if `enlarge` says so. It is never smaller than 1 by 1.
void fitRect(std::int32_t srcW, std::int32_t srcH, std::int32_t dstW, std::int32_t dstH, std::int32_t& left,
             std::int32_t& top, std::int32_t& width, std::int32_t& height, bool enlarge);

}  // namespace vellumark::host
