#include "FormatTestSupport.h"

#include <gtest/gtest.h>

#include <typeinfo>

using namespace FormatTest;

namespace {

StreamDefault Video(const std::string& codec) {
    return {IPreset::STREAM_TYPE_VIDEO, codec};
}
StreamDefault Audio(const std::string& codec) {
    return {IPreset::STREAM_TYPE_AUDIO, codec};
}

Property AudioJob(const std::string& codec, long long rate) {
    return Settings({{kAudioCodecPath, Property("", codec)}, {kSampleRatePath, Property("", rate)}});
}

}  // namespace

TEST(ContainerFormat, DefaultTrees) {
    const std::string container = F::TAG_CONTAINER, typeId = IPreset::KEY_TYPE_ID;
    const std::vector<std::string> both = {F::TAG_PSP_MODE, F::TAG_PROGRESSIVE_READ};
    const std::vector<long long> video = {1, 16, 16, 16}, audio = {0, 1, 0, 16}, small = {1, 1, 0, 0};
    const std::vector<StreamDefault> h264Aac = {Video(V::CODEC_ID_H264), Audio(A::CODEC_ID_AAC)};
    const std::vector<StreamDefault> mpeg2 = {Video(V::CODEC_ID_MPEG2VIDEO), Audio(A::CODEC_ID_MP2)};
    // format; identifier key and value, flags, extras, limits, streams
    const std::vector<std::pair<std::string, TreeDefaults>> cases = {
        {F::FORMAT_MP4, {container, F::FORMAT_MP4, both, {}, video, h264Aac}},
        {F::FORMAT_M4A, {container, F::FORMAT_M4A, {}, {}, {0, 1, 0, 1}, {Audio(A::CODEC_ID_AAC)}}},
        {F::FORMAT_MOV, {"", "", {F::TAG_PROGRESSIVE_READ}, {}, video, h264Aac}},
        {F::FORMAT_MATROSKA, {container, F::FORMAT_MATROSKA, {}, {}, video, h264Aac}},
        {F::FORMAT_AVI,
         {container, F::FORMAT_AVI, {}, {}, {1, 16, 16, 0}, {Video(V::CODEC_ID_H264), Audio(A::CODEC_ID_MP3)}}},
        {F::FORMAT_FLV, {container, F::FORMAT_FLV, both, {}, small, {Video(V::CODEC_ID_FLV1), Audio(A::CODEC_ID_AAC)}}},
        {F::FORMAT_3GP, {container, F::FORMAT_3GP, {}, {}, small, {Video(V::CODEC_ID_H263), Audio(A::CODEC_ID_AAC)}}},
        {F::FORMAT_MP3, {container, F::FORMAT_MP3, {}, {}, audio, {Audio(A::CODEC_ID_MP3)}}},
        {F::FORMAT_AAC, {container, F::FORMAT_AAC, {}, {}, audio, {Audio(A::CODEC_ID_AAC)}}},
        {F::FORMAT_OGG, {typeId, F::FORMAT_OGG, {}, {}, audio, {Audio(A::CODEC_ID_VORBIS)}}},
        {F::FORMAT_FLAC, {container, F::FORMAT_FLAC, {}, {}, audio, {Audio(A::CODEC_ID_FLAC)}}},
        {F::FORMAT_WAV, {container, F::FORMAT_WAV, {}, {}, audio, {Audio(A::CODEC_ID_PCM_S16LE)}}},
        {F::FORMAT_MPEGTS, {container, F::FORMAT_MPEGTS, {}, {}, video, mpeg2}},
        {F::FORMAT_MPEG2TS,
         {container, F::FORMAT_MPEG2TS, {}, {}, video, {Video(V::CODEC_ID_MPEG2VIDEO), Audio(A::CODEC_ID_AAC)}}},
        {F::FORMAT_WEBM,
         {container, F::FORMAT_MATROSKA, {}, {}, video, {Video(V::CODEC_ID_VP8), Audio(A::CODEC_ID_VORBIS)}}},
        {F::FORMAT_WMA, {container, F::FORMAT_WMA, {}, {}, audio, {Audio(A::CODEC_ID_WMAV2)}}},
        {F::FORMAT_WMV,
         {container, F::FORMAT_WMV, {}, {}, {16, 16, 16, 16}, {Video(V::CODEC_ID_WMV2), Audio(A::CODEC_ID_WMAV2)}}},
        {F::FORMAT_SWF, {container, F::FORMAT_SWF, {}, {}, small, {Video(V::CODEC_ID_MJPEG), Audio(A::CODEC_ID_MP3)}}},
        {F::FORMAT_OGV,
         {typeId, F::FORMAT_OGV, {}, {}, {1, 1, 1, 16}, {Video(V::CODEC_ID_THEORA), Audio(A::CODEC_ID_VORBIS)}}},
    };
    for (const auto& [format, expected] : cases) {
        SCOPED_TRACE(format);
        ExpectDefaultTree(Format(format)->GetDefaults(), expected);
    }
}

TEST(ContainerFormat, ConstraintsAreTheSharedCodecListsAdmittingTheDefaults) {
    for (const auto& [format, helper] : GetAvailableDataHelpers(IPreset::KEY_FORMAT)) {
        SCOPED_TRACE(format);
        const DataHelperFormatBase& base = AsFormatBase(*helper);
        const IDataHelper::Constraints constraints = ConstraintsOf(*helper);
        IDataHelper::Constraints expected;
        const Property defaults = helper->GetDefaults();
        for (const Property& stream : defaults[IPreset::KEY_STREAMS]) {
            const std::string& kind = stream[IPreset::KEY_TYPE_ID].GetString();
            const bool video = kind == IPreset::STREAM_TYPE_VIDEO;
            EXPECT_EQ(expected.count(StreamCodecKey(kind)), 0u) << "a second stream of " << kind;
            expected[StreamCodecKey(kind)] = video ? base.VideoCodecsConstraint() : base.AudioCodecsConstraint();
            const std::string& section = video ? IPreset::KEY_FILTER_VIDEO_CODEC : IPreset::KEY_FILTER_AUDIO_CODEC;
            const Property& codec = stream[section][IFormatCodec::TAG_CODEC_ID];
            ASSERT_EQ(constraints.count(StreamCodecKey(kind)), 1u);
            EXPECT_TRUE(constraints.at(StreamCodecKey(kind))->IsValid(codec));
            // The default codec has a helper of its own.
            EXPECT_NO_THROW(CreateDataHelper(section, codec.GetString()));
        }
        if (format == F::FORMAT_DVD) {
            continue;  // adds settings of its own
        }
        EXPECT_EQ(constraints, expected);

        IDataHelper::RequiredObjects required = {{"kept", ""}};
        helper->GetRequiredObjects(required);
        EXPECT_EQ(required, (IDataHelper::RequiredObjects{{"kept", ""}}));
    }
}

TEST(ContainerFormat, CodecListsRepairToTheDefault) {
    struct Case {
        std::string format;
        bool video;
        std::string admitted;
        std::string rejected;
        std::string fallback;
    };
    const Case cases[] = {
        {F::FORMAT_MP4, false, A::CODEC_ID_DTS, A::CODEC_ID_VORBIS, A::CODEC_ID_AAC},
        {F::FORMAT_MP4, true, V::CODEC_ID_MPEG4, V::CODEC_ID_THEORA, V::CODEC_ID_H264},
        {F::FORMAT_MPEGTS, false, A::CODEC_ID_AAC, A::CODEC_ID_VORBIS, A::CODEC_ID_MP2},
        {F::FORMAT_MPEG2TS, false, A::CODEC_ID_MP2, A::CODEC_ID_VORBIS, A::CODEC_ID_AAC},
        {F::FORMAT_MATROSKA, true, V::CODEC_ID_DVVIDEO, V::CODEC_ID_VP8, V::CODEC_ID_H264},
        {F::FORMAT_WEBM, true, V::CODEC_ID_VP9, V::CODEC_ID_H264, V::CODEC_ID_VP8},
        {F::FORMAT_SWF, true, V::CODEC_ID_FLV1, V::CODEC_ID_H264, V::CODEC_ID_MJPEG},
        {F::FORMAT_OGV, false, A::CODEC_ID_FLAC, A::CODEC_ID_AAC, A::CODEC_ID_VORBIS},
        {F::FORMAT_M4A, false, A::CODEC_ID_ALAC, A::CODEC_ID_MP3, A::CODEC_ID_AAC},
        {F::FORMAT_AVI, false, A::CODEC_ID_PCM_S16LE, A::CODEC_ID_AAC, A::CODEC_ID_MP3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.format + " " + c.rejected);
        const DataHelperFormatBase& helper = AsFormatBase(*Format(c.format));
        const ConstraintPtr codecs = c.video ? helper.VideoCodecsConstraint() : helper.AudioCodecsConstraint();
        EXPECT_TRUE(codecs->IsValid(Property("", c.admitted)));
        Property value("codec", c.rejected);
        EXPECT_FALSE(codecs->IsValid(value));
        EXPECT_TRUE(codecs->Fixup(value));
        EXPECT_EQ(value.GetString(), c.fallback);
        EXPECT_EQ(value.GetName(), "codec");
    }
}

// CorrectFormatCodec repairs exactly the rates that the rules report broken.
TEST(ContainerFormat, SampleRateRulesAndTheirCorrection) {
    struct Case {
        std::string format, codec;
        long long rate, corrected;  // corrected == rate: every rule holds
    };
    // FLV does not admit VORBIS, so its rule does not concern it.
    const Case cases[] = {
        {F::FORMAT_MP4, A::CODEC_ID_MP3, 11025, 16000}, {F::FORMAT_MP4, A::CODEC_ID_MP3, 32000, 32000},
        {F::FORMAT_MP4, A::CODEC_ID_MP3, 96000, 48000}, {F::FORMAT_MP4, A::CODEC_ID_AAC, 11025, 11025},
        {F::FORMAT_FLV, A::CODEC_ID_AAC, 48000, 44100}, {F::FORMAT_FLV, A::CODEC_ID_AAC, 44100, 44100},
        {F::FORMAT_FLV, A::CODEC_ID_MP3, 8000, 11025},  {F::FORMAT_FLV, A::CODEC_ID_VORBIS, 48000, 48000},
        {F::FORMAT_SWF, A::CODEC_ID_MP3, 32000, 22050}, {F::FORMAT_SWF, A::CODEC_ID_MP3, 22050, 22050},
        {F::FORMAT_AVI, A::CODEC_ID_MP3, 11025, 11025}, {F::FORMAT_MOV, A::CODEC_ID_MP3, 11025, 11025},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.format + " " + c.codec + " " + std::to_string(c.rate));
        EXPECT_EQ(BrokenRules(*Format(c.format), AudioJob(c.codec, c.rate)),
                  c.rate != c.corrected ? std::vector<std::string>{kSampleRatePath} : std::vector<std::string>{});
        Property node = CodecNode(A::TAG_FORMAT_CODEC_AUDIO, c.codec, c.rate);
        Format(c.format)->CorrectFormatCodec(node);
        EXPECT_EQ(node, CodecNode(A::TAG_FORMAT_CODEC_AUDIO, c.codec, c.corrected));
    }
    EXPECT_TRUE(RulesOf(*Format(F::FORMAT_AVI)).empty());
}

TEST(ContainerFormat, AliasesAreSeparateInstances) {
    ASSERT_EQ(GetAvailableDataHelpers(IPreset::KEY_FORMAT).size(), 44u);
    const std::pair<std::string, std::string> aliases[] = {{F::FORMAT_IPOD, F::FORMAT_MP4},
                                                           {F::FORMAT_3G2, F::FORMAT_3GP},
                                                           {F::FORMAT_MPEG1VIDEO, F::FORMAT_MPEG},
                                                           {F::FORMAT_MPEG2VIDEO, F::FORMAT_VOB}};
    for (const auto& [alias, original] : aliases) {
        SCOPED_TRACE(alias);
        const DataHelperPtr copy = Format(alias);
        const DataHelperPtr first = Format(original);
        EXPECT_NE(copy, first);
        EXPECT_EQ(typeid(*copy), typeid(*first));
        EXPECT_EQ(copy->GetDefaults(), first->GetDefaults());
    }
}
