#pragma once

namespace Tervan::Conf {

// A video frame as the filters see it: its size in pixels and the shape of one pixel
// (sample aspect ratio aspectX:aspectY; a non-positive part means square pixels, as
// libavcodec's 0/1 "unknown").
struct FrameInfo {
    int width = 0;
    int height = 0;
    int aspectX = 1;
    int aspectY = 1;
};

inline bool operator==(const FrameInfo& a, const FrameInfo& b) {
    return a.width == b.width && a.height == b.height && a.aspectX == b.aspectX && a.aspectY == b.aspectY;
}
inline bool operator!=(const FrameInfo& a, const FrameInfo& b) {
    return !(a == b);
}

}  // namespace Tervan::Conf
