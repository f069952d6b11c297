#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Media/MediaWrapper.h"

#include <gtest/gtest.h>

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <string>

using namespace Tervan;
using namespace Tervan::Conf;

namespace {

// libavcodec's own answer for a codec identifier, found by name.
int DescriptorId(const std::string& textId) {
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get_by_name(textId.c_str());
    return descriptor == nullptr ? AV_CODEC_ID_NONE : descriptor->id;
}

}  // namespace

// The library knows the ids of its own identifiers without asking libavcodec by name;
// whatever it knows must be what libavcodec answers.
TEST(MediaWrapper, CodecIdsAreLibavcodecs) {
    for (const AVCodecDescriptor* descriptor = avcodec_descriptor_next(nullptr); descriptor != nullptr;
         descriptor = avcodec_descriptor_next(descriptor)) {
        SCOPED_TRACE(descriptor->name);
        EXPECT_EQ(CodecIDFromTextID(descriptor->name), DescriptorId(descriptor->name));
    }
    for (const std::string& type : {IPreset::KEY_FILTER_AUDIO_CODEC, IPreset::KEY_FILTER_VIDEO_CODEC}) {
        for (const auto& entry : GetAvailableDataHelpers(type)) {
            SCOPED_TRACE(entry.first);
            EXPECT_EQ(CodecIDFromTextID(entry.first), DescriptorId(entry.first));
        }
    }
    // Identifiers of helpers the registry does not hold.
    for (const std::string* textId : {&IFormatCodecVideo::CODEC_ID_H265, &IFormatCodecVideo::CODEC_ID_WMV3}) {
        SCOPED_TRACE(*textId);
        EXPECT_EQ(CodecIDFromTextID(*textId), DescriptorId(*textId));
    }
    EXPECT_EQ(CodecIDFromTextID("no-such-codec"), AV_CODEC_ID_NONE);
    EXPECT_EQ(CodecIDFromTextID(""), AV_CODEC_ID_NONE);
}

// An encoder is found by its name whatever codec id the caller expects of it.
TEST(MediaWrapper, EncoderByNameIsLibavcodecsEncoderOfThatName) {
    struct Case {
        const char* encoder;
        int codecId;
    };
    const Case cases[] = {
        {"libx264", AV_CODEC_ID_H264}, {"libx264", AV_CODEC_ID_NONE}, {"libmp3lame", AV_CODEC_ID_AAC},
        {"aac", AV_CODEC_ID_AAC},      {"mpeg4", AV_CODEC_ID_MPEG4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.encoder) + " as " + std::to_string(c.codecId));
        const AVCodec* expected = avcodec_find_encoder_by_name(c.encoder);
        const auto found = Media::FindEncoder(c.encoder, c.codecId);
        ASSERT_EQ(found.has_value(), expected != nullptr);
        if (expected != nullptr) {
            EXPECT_EQ(found->name, expected->name);
            EXPECT_EQ(found->codecId, expected->id);
        }
    }
    EXPECT_FALSE(Media::FindEncoder("no-such-encoder", AV_CODEC_ID_H264));
}
