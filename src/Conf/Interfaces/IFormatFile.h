#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Conf {

// Container format identifiers (libavformat muxer names where one exists) and the
// setting names of a format's settings.
class TERVAN_API IFormatFile {
public:
    static const std::string FORMAT_3G2, FORMAT_3GP, FORMAT_AAC, FORMAT_AVI, FORMAT_BMP, FORMAT_DPX, FORMAT_DVD,
        FORMAT_FLAC, FORMAT_FLV, FORMAT_GIF, FORMAT_IMAGE2, FORMAT_IPOD, FORMAT_JPEG2000, FORMAT_JPEGLS, FORMAT_M4A,
        FORMAT_MATROSKA, FORMAT_MOV, FORMAT_MP3, FORMAT_MP4, FORMAT_MPEG, FORMAT_MPEG1VIDEO, FORMAT_MPEG2TS,
        FORMAT_MPEG2VIDEO, FORMAT_MPEGTS, FORMAT_OGG, FORMAT_OGV, FORMAT_PAM, FORMAT_PBM, FORMAT_PCX, FORMAT_PGM,
        FORMAT_PGMYUV, FORMAT_PNG, FORMAT_PPM, FORMAT_SGI, FORMAT_SWF, FORMAT_TARGA, FORMAT_TIFF, FORMAT_VOB,
        FORMAT_WAV, FORMAT_WEBM, FORMAT_WMA, FORMAT_WMV, FORMAT_XBM, FORMAT_XWD;

    static const std::string TAG_CONTAINER, TAG_LIMITS, TAG_LIMITS_AUDIO, TAG_LIMITS_VIDEO, TAG_LIMITS_SUBTITLE,
        TAG_LIMITS_OTHER, TAG_PSP_MODE, TAG_PROGRESSIVE_READ, TAG_DVD_STANDARD, TAG_DISK_SIZE;

    static const std::string DVD_STANDARD_PAL, DVD_STANDARD_NTSC;

    // Capacities in bytes of single-layer mini (8 cm), single-layer and dual-layer discs.
    static constexpr long long DISK_SIZE_DVD_MINI = 1463874560LL;
    static constexpr long long DISK_SIZE_DVD_STANDARD = 4707319808LL;
    static constexpr long long DISK_SIZE_DVD_DOUBLE_LAYER = 8543666176LL;
    static const std::string DISK_TYPE_DVD_MINI, DISK_TYPE_DVD_STANDARD, DISK_TYPE_DVD_DOUBLE_LAYER;
};

}  // namespace Tervan::Conf
