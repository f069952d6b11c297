#include "Conf/ConfException.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/DataHelperCodecFFMPEG.h"
#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Conf/VideoBitrate.h"
#include "HelperQueries.h"
#include "Media/MediaWrapper.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

using namespace Tervan;
using namespace Tervan::Conf;
using namespace HelperQueries;
using C = IFormatCodec;
using V = IFormatCodecVideo;
using A = IFormatCodecAudio;

namespace {

// The base as it stands, for any codec and media type.
class PlainCodec : public DataHelperCodecFFMPEG {
public:
    static boost::intrusive_ptr<PlainCodec> Make(const std::string& codecId, MediaType type) {
        return new PlainCodec(codecId, type);
    }

protected:
    PlainCodec(const std::string& codecId, MediaType type) : DataHelperCodecFFMPEG(codecId, type) {}
    ~PlainCodec() override = default;
};

// An audio codec whose sample-rate rule admits one string only, so no rate can be repaired.
class UnfixableRateCodec : public DataHelperCodecFFMPEG {
public:
    static boost::intrusive_ptr<UnfixableRateCodec> Make() { return new UnfixableRateCodec(); }
    using DataHelperCodecFFMPEG::CorrectAudioResamplerSettings;
    void GetValidationRules(ValidationRules& out) const override {
        DataHelperCodecFFMPEG::GetValidationRules(out);
        AddCodecRule(out, ResamplerPath(A::TAG_SAMPLE_RATE),
                     ConstraintSet::Create(BeginPairList("x", std::string("x"))));
    }

protected:
    UnfixableRateCodec() : DataHelperCodecFFMPEG("no-such-codec", MEDIA_TYPE_AUDIO) {}
    ~UnfixableRateCodec() override = default;
};

Core::Property Preset(const std::string& codecId, const std::string& mode) {
    Core::Property preset("preset");
    preset.SetChildT(C::TAG_CODEC_ID, codecId);
    preset.SetChildT(C::TAG_BITRATE_MODE, mode);
    return preset;
}

// A video codec node as the caller fills it before applying a preset.
Core::Property VideoOut(long long width, long long height, const boost::rational<long long>& fps) {
    Core::Property out(IPreset::KEY_FILTER_VIDEO_CODEC);
    out.SetChildT(V::TAG_WIDTH, width);
    out.SetChildT(V::TAG_HEIGHT, height);
    out.SetChildT(V::TAG_FPS, fps);
    return out;
}

DataHelperPtr VideoHelper(const std::string& codecId) {
    return CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, codecId);
}

}  // namespace

TEST(CodecBase, VideoPresetModes) {
    const DataHelperPtr mpeg4 = VideoHelper(V::CODEC_ID_MPEG4);
    const boost::rational<long long> ntsc(30000, 1001);
    const double fps = 30000.0 / 1001.0;

    Core::Property cbr = Preset(V::CODEC_ID_MPEG4, C::TAG_BITRATE_MODE_CBR);
    cbr.SetChildT(C::TAG_BITRATE, 3000000LL);
    cbr.SetChildT(V::TAG_BITS_PER_PIXEL, 24LL);
    Core::Property out = VideoOut(640, 480, ntsc);
    mpeg4->ApplyPresetSettings(cbr, out);
    EXPECT_EQ(out[C::TAG_CODEC_ID].GetString(), V::CODEC_ID_MPEG4);
    EXPECT_EQ(out[C::TAG_BITRATE_MODE].GetString(), C::TAG_BITRATE_MODE_CBR);
    EXPECT_EQ(out[C::TAG_BITRATE].GetInt64(), 3000000);
    EXPECT_EQ(out[V::TAG_BITS_PER_PIXEL].GetInt64(), 24);

    Core::Property vbr = Preset(V::CODEC_ID_MPEG4, C::TAG_BITRATE_MODE_VBR);
    vbr.SetChildT(C::TAG_QUALITY, 90LL);
    out = VideoOut(640, 480, ntsc);
    mpeg4->ApplyPresetSettings(vbr, out);
    EXPECT_EQ(out[C::TAG_BITRATE_MODE].GetString(), C::TAG_BITRATE_MODE_VBR);
    EXPECT_EQ(out[C::TAG_QUALITY].GetInt64(), 90);
    EXPECT_EQ(out[C::TAG_BITRATE].GetInt64(), GetDefaultVideoBitrate(V::CODEC_ID_MPEG4, 640, 480, fps, 90));
    EXPECT_EQ(out[V::TAG_BITS_PER_PIXEL].GetInt64(), 0);

    // The automatic mode is stored as plain CBR with a bitrate for no particular quality.
    out = VideoOut(1280, 720, ntsc);
    mpeg4->ApplyPresetSettings(Preset(V::CODEC_ID_MPEG4, C::TAG_BITRATE_MODE_CBR_AUTO), out);
    EXPECT_EQ(out[C::TAG_BITRATE_MODE].GetString(), C::TAG_BITRATE_MODE_CBR);
    EXPECT_EQ(out[C::TAG_BITRATE].GetInt64(), GetDefaultVideoBitrate(V::CODEC_ID_MPEG4, 1280, 720, fps, -1));
    EXPECT_FALSE(out.ChildExists(C::TAG_QUALITY));
}

TEST(CodecBase, VideoPresetCopiesEncoderSettingsWithTheirTypes) {
    Core::Property preset = Preset(V::CODEC_ID_MPEG2VIDEO, C::TAG_BITRATE_MODE_CBR);
    preset.SetChildT(C::TAG_BITRATE, 4000000LL);
    preset.SetChildT(V::TAG_MAX_I_FRAME_INTERVAL, 12.0);
    preset.SetChildT(C::TAG_UTILIZE_ALL_RESOURCES, true);
    preset.SetChildT(C::TAG_MULTIPASS_ENCODING, C::TAG_TWO_PASS_MODE);
    Core::Property out = VideoOut(720, 576, 25);
    VideoHelper(V::CODEC_ID_MPEG2VIDEO)->ApplyPresetSettings(preset, out);
    EXPECT_EQ(out[V::TAG_MAX_I_FRAME_INTERVAL].GetType(), TYPE_INT64);
    EXPECT_EQ(out[V::TAG_MAX_I_FRAME_INTERVAL].GetInt64(), 12);
    EXPECT_TRUE(out[C::TAG_UTILIZE_ALL_RESOURCES].GetBool());
    EXPECT_EQ(out[C::TAG_MULTIPASS_ENCODING].GetString(), C::TAG_TWO_PASS_MODE);
    EXPECT_FALSE(out.ChildExists(V::TAG_MAX_B_FRAME_SEQUENCE));
    EXPECT_FALSE(out.ChildExists(C::TAG_THREAD_NUMBER));
}

TEST(CodecBase, PresetEncoderOptionsFallBackToTheDefaultsWhenEmpty) {
    const DataHelperPtr mpeg4 = VideoHelper(V::CODEC_ID_MPEG4);
    Core::Property preset = Preset(V::CODEC_ID_MPEG4, C::TAG_BITRATE_MODE_CBR_AUTO);
    preset.SetChild(C::TAG_CODEC_OPTIONS_ENCODE);
    Core::Property out = VideoOut(320, 240, 25);
    mpeg4->ApplyPresetSettings(preset, out);
    EXPECT_EQ(out[C::TAG_CODEC_OPTIONS_ENCODE], mpeg4->GetDefaults()[C::TAG_CODEC_OPTIONS_ENCODE]);
    ASSERT_EQ(out[C::TAG_CODEC_OPTIONS_ENCODE].Count(), 1u);

    preset[C::TAG_CODEC_OPTIONS_ENCODE].SetChildT(C::TAG_PROFILE, V::TAG_MPEG4_PROFILE_MAIN);
    mpeg4->ApplyPresetSettings(preset, out);
    EXPECT_EQ(out[C::TAG_CODEC_OPTIONS_ENCODE][C::TAG_PROFILE].GetString(), V::TAG_MPEG4_PROFILE_MAIN);
}

TEST(CodecBase, AudioPresetModes) {
    const auto mp2 = PlainCodec::Make(A::CODEC_ID_MP2, MEDIA_TYPE_AUDIO);
    Core::Property out(IPreset::KEY_FILTER_AUDIO_CODEC);

    Core::Property cbr = Preset(A::CODEC_ID_MP2, C::TAG_BITRATE_MODE_CBR);
    cbr.SetChildT(C::TAG_BITRATE, 192000LL);
    mp2->ApplyPresetSettings(cbr, out);
    EXPECT_EQ(out[C::TAG_CODEC_ID].GetString(), A::CODEC_ID_MP2);
    EXPECT_EQ(out[C::TAG_BITRATE].GetInt64(), 192000);

    Core::Property vbr = Preset(A::CODEC_ID_MP2, C::TAG_BITRATE_MODE_VBR);
    vbr.SetChildT(C::TAG_QUALITY, 4LL);
    mp2->ApplyPresetSettings(vbr, out);
    EXPECT_EQ(out[C::TAG_BITRATE_MODE].GetString(), C::TAG_BITRATE_MODE_VBR);
    EXPECT_EQ(out[C::TAG_QUALITY].GetInt64(), 4);

    // Audio asks no quality of a VBR preset.
    EXPECT_NO_THROW(mp2->ApplyPresetSettings(Preset(A::CODEC_ID_MP2, C::TAG_BITRATE_MODE_VBR), out));

    // The automatic mode leaves the bitrate to correction.
    Core::Property fresh(IPreset::KEY_FILTER_AUDIO_CODEC);
    mp2->ApplyPresetSettings(Preset(A::CODEC_ID_MP2, C::TAG_BITRATE_MODE_CBR_AUTO), fresh);
    EXPECT_EQ(fresh[C::TAG_BITRATE_MODE].GetString(), C::TAG_BITRATE_MODE_CBR);
    EXPECT_FALSE(fresh.ChildExists(C::TAG_BITRATE));
}

TEST(CodecBase, PresetErrors) {
    const DataHelperPtr mpeg4 = VideoHelper(V::CODEC_ID_MPEG4);
    const auto mp2 = PlainCodec::Make(A::CODEC_ID_MP2, MEDIA_TYPE_AUDIO);
    const auto neither = PlainCodec::Make(V::CODEC_ID_MPEG4, static_cast<MediaType>(0));
    Core::Property out = VideoOut(640, 480, 25);

    EXPECT_EQ(
        HelperMessage([&] { mpeg4->ApplyPresetSettings(Preset(V::CODEC_ID_H264, C::TAG_BITRATE_MODE_CBR), out); }),
        "Incompatible preset codec id: " + V::CODEC_ID_H264 + ", required " + V::CODEC_ID_MPEG4);
    EXPECT_EQ(
        HelperMessage([&] { mpeg4->ApplyPresetSettings(Preset(V::CODEC_ID_MPEG4, C::TAG_BITRATE_MODE_VBR), out); }),
        "Quality is required for VBR bitrate mode");
    EXPECT_EQ(HelperMessage([&] { mpeg4->ApplyPresetSettings(Preset(V::CODEC_ID_MPEG4, "abr"), out); }),
              "Unknown bitrate mode");
    EXPECT_EQ(HelperMessage([&] { mp2->ApplyPresetSettings(Preset(A::CODEC_ID_MP2, "abr"), out); }),
              "Unknown bitrate mode");
    EXPECT_EQ(
        HelperMessage([&] { neither->ApplyPresetSettings(Preset(V::CODEC_ID_MPEG4, C::TAG_BITRATE_MODE_CBR), out); }),
        "Unknown stream type");
    EXPECT_EQ(HelperMessage([&] { neither->CorrectFormatCodec(out); }), "Unknown stream type");

    // A video preset needs the caller's frame whatever its mode.
    Core::Property noFrame(IPreset::KEY_FILTER_VIDEO_CODEC);
    EXPECT_THROW(mpeg4->ApplyPresetSettings(Preset(V::CODEC_ID_MPEG4, C::TAG_BITRATE_MODE_CBR), noFrame),
                 Core::PropertyException);
    EXPECT_THROW(mpeg4->ApplyPresetSettings(Preset(V::CODEC_ID_MPEG4, "abr"), noFrame), Core::PropertyException);

    Core::Property wordy = Preset(V::CODEC_ID_MPEG4, C::TAG_BITRATE_MODE_CBR);
    wordy.SetChildT(V::TAG_BITS_PER_PIXEL, std::string("many"));
    EXPECT_THROW(mpeg4->ApplyPresetSettings(wordy, out), Core::PropertyException);
}

TEST(CodecBase, BitrateCorrectionFallsBackToDefaults) {
    Core::Property settings = VideoHelper(V::CODEC_ID_MPEG2VIDEO)->GetDefaults();
    settings.SetChildT(C::TAG_BITRATE, 5LL);  // clamped by the range, which still reports failure
    settings.SetChildT(C::TAG_BITRATE_MODE, std::string("abr"));
    settings.SetChildT(C::TAG_QUALITY, 40LL);
    VideoHelper(V::CODEC_ID_MPEG2VIDEO)->CorrectFormatCodec(settings);
    EXPECT_EQ(settings[C::TAG_BITRATE].GetInt64(), 2000000);
    EXPECT_EQ(settings[C::TAG_BITRATE_MODE].GetString(), C::TAG_BITRATE_MODE_CBR);
    EXPECT_EQ(settings[C::TAG_QUALITY].GetInt64(), 40);

    // MPEG-1 neither constrains nor defaults a quality: an absent one stays absent, a
    // present one is kept, and a missing bitrate is restored.
    Core::Property mpeg1 = VideoHelper(V::CODEC_ID_MPEG1VIDEO)->GetDefaults();
    mpeg1.RemoveChild(C::TAG_BITRATE);
    VideoHelper(V::CODEC_ID_MPEG1VIDEO)->CorrectFormatCodec(mpeg1);
    EXPECT_EQ(mpeg1[C::TAG_BITRATE].GetInt64(), 2000000);
    EXPECT_FALSE(mpeg1.ChildExists(C::TAG_QUALITY));
    mpeg1.SetChildT(C::TAG_QUALITY, 500LL);
    VideoHelper(V::CODEC_ID_MPEG1VIDEO)->CorrectFormatCodec(mpeg1);
    EXPECT_EQ(mpeg1[C::TAG_QUALITY].GetInt64(), 500);
}

TEST(CodecBase, BFramesRemovedForEncodersWithoutThem) {
    const struct {
        const std::string* codec;
        bool keepsBFrames;
    } cases[] = {{&V::CODEC_ID_MJPEG, false}, {&V::CODEC_ID_FLV1, false},      {&V::CODEC_ID_WMV2, false},
                 {&V::CODEC_ID_H263, false},  {&V::CODEC_ID_MPEG2VIDEO, true}, {&V::CODEC_ID_MPEG4, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(*c.codec);
        const DataHelperPtr helper = VideoHelper(*c.codec);
        Core::Property settings = helper->GetDefaults();
        settings.SetChildT(V::TAG_MAX_B_FRAME_SEQUENCE, 2LL);
        helper->CorrectFormatCodec(settings);
        EXPECT_EQ(settings.ChildExists(V::TAG_MAX_B_FRAME_SEQUENCE), c.keepsBFrames);
    }
}

// A helper takes what its corrections consult on first use: threads correcting at once
// through a helper that has never corrected must all get the one-thread answer.
TEST(CodecBase, FirstCorrectionsFromSeveralThreadsAgree) {
    const auto fresh = PlainCodec::Make(A::CODEC_ID_MP2, MEDIA_TYPE_AUDIO);
    if (fresh->GetSampleRates().empty()) {
        GTEST_SKIP() << "no MP2 encoder";
    }
    Core::Property broken(IPreset::KEY_FILTER_AUDIO_CODEC);
    broken.SetChildT(C::TAG_CODEC_ID, A::CODEC_ID_MP2);
    broken.SetChildT(A::TAG_SAMPLE_RATE, 15000LL);
    broken.SetChildT(A::TAG_SAMPLE_FORMAT, std::string("dbl"));
    broken.SetChildT(A::TAG_LAYOUT, A::TAG_CH_LAYOUT_5POINT1);
    broken.SetChildT(C::TAG_BITRATE_MODE, std::string("none"));
    broken.SetChildT(C::TAG_BITRATE, 1LL);
    Core::Property expected = broken;
    PlainCodec::Make(A::CODEC_ID_MP2, MEDIA_TYPE_AUDIO)->CorrectFormatCodec(expected);
    // The resampler values snap to the encoder's lists.
    EXPECT_EQ(expected[A::TAG_SAMPLE_RATE].GetInt64(), 16000);
    EXPECT_EQ(expected[A::TAG_SAMPLE_FORMAT].GetString(), "s16");
    EXPECT_EQ(expected[A::TAG_LAYOUT].GetString(), A::TAG_CH_LAYOUT_STEREO);

    std::vector<Core::Property> results(4, broken);
    std::vector<std::thread> threads;
    for (Core::Property& result : results) {
        threads.emplace_back([&] { fresh->CorrectFormatCodec(result); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const Core::Property& result : results) {
        EXPECT_EQ(result, expected);
    }
}

TEST(CodecBase, UnfixableResamplerValueIsALogicError) {
    const auto codec = UnfixableRateCodec::Make();
    Core::Property settings(IPreset::KEY_FILTER_AUDIO_CODEC);
    settings.SetChildT(A::TAG_SAMPLE_RATE, std::string("fast"));
    ExpectLogicError([&] { codec->CorrectAudioResamplerSettings(settings); },
                     "Can't fix value [" + A::TAG_SAMPLE_RATE + "] = fast for encoder [no-such-codec]\n");
    // A value of the wrong type for a real helper's rule is a constraint error instead.
    EXPECT_THROW(CreateDataHelper(IPreset::KEY_FILTER_AUDIO_CODEC, A::CODEC_ID_PCM_S16LE)->CorrectFormatCodec(settings),
                 ConstraintIsNotApplicableForTypeException);
}

TEST(CodecBase, Mpeg1VideoOffersItsFirstEightFrameRatesAsConstraintAndRule) {
    const auto encoder = Media::FindEncoder("", CodecIDFromTextID(V::CODEC_ID_MPEG1VIDEO));
    if (!encoder) {
        GTEST_SKIP() << "no MPEG-1 video encoder";
    }
    const auto mpeg1 = PlainCodec::Make(V::CODEC_ID_MPEG1VIDEO, MEDIA_TYPE_VIDEO);
    const auto& rates = mpeg1->GetFrameRates();
    ASSERT_EQ(rates.size(), std::min<std::size_t>(8, encoder->frameRates.size()));
    for (std::size_t i = 0; i < rates.size(); ++i) {
        EXPECT_EQ(rates[i].second, encoder->frameRates[i]);
    }
    EXPECT_EQ(rates[0].first, "23.976");
    EXPECT_EQ(rates[0].second, boost::rational<long long>(24000, 1001));
    EXPECT_EQ(rates[3].first, "29.97");
    EXPECT_EQ(rates[2].first, "25");

    IDataHelper::Constraints constraints = ConstraintsOf(*mpeg1);
    ASSERT_EQ(constraints.count(V::TAG_FPS), 1u);
    EXPECT_TRUE(constraints[V::TAG_FPS]->IsValid(Core::Property("", boost::rational<long long>(25))));
    EXPECT_FALSE(constraints[V::TAG_FPS]->IsValid(Core::Property("", boost::rational<long long>(15))));
    const IDataHelper::ValidationRules rules = RulesOf(*mpeg1);
    ASSERT_EQ(rules.size(), 1u);
    EXPECT_EQ(rules[0].first, Core::Property::SEPARATOR);
    EXPECT_EQ(rules[0].second->GetFirstPath(), IPreset::KEY_FILTER_VIDEO_CODEC + "/" + C::TAG_CODEC_ID);
    EXPECT_EQ(rules[0].second->GetSecondPath(), Proc::IFilterFrameRate::CLASS_ID + "/" + V::TAG_FPS);

    // The cap is MPEG-1's alone.
    const auto mpeg2Encoder = Media::FindEncoder("", CodecIDFromTextID(V::CODEC_ID_MPEG2VIDEO));
    if (mpeg2Encoder) {
        EXPECT_EQ(PlainCodec::Make(V::CODEC_ID_MPEG2VIDEO, MEDIA_TYPE_VIDEO)->GetFrameRates().size(),
                  mpeg2Encoder->frameRates.size());
    }
}

TEST(CodecBase, Mp3EncoderSampleRatesFrom11025) {
    const auto encoder = Media::FindEncoder(Media::EncoderFromCodec(CodecIDFromTextID(A::CODEC_ID_MP3)), 0);
    if (!encoder) {
        GTEST_SKIP() << "no MP3 encoder";
    }
    const auto mp3 = PlainCodec::Make(A::CODEC_ID_MP3, MEDIA_TYPE_AUDIO);
    EXPECT_EQ(mp3->GetEncoderName(), encoder->name);
    std::vector<std::pair<std::string, long long>> expected;
    for (int rate : encoder->sampleRates) {
        if (rate >= 11025) {
            expected.emplace_back(std::to_string(rate), rate);
        }
    }
    EXPECT_EQ(mp3->GetSampleRates(), expected);
    EXPECT_LT(expected.size(), encoder->sampleRates.size()) << "the encoder lists no rate below 11025";

    std::vector<std::string> paths;
    for (const auto& rule : RulesOf(*mp3)) {
        paths.push_back(rule.second->GetSecondPath());
        EXPECT_EQ(rule.second->GetFirstPath(), IPreset::KEY_FILTER_AUDIO_CODEC + "/" + C::TAG_CODEC_ID);
    }
    EXPECT_EQ(paths, (std::vector<std::string>{ResamplerPath(A::TAG_SAMPLE_RATE), ResamplerPath(A::TAG_SAMPLE_FORMAT),
                                               ResamplerPath(A::TAG_LAYOUT)}));
}

TEST(CodecBase, MissingEncoderLeavesNoDerivedRules) {
    const auto unknown = PlainCodec::Make("no-such-codec", MEDIA_TYPE_VIDEO);
    EXPECT_TRUE(RulesOf(*unknown).empty());
    EXPECT_TRUE(ConstraintsOf(*unknown).empty());
    EXPECT_EQ(unknown->GetDefaults().Count(), 1u);
    EXPECT_EQ(unknown->GetDefaults().GetName(), IPreset::KEY_FILTER_VIDEO_CODEC);
}
