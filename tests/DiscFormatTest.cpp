#include "Conf/DataHelpers/DataHelperFormatDVD.h"
#include "Conf/DataHelpers/FakeConstraintConsumer.h"
#include "FormatTestSupport.h"
#include "Proc/SettingsFilterFrameRate.h"

#include <gtest/gtest.h>

#include <thread>
#include <tuple>
#include <vector>

using namespace FormatTest;

namespace {

const std::string kVideoBitrate = Path(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodec::TAG_BITRATE);
const std::string kAudioBitrateMode = Path(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodec::TAG_BITRATE_MODE);
const std::string kAudioBitrate = Path(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodec::TAG_BITRATE);

const std::string kStreamVideo = Path(Path(IPreset::KEY_STREAMS, "0"), IPreset::KEY_FILTER_VIDEO_CODEC);

// A job that every DVD rule accepts.
Property DvdJob() {
    return Settings({{kVideoCodecPath, Property("", V::CODEC_ID_MPEG2VIDEO)},
                     {kVideoBitrate, Property("", 6000000LL)},
                     {kAudioCodecPath, Property("", A::CODEC_ID_MP2)},
                     {kAudioBitrateMode, Property("", IFormatCodec::TAG_BITRATE_MODE_CBR)},
                     {kAudioBitrate, Property("", 256000LL)},
                     {kSampleRatePath, Property("", 48000LL)}});
}

}  // namespace

TEST(DiscFormat, DefaultTrees) {
    const std::vector<std::string> none;
    const std::string typeId = IPreset::KEY_TYPE_ID;
    const StreamDefault mpeg1 = {IPreset::STREAM_TYPE_VIDEO, V::CODEC_ID_MPEG1VIDEO};
    const StreamDefault mpeg2 = {IPreset::STREAM_TYPE_VIDEO, V::CODEC_ID_MPEG2VIDEO};
    const StreamDefault mp2 = {IPreset::STREAM_TYPE_AUDIO, A::CODEC_ID_MP2};
    // format; identifier key and value, flags, extras, limits, streams
    const std::vector<std::pair<std::string, TreeDefaults>> cases = {
        {F::FORMAT_DVD,
         {F::TAG_CONTAINER, F::FORMAT_DVD, none, {F::TAG_DVD_STANDARD, F::TAG_DISK_SIZE}, {9, 8, 32, 0}, {mpeg2, mp2}}},
        {F::FORMAT_VOB, {typeId, F::FORMAT_MPEG2VIDEO, none, none, {1, 16, 16, 16}, {mpeg2, mp2}}},
        {F::FORMAT_MPEG, {typeId, F::FORMAT_MPEG1VIDEO, none, none, {1, 16, 16, 16}, {mpeg1, mp2}}},
    };
    for (const auto& [format, expected] : cases) {
        SCOPED_TRACE(format);
        ExpectDefaultTree(Format(format)->GetDefaults(), expected);
    }
    const Property dvd = Format(F::FORMAT_DVD)->GetDefaults();
    EXPECT_EQ(dvd[F::TAG_DVD_STANDARD].GetString(), F::DVD_STANDARD_NTSC);
    ASSERT_EQ(dvd[F::TAG_DISK_SIZE].GetType(), TYPE_INT64);
    EXPECT_EQ(dvd[F::TAG_DISK_SIZE].GetInt64(), F::DISK_SIZE_DVD_STANDARD);
}

// A format builds its default tree on first use: threads asking first at once all get it whole.
TEST(DiscFormat, FirstDefaultsFromSeveralThreadsAgree) {
    const DataHelperPtr fresh = DataHelperFormatDVD::Create();
    const Property expected = Format(F::FORMAT_DVD)->GetDefaults();
    std::vector<Property> results(4);
    std::vector<std::thread> threads;
    for (Property& result : results) {
        threads.emplace_back([&] { result = fresh->GetDefaults(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const Property& result : results) {
        EXPECT_EQ(result, expected);
        EXPECT_EQ(result.GetName(), expected.GetName());
    }
}

TEST(DiscFormat, DvdRulesAtTheirBounds) {
    struct Case {
        const char* name;
        std::vector<std::pair<std::string, Property>> changes;
        std::vector<std::string> broken;
    };
    const Case cases[] = {
        {"valid job", {}, {}},
        {"MPEG-2 at its ceiling", {{kVideoBitrate, Property("", 9800000LL)}}, {}},
        {"MPEG-2 above its ceiling", {{kVideoBitrate, Property("", 9800001LL)}}, {kVideoBitrate}},
        {"MPEG-2 at the floor", {{kVideoBitrate, Property("", 100000LL)}}, {}},
        {"MPEG-2 below the floor", {{kVideoBitrate, Property("", 99999LL)}}, {kVideoBitrate}},
        {"MPEG-1 at its ceiling",
         {{kVideoCodecPath, Property("", V::CODEC_ID_MPEG1VIDEO)}, {kVideoBitrate, Property("", 1856000LL)}},
         {}},
        {"MPEG-1 above its ceiling",
         {{kVideoCodecPath, Property("", V::CODEC_ID_MPEG1VIDEO)}, {kVideoBitrate, Property("", 2000000LL)}},
         {kVideoBitrate}},
        {"variable audio bit rate",
         {{kAudioBitrateMode, Property("", IFormatCodec::TAG_BITRATE_MODE_VBR)}},
         {kAudioBitrateMode}},
        {"AC-3 at 192 kbit/s",
         {{kAudioCodecPath, Property("", A::CODEC_ID_AC3)}, {kAudioBitrate, Property("", 192000LL)}},
         {kAudioBitrate}},
        {"MP2 at 44.1 kHz", {{kSampleRatePath, Property("", 44100LL)}}, {kSampleRatePath}},
        {"audio outside the disc rules",
         {{kAudioCodecPath, Property("", A::CODEC_ID_MP3)},
          {kAudioBitrateMode, Property("", IFormatCodec::TAG_BITRATE_MODE_VBR)},
          {kSampleRatePath, Property("", 44100LL)}},
         {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Property job = DvdJob();
        for (const auto& [path, value] : c.changes) {
            At(job, path).CopyDataFrom(value);
        }
        EXPECT_EQ(BrokenRules(*Format(F::FORMAT_DVD), job), c.broken);
    }
}

TEST(DiscFormat, DvdCorrectsOnlyTheSampleRate) {
    for (const std::string& codec : {A::CODEC_ID_MP2, A::CODEC_ID_AC3}) {
        SCOPED_TRACE(codec);
        Property node = CodecNode(A::TAG_FORMAT_CODEC_AUDIO, codec, 44100);
        node.SetChildT(IFormatCodec::TAG_BITRATE_MODE, IFormatCodec::TAG_BITRATE_MODE_VBR);
        node.SetChildT(IFormatCodec::TAG_BITRATE, 128000LL);
        Property expected = node;
        expected[A::TAG_SAMPLE_RATE] = 48000LL;
        Format(F::FORMAT_DVD)->CorrectFormatCodec(node);
        EXPECT_EQ(node, expected);
    }
}

TEST(DiscFormat, DvdConstraints) {
    IDataHelper::Constraints constraints = ConstraintsOf(*Format(F::FORMAT_DVD));
    ASSERT_EQ(constraints.size(), 6u);

    const ConstraintPtr standard = constraints.at(F::TAG_DVD_STANDARD);
    EXPECT_TRUE(standard->IsValid(Property("", F::DVD_STANDARD_NTSC)));
    EXPECT_TRUE(standard->IsValid(Property("", F::DVD_STANDARD_PAL)));
    EXPECT_FALSE(standard->IsValid(Property("", "secam")));

    // Disc sizes are offered by name.
    const auto sizes = FakeConstraintConsumer::Create();
    constraints.at(F::TAG_DISK_SIZE)->FillValueList(sizes);
    const Property offered = sizes->GetValue();
    ASSERT_EQ(ChildNames(offered), (std::vector<std::string>{F::DISK_TYPE_DVD_MINI, F::DISK_TYPE_DVD_STANDARD,
                                                             F::DISK_TYPE_DVD_DOUBLE_LAYER}));
    EXPECT_EQ(offered[0ul].GetInt64(), F::DISK_SIZE_DVD_MINI);
    EXPECT_EQ(offered[1ul].GetInt64(), F::DISK_SIZE_DVD_STANDARD);
    EXPECT_EQ(offered[2ul].GetInt64(), F::DISK_SIZE_DVD_DOUBLE_LAYER);

    // the video stream's setting, a value, whether it is admitted
    const std::tuple<std::string, Property, bool> cases[] = {
        {IFormatCodec::TAG_BITRATE_MODE, Property("", IFormatCodec::TAG_BITRATE_MODE_CBR_AUTO), true},
        {IFormatCodec::TAG_BITRATE_MODE, Property("", IFormatCodec::TAG_BITRATE_MODE_CBR), true},
        {IFormatCodec::TAG_BITRATE_MODE, Property("", IFormatCodec::TAG_BITRATE_MODE_VBR), false},
        {IFormatCodec::TAG_BITRATE, Property("", 100000LL), true},
        {IFormatCodec::TAG_BITRATE, Property("", V::MAX_VIDEO_BITRATE), true},
        {IFormatCodec::TAG_BITRATE, Property("", 99999LL), false},
        {IFormatCodec::TAG_BITRATE, Property("", V::MAX_VIDEO_BITRATE + 1), false},
    };
    for (const auto& [setting, value, admitted] : cases) {
        EXPECT_EQ(constraints.at(Path(kStreamVideo, setting))->IsValid(value), admitted)
            << setting << " " << PropertyValueToString(value);
    }
}

TEST(DiscFormat, ProgramStreamAndGifFrameRates) {
    struct Case {
        std::string format;
        std::string codec;
        Ratio fps;
        bool broken;
    };
    const Case cases[] = {
        {F::FORMAT_VOB, V::CODEC_ID_MPEG2VIDEO, Ratio(20), false},
        {F::FORMAT_VOB, V::CODEC_ID_MPEG2VIDEO, Ratio(15), true},
        {F::FORMAT_VOB, V::CODEC_ID_MPEG2VIDEO, Ratio(24000, 1001), false},
        {F::FORMAT_VOB, V::CODEC_ID_MPEG2VIDEO, Ratio(60000, 1001), false},
        {F::FORMAT_VOB, V::CODEC_ID_MPEG1VIDEO, Ratio(15), true},
        {F::FORMAT_VOB, V::CODEC_ID_MPEG4, Ratio(15), false},
        {F::FORMAT_MPEG, V::CODEC_ID_MPEG1VIDEO, Ratio(15), true},
        {F::FORMAT_MPEG, V::CODEC_ID_MPEG1VIDEO, Ratio(60), false},
        // The MPEG-1 stream holds only MPEG-1 video to these rates.
        {F::FORMAT_MPEG, V::CODEC_ID_MPEG2VIDEO, Ratio(15), false},
        // GIF keeps the source rate or runs at 8 to 30, without the MPEG table's 50 and 60.
        {F::FORMAT_GIF, V::CODEC_ID_GIF, Ratio(24000, 1001), false},
        {F::FORMAT_GIF, V::CODEC_ID_GIF, Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE, false},
        {F::FORMAT_GIF, V::CODEC_ID_GIF, Ratio(8), false},
        {F::FORMAT_GIF, V::CODEC_ID_GIF, Ratio(30), false},
        {F::FORMAT_GIF, V::CODEC_ID_GIF, Ratio(60), true},
        {F::FORMAT_GIF, V::CODEC_ID_GIF, Ratio(50), true},
        {F::FORMAT_GIF, V::CODEC_ID_GIF, Ratio(7), true},
        {F::FORMAT_GIF, V::CODEC_ID_PNG, Ratio(60), false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.format + " " + c.codec + " " + PropertyValueToString(Property("", c.fps)));
        const Property job = Settings({{kVideoCodecPath, Property("", c.codec)}, {kFpsPath, Property("", c.fps)}});
        EXPECT_EQ(BrokenRules(*Format(c.format), job),
                  c.broken ? std::vector<std::string>{kFpsPath} : std::vector<std::string>{});
    }
    EXPECT_TRUE(RulesOf(*Format(F::FORMAT_PNG)).empty());
}
