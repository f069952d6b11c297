#include "Conf/ConfException.h"
#include "Conf/DataHelpers/DataHelperAudioCodecFlac.h"
#include "Conf/DataHelpers/DataHelperAudioCodecVorbis.h"
#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/DataHelpers/ValidationRuleCheck.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IPreset.h"
#include "HelperQueries.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

using namespace Tervan;
using namespace Tervan::Conf;
using namespace HelperQueries;
using C = IFormatCodec;
using A = IFormatCodecAudio;

namespace {

DataHelperPtr AudioHelper(const std::string& codecId) {
    return CreateDataHelper(IPreset::KEY_FILTER_AUDIO_CODEC, codecId);
}

// A codec node as correction sees it: the resampler values live beside the codec id.
Core::Property Node(const std::string& codecId, long long rate, const std::string& layout, const std::string& format) {
    Core::Property node(IPreset::KEY_FILTER_AUDIO_CODEC);
    node.SetChildT(C::TAG_CODEC_ID, codecId);
    node.SetChildT(A::TAG_SAMPLE_RATE, rate);
    node.SetChildT(A::TAG_LAYOUT, layout);
    node.SetChildT(A::TAG_SAMPLE_FORMAT, format);
    return node;
}

// A job with this codec selected and the resampler set to rate and layout.
Core::Property Job(const std::string& codecId, long long rate, const std::string& layout) {
    Core::Property job("job");
    job.SetChild(IPreset::KEY_FILTER_AUDIO_CODEC).SetChildT(C::TAG_CODEC_ID, codecId);
    Core::Property& resampler = job[Proc::IFilterResample::CLASS_ID][Proc::IResample::CLASS_ID];
    resampler.SetChildT(A::TAG_SAMPLE_RATE, rate);
    resampler.SetChildT(A::TAG_LAYOUT, layout);
    return job;
}

// The verdicts of every rule of helper on the second path, for this job.
std::vector<ValidationRuleCheck::Verdict> VerdictsOn(const IDataHelper& helper, const std::string& secondPath,
                                                     const Core::Property& job) {
    std::vector<ValidationRuleCheck::Verdict> verdicts;
    for (const auto& rule : RulesOf(helper)) {
        if (rule.second->GetSecondPath() == secondPath) {
            verdicts.push_back(ValidationRuleCheck::Evaluate(*rule.second, job).verdict);
        }
    }
    return verdicts;
}

bool AllHold(const std::vector<ValidationRuleCheck::Verdict>& verdicts) {
    return std::all_of(verdicts.begin(), verdicts.end(), [](auto v) { return v == ValidationRuleCheck::HOLDS; });
}

}  // namespace

TEST(AudioCodec, RegistryKeysMatchTheHelpersCodecs) {
    const auto& table = GetAvailableDataHelpers(IPreset::KEY_FILTER_AUDIO_CODEC);
    ASSERT_EQ(table.size(), 25u);
    for (const auto& entry : table) {
        SCOPED_TRACE(entry.first);
        const Core::Property defaults = entry.second->GetDefaults();
        EXPECT_EQ(defaults.GetName(), IPreset::KEY_FILTER_AUDIO_CODEC);
        ASSERT_GE(defaults.Count(), 2u);
        EXPECT_EQ(defaults[0ul].GetName(), C::TAG_CODEC_ID);
        EXPECT_EQ(defaults[0ul].GetString(), entry.first);
        const Core::Property& options = defaults[defaults.Count() - 1];
        EXPECT_EQ(options.GetName(), C::TAG_CODEC_OPTIONS_ENCODE);
        EXPECT_EQ(options.Count(), entry.first == A::CODEC_ID_AAC ? 1u : 0u);
        CheckedDefaults(*entry.second);

        IDataHelper::RequiredObjects required;
        entry.second->GetRequiredObjects(required);
        if (entry.first == C::CODEC_ID_AUTO) {
            EXPECT_TRUE(required.empty());
        } else {
            EXPECT_EQ(required, (IDataHelper::RequiredObjects{{Proc::IFilterResample::CLASS_ID, ""}}));
        }
    }
}

TEST(AudioCodec, LosslessEstimateSnapsToTheTabulatedShape) {
    struct Case {
        long long rate;
        std::string layout;
        std::string format;
        long long bitrate;
    };
    const Case cases[] = {
        // Halfway between 8000 and 16000: the lower rate's cell.
        {12000, A::TAG_CH_LAYOUT_STEREO, "s16", 208000},
        // Eight channels are estimated as six.
        {44100, A::TAG_CH_LAYOUT_7POINT1, "s16", 1059001},
        // Beyond the table: the highest rate, with its own ratio.
        {192000, A::TAG_CH_LAYOUT_MONO, "s32", 1169998},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.rate) + " " + c.layout + " " + c.format);
        EXPECT_EQ(DataHelperAudioCodecFlac::CalculateBitrate(Node("", c.rate, c.layout, c.format)), c.bitrate);
    }
}

TEST(AudioCodec, LosslessPresetOnlySelectsTheCodec) {
    Core::Property preset("preset");
    preset.SetChildT(C::TAG_CODEC_ID, A::CODEC_ID_MP3);
    preset.SetChildT(C::TAG_BITRATE_MODE, std::string("no such mode"));
    preset.SetChildT(C::TAG_BITRATE, 128000LL);
    for (const std::string& codec : {A::CODEC_ID_FLAC, A::CODEC_ID_ALAC}) {
        SCOPED_TRACE(codec);
        Core::Property out("out");
        AudioHelper(codec)->ApplyPresetSettings(preset, out);
        ASSERT_EQ(out.Count(), 1u);
        EXPECT_EQ(out[C::TAG_CODEC_ID].GetString(), codec);
    }
}

TEST(AudioCodec, CorrectionSetsModeBitrateAndQuality) {
    const std::string &cbr = C::TAG_BITRATE_MODE_CBR, &vbr = C::TAG_BITRATE_MODE_VBR;
    const std::string &mono = A::TAG_CH_LAYOUT_MONO, &stereo = A::TAG_CH_LAYOUT_STEREO;
    // codec, stream shape, mode and bitrate before correction; mode, bitrate and quality (0: none) after it
    struct Case {
        std::string codec;
        long long rate;
        std::string layout, format, mode;
        long long bitrate;
        std::string expectedMode;
        long long expectedBitrate, quality;
    };
    const Case cases[] = {
        // Lossless codecs estimate, and call the estimate variable.
        {A::CODEC_ID_FLAC, 44100, stereo, "s16", cbr, 128000, vbr, 940999, 0},
        {A::CODEC_ID_ALAC, 44100, stereo, "s16", cbr, 128000, vbr, 940999, 0},
        {A::CODEC_ID_PCM_S16LE, 48000, stereo, "s16", vbr, 128000, cbr, 1536000, 0},
        {A::CODEC_ID_PCM_U8, 22050, mono, "u8", vbr, 128000, cbr, 176400, 0},
        {A::CODEC_ID_PCM_S32BE, 44100, A::TAG_CH_LAYOUT_5POINT1, "s32", vbr, 128000, cbr, 8467200, 0},
        // The resampler is corrected first: 96000 Hz is not offered, 48000 is.
        {A::CODEC_ID_PCM_S16BE, 96000, stereo, "s16", vbr, 128000, cbr, 1536000, 0},
        // A mode off the codec's list falls back to its default; MP3 and WMA2 also get their default quality.
        {A::CODEC_ID_AAC, 44100, stereo, "s16", vbr, 128000, cbr, 128000, 0},
        {A::CODEC_ID_MP2, 44100, stereo, "s16", vbr, 128000, cbr, 128000, 0},
        {A::CODEC_ID_MP3, 44100, stereo, "s16", vbr, 128000, vbr, 128000, 1},
        {A::CODEC_ID_WMAV2, 44100, stereo, "s16", vbr, 128000, vbr, 128000, 1},
        {A::CODEC_ID_AC3, 44100, stereo, "s16", vbr, 128000, vbr, 128000, 0},
        {A::CODEC_ID_DTS, 44100, stereo, "s16", vbr, 128000, vbr, 128000, 0},
        // A bitrate off the list snaps to its nearest entry (AMR-NB after its 8000 Hz mono correction).
        {A::CODEC_ID_AAC, 44100, stereo, "fltp", cbr, 100000, cbr, 96000, 0},
        {A::CODEC_ID_AMR_NB, 44100, stereo, "s16", vbr, 128000, cbr, 12200, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.codec + " " + std::to_string(c.rate) + " " + c.layout + " " + std::to_string(c.bitrate));
        Core::Property node = Node(c.codec, c.rate, c.layout, c.format);
        node.SetChildT(C::TAG_BITRATE_MODE, c.mode);
        node.SetChildT(C::TAG_BITRATE, c.bitrate);
        AudioHelper(c.codec)->CorrectFormatCodec(node);
        EXPECT_EQ(node[C::TAG_BITRATE_MODE].GetString(), c.expectedMode);
        EXPECT_EQ(node[C::TAG_BITRATE].GetInt64(), c.expectedBitrate);
        ASSERT_EQ(node.ChildExists(C::TAG_QUALITY), c.quality != 0);
        if (c.quality != 0) {
            EXPECT_EQ(node[C::TAG_QUALITY].GetInt64(), c.quality);
        }
    }
}

TEST(AudioCodec, VorbisSnapsToTheNearestOperatingPoint) {
    struct Case {
        std::string layout;
        long long rate, bitrate;
        std::string expectedLayout;
        long long expectedRate, expectedBitrate;
    };
    const Case cases[] = {
        {A::TAG_CH_LAYOUT_STEREO, 44100, 500000, A::TAG_CH_LAYOUT_STEREO, 44100, 320000},
        // No mono point near 256000 at 8000 Hz: a channel and a rate step are cheaper.
        {A::TAG_CH_LAYOUT_MONO, 8000, 256000, A::TAG_CH_LAYOUT_STEREO, 16000, 192000},
        {A::TAG_CH_LAYOUT_STEREO, 96000, 128000, A::TAG_CH_LAYOUT_STEREO, 48000, 128000},
        {A::TAG_CH_LAYOUT_5POINT1, 44100, 128000, A::TAG_CH_LAYOUT_5POINT1, 44100, 192000},
        // Dropping a channel, or moving the rate, costs more than raising the bitrate.
        {A::TAG_CH_LAYOUT_7POINT1, 48000, 64000, A::TAG_CH_LAYOUT_7POINT1, 48000, 256000},
        {A::TAG_CH_LAYOUT_MONO, 8000, 160000, A::TAG_CH_LAYOUT_MONO, 11025, 48000},
    };
    const DataHelperPtr vorbis = AudioHelper(A::CODEC_ID_VORBIS);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.layout + " " + std::to_string(c.rate) + " " + std::to_string(c.bitrate));
        Core::Property node = Node(A::CODEC_ID_VORBIS, c.rate, c.layout, "fltp");
        node.SetChildT(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR);
        node.SetChildT(C::TAG_BITRATE, c.bitrate);
        vorbis->CorrectFormatCodec(node);
        EXPECT_EQ(node[A::TAG_LAYOUT].GetString(), c.expectedLayout);
        EXPECT_EQ(node[A::TAG_SAMPLE_RATE].GetInt64(), c.expectedRate);
        EXPECT_EQ(node[C::TAG_BITRATE].GetInt64(), c.expectedBitrate);
    }
}

TEST(AudioCodec, VorbisOperatingPointsAreOrderedAndBounded) {
    const auto& points = DataHelperAudioCodecVorbis::OperatingPoints();
    ASSERT_EQ(points.size(), 490u);
    const auto key = [](const DataHelperAudioCodecVorbis::OperatingPoint& p) {
        return std::make_tuple(p.channels, p.sampleRate, p.bitrate);
    };
    EXPECT_TRUE(
        std::is_sorted(points.begin(), points.end(), [&](const auto& a, const auto& b) { return key(a) < key(b); }));
}

TEST(AudioCodec, VorbisBitrateRulesPerSampleRate) {
    struct Case {
        long long rate, bitrate;
        bool holds;
    };
    const Case cases[] = {
        {8000, 48000, true},    {8000, 64000, false},  {11025, 96000, true},   {16000, 16000, false},
        {22050, 192000, false}, {24000, 160000, true}, {24000, 192000, false}, {32000, 320000, true},
        {44100, 448000, true},  {48000, 32000, false},
    };
    const DataHelperPtr vorbis = AudioHelper(A::CODEC_ID_VORBIS);
    const std::string bitratePath = IPreset::KEY_FILTER_AUDIO_CODEC + "/" + C::TAG_BITRATE;
    // Bound to the sample rate, not to the codec: a rule for one rate leaves the others alone.
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.rate) + " Hz at " + std::to_string(c.bitrate));
        Core::Property job = Job(A::CODEC_ID_VORBIS, c.rate, A::TAG_CH_LAYOUT_STEREO);
        job[IPreset::KEY_FILTER_AUDIO_CODEC].SetChildT(C::TAG_BITRATE, c.bitrate);
        EXPECT_EQ(AllHold(VerdictsOn(*vorbis, bitratePath, job)), c.holds);
    }
}

TEST(AudioCodec, AcceptAnythingCodecs) {
    const DataHelperPtr ac3 = AudioHelper(A::CODEC_ID_AC3);
    for (const DataHelperPtr& codec : {ac3, AudioHelper(A::CODEC_ID_DTS)}) {
        const IDataHelper::Constraints constraints = ConstraintsOf(*codec);
        ASSERT_EQ(constraints.size(), 2u);
        for (const std::string& tag : {C::TAG_BITRATE, C::TAG_BITRATE_MODE}) {
            ASSERT_EQ(constraints.count(tag), 1u) << tag;
            EXPECT_TRUE(constraints.at(tag)->IsValid(Core::Property("", std::string("anything"))));
            EXPECT_TRUE(constraints.at(tag)->IsValid(Core::Property("", 1LL)));
        }
    }
    // Its one rule accepts any sample rate; the encoder's own lists are not enforced.
    const IDataHelper::ValidationRules rules = RulesOf(*ac3);
    ASSERT_EQ(rules.size(), 1u);
    EXPECT_EQ(rules[0].second->GetSecondPath(), ResamplerPath(A::TAG_SAMPLE_RATE));
    EXPECT_TRUE(AllHold(
        VerdictsOn(*ac3, ResamplerPath(A::TAG_SAMPLE_RATE), Job(A::CODEC_ID_AC3, 12345, A::TAG_CH_LAYOUT_7POINT1))));

    const DataHelperPtr dts = AudioHelper(A::CODEC_ID_DTS);
    const DataHelperPtr other = AudioHelper(A::CODEC_ID_MP3);
    IDataHelper::ValidationRules given;
    other->GetValidationRules(given);
    const IDataHelper::ValidationRules before = given;
    dts->GetValidationRules(given);
    EXPECT_EQ(given, before);
    EXPECT_EQ(ConstraintsOf(*dts).size(), 2u);
}

TEST(AudioCodec, AmrNbTakes8000HzMonoOnly) {
    const DataHelperPtr amr = AudioHelper(A::CODEC_ID_AMR_NB);
    const std::string ratePath = ResamplerPath(A::TAG_SAMPLE_RATE);
    const std::string layoutPath = ResamplerPath(A::TAG_LAYOUT);
    for (const std::string& path : {ratePath, layoutPath}) {
        const auto verdicts = VerdictsOn(*amr, path, Job(A::CODEC_ID_AMR_NB, 8000, A::TAG_CH_LAYOUT_MONO));
        ASSERT_FALSE(verdicts.empty()) << path;
        EXPECT_TRUE(AllHold(verdicts)) << path;
    }
    EXPECT_FALSE(AllHold(VerdictsOn(*amr, ratePath, Job(A::CODEC_ID_AMR_NB, 11025, A::TAG_CH_LAYOUT_MONO))));
    EXPECT_FALSE(AllHold(VerdictsOn(*amr, layoutPath, Job(A::CODEC_ID_AMR_NB, 8000, A::TAG_CH_LAYOUT_STEREO))));
    // The rules bite only while AMR-NB is the codec.
    EXPECT_TRUE(AllHold(VerdictsOn(*amr, ratePath, Job(A::CODEC_ID_MP3, 44100, A::TAG_CH_LAYOUT_STEREO))));

    Core::Property node = Node(A::CODEC_ID_AMR_NB, 44100, A::TAG_CH_LAYOUT_STEREO, "s16");
    amr->CorrectFormatCodec(node);
    EXPECT_EQ(node[A::TAG_SAMPLE_RATE].GetInt64(), 8000);
    EXPECT_EQ(node[A::TAG_LAYOUT].GetString(), A::TAG_CH_LAYOUT_MONO);
}

TEST(AudioCodec, AacProfileConstrainedInsideTheEncoderOptions) {
    const IDataHelper::Constraints constraints = ConstraintsOf(*AudioHelper(A::CODEC_ID_AAC));
    EXPECT_EQ(constraints.count(C::TAG_PROFILE), 0u);
    const std::string path = C::TAG_CODEC_OPTIONS_ENCODE + "/" + C::TAG_PROFILE;
    ASSERT_EQ(constraints.count(path), 1u);
    EXPECT_TRUE(constraints.at(path)->IsValid(Core::Property("", A::TAG_AAC_PROFILE_HE_V2)));
    EXPECT_FALSE(constraints.at(path)->IsValid(Core::Property("", std::string("main10"))));
}

TEST(AudioCodec, BitrateModesOfferedInOrder) {
    const std::string &cbr = C::TAG_BITRATE_MODE_CBR, &vbr = C::TAG_BITRATE_MODE_VBR;
    for (const auto& [codec, modes] :
         {std::pair(A::CODEC_ID_MP3, Labels{vbr, cbr}), std::pair(A::CODEC_ID_WMAV2, Labels{cbr, vbr})}) {
        SCOPED_TRACE(codec);
        EXPECT_EQ(LabelsOf(ConstraintsOf(*AudioHelper(codec)).at(C::TAG_BITRATE_MODE)), modes);
    }
}

TEST(AudioCodec, EmptyCodecForcesNoAudioAndChangesNothing) {
    const DataHelperPtr empty = AudioHelper(C::CODEC_ID_AUTO);
    const std::string ratePath = ResamplerPath(A::TAG_SAMPLE_RATE);
    const std::string layoutPath = ResamplerPath(A::TAG_LAYOUT);
    EXPECT_TRUE(AllHold(VerdictsOn(*empty, ratePath, Job(C::CODEC_ID_AUTO, -1, A::TAG_CH_LAYOUT_UNKNOWN))));
    EXPECT_TRUE(AllHold(VerdictsOn(*empty, layoutPath, Job(C::CODEC_ID_AUTO, -1, A::TAG_CH_LAYOUT_UNKNOWN))));
    EXPECT_FALSE(AllHold(VerdictsOn(*empty, ratePath, Job(C::CODEC_ID_AUTO, 44100, A::TAG_CH_LAYOUT_UNKNOWN))));
    EXPECT_FALSE(AllHold(VerdictsOn(*empty, layoutPath, Job(C::CODEC_ID_AUTO, -1, A::TAG_CH_LAYOUT_STEREO))));
    EXPECT_EQ(RulesOf(*empty).size(), 2u);

    Core::Property preset("preset");
    preset.SetChildT(C::TAG_CODEC_ID, A::CODEC_ID_MP3);
    preset.SetChildT(C::TAG_BITRATE_MODE, std::string("no such mode"));
    Core::Property node = Node(A::CODEC_ID_MP3, 44100, A::TAG_CH_LAYOUT_STEREO, "s16");
    const Core::Property before = node;
    empty->ApplyPresetSettings(preset, node);
    empty->CorrectFormatCodec(node);
    EXPECT_EQ(node, before);
}
