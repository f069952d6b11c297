#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Media/MediaWrapper.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <gtest/gtest.h>

namespace Tervan::Conf {
namespace {

// The wrapper keeps its own index of libavcodec's descriptors; it must answer as
// libavcodec's own lookup does for every name libavcodec knows.
TEST(MediaWrapper, CodecIdOfEveryDescriptorIsLibavcodecs) {
    int checked = 0;
    for (const AVCodecDescriptor* descriptor = avcodec_descriptor_next(nullptr); descriptor != nullptr;
         descriptor = avcodec_descriptor_next(descriptor)) {
        SCOPED_TRACE(descriptor->name);
        EXPECT_EQ(CodecIDFromTextID(descriptor->name), avcodec_descriptor_get_by_name(descriptor->name)->id);
        ++checked;
    }
    EXPECT_GT(checked, 100);
    EXPECT_EQ(CodecIDFromTextID(IFormatCodecVideo::CODEC_ID_H264), AV_CODEC_ID_H264);
    EXPECT_EQ(CodecIDFromTextID(IFormatCodecAudio::CODEC_ID_AAC), AV_CODEC_ID_AAC);
}

TEST(MediaWrapper, UnknownCodecIdentifierIsNone) {
    for (const char* name : {"", "no-such-codec", "H264", "h264 "}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(CodecIDFromTextID(name), AV_CODEC_ID_NONE);
    }
}

}  // namespace
}  // namespace Tervan::Conf
