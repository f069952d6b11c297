#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/DataHelperCodecFFMPEG.h"
#include "Conf/DataHelpers/DataHelperVideoCodecImageBase.h"
#include "Conf/DataHelpers/DataHelperVideoCodecMpeg2.h"
#include "Conf/DataHelpers/DataHelperVideoCodecWmv3.h"
#include "Conf/DataHelpers/DataHelperVideoCodecX265.h"
#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/DataHelpers/ValidationRuleCheck.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "HelperQueries.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResize.h"
#include "Proc/IResize.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Tervan;
using namespace Tervan::Conf;
using namespace HelperQueries;
using C = IFormatCodec;
using V = IFormatCodecVideo;

namespace {

DataHelperPtr VideoHelper(const std::string& codecId) {
    return CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, codecId);
}

template <class T>
bool Admits(const IDataHelper& helper, const std::string& path, const T& value) {
    const IDataHelper::Constraints constraints = ConstraintsOf(helper);
    const auto it = constraints.find(path);
    if (it == constraints.end()) {
        ADD_FAILURE() << "no constraint on " << path;
        return false;
    }
    return it->second->IsValid(Core::Property("", value));
}

std::vector<boost::intrusive_ptr<IValidationRule>> RulesOn(const IDataHelper& helper, const std::string& secondPath) {
    std::vector<boost::intrusive_ptr<IValidationRule>> found;
    for (const auto& rule : RulesOf(helper)) {
        EXPECT_EQ(rule.first, Core::Property::SEPARATOR);
        if (rule.second->GetSecondPath() == secondPath) {
            found.push_back(rule.second);
        }
    }
    return found;
}

std::string ResizerPath(const std::string& tag) {
    return Proc::IFilterResize::CLASS_ID + "/" + Proc::IResize::CLASS_ID + "/" + tag;
}

const std::string kFrameRatePath = Proc::IFilterFrameRate::CLASS_ID + "/" + V::TAG_FPS;

// A job with this codec selected; the resizer settings are added by the caller.
Core::Property Job(const std::string& codecId) {
    Core::Property job("job");
    job.SetChild(IPreset::KEY_FILTER_VIDEO_CODEC).SetChildT(C::TAG_CODEC_ID, codecId);
    return job;
}

Core::Property& Resizer(Core::Property& job) {
    return job[Proc::IFilterResize::CLASS_ID][Proc::IResize::CLASS_ID];
}

ValidationRuleCheck::Verdict Check(const boost::intrusive_ptr<IValidationRule>& rule, const Core::Property& job) {
    return ValidationRuleCheck::Evaluate(*rule, job).verdict;
}

// Every video codec helper by its codec id: the registry's, and the registered classes it leaves out.
std::vector<std::pair<std::string, DataHelperPtr>> AllVideoHelpers() {
    std::vector<std::pair<std::string, DataHelperPtr>> helpers;
    for (const auto& entry : GetAvailableDataHelpers(IPreset::KEY_FILTER_VIDEO_CODEC)) {
        helpers.emplace_back(entry.first, entry.second);
    }
    helpers.emplace_back(V::CODEC_ID_H265, DataHelperVideoCodecX265::Create());
    helpers.emplace_back(V::CODEC_ID_WMV3, DataHelperVideoCodecWmv3::Create());
    return helpers;
}

}  // namespace

TEST(VideoCodec, EveryHelpersDefaultsAndRequiredFilters) {
    ASSERT_EQ(GetAvailableDataHelpers(IPreset::KEY_FILTER_VIDEO_CODEC).size(), 30u);
    for (const auto& [codec, helper] : AllVideoHelpers()) {
        SCOPED_TRACE(codec);
        const Core::Property defaults = helper->GetDefaults();
        EXPECT_EQ(defaults.GetName(), IPreset::KEY_FILTER_VIDEO_CODEC);
        EXPECT_EQ(defaults[0ul].GetName(), C::TAG_CODEC_ID);
        EXPECT_EQ(defaults[0ul].GetString(), codec);
        EXPECT_EQ(defaults[defaults.Count() - 1].GetName(), C::TAG_CODEC_OPTIONS_ENCODE);
        // Not every constrained setting has a default (the frame rate, WMV's quality).
        EXPECT_GE(CheckedDefaults(*helper), 2u);

        IDataHelper::RequiredObjects required{{"already", "there"}};
        helper->GetRequiredObjects(required);
        IDataHelper::RequiredObjects expected{{"already", "there"}};
        if (codec != V::CODEC_ID_FLV1) {  // FLV1 alone asks for neither filter
            expected.insert(expected.end(),
                            {{Proc::IFilterResize::CLASS_ID, ""}, {Proc::IFilterFrameRate::CLASS_ID, ""}});
        }
        EXPECT_EQ(required, expected);
    }
    // FLV1 is also the one whose defaults name their encoder.
    EXPECT_EQ(VideoHelper(V::CODEC_ID_FLV1)->GetDefaults()[C::TAG_NAME].GetString(), "flv");
}

TEST(VideoCodec, AdmittedBitrateModes) {
    const struct {
        const std::string* codec;
        bool cbr, vbr;
    } cases[] = {
        {&V::CODEC_ID_MPEG1VIDEO, true, false}, {&V::CODEC_ID_MPEG4, true, false}, {&V::CODEC_ID_VP8, true, false},
        {&V::CODEC_ID_FLV1, true, false},       {&V::CODEC_ID_VP9, false, true},   {&V::CODEC_ID_PRORES, true, true},
        {&V::CODEC_ID_QTRLE, true, true},       {&V::CODEC_ID_H263, true, true},   {&V::CODEC_ID_PNG, true, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(*c.codec);
        const DataHelperPtr helper = VideoHelper(*c.codec);
        EXPECT_EQ(Admits(*helper, C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR), c.cbr);
        EXPECT_EQ(Admits(*helper, C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_VBR), c.vbr);
    }
}

TEST(VideoCodec, ConstraintsReplaceEntriesAlreadyInTheMap) {
    IDataHelper::Constraints constraints{
        {C::TAG_BITRATE_MODE, ConstraintSet::Create(BeginPairList(C::TAG_BITRATE_MODE_CBR, C::TAG_BITRATE_MODE_CBR)(
                                  C::TAG_BITRATE_MODE_VBR, C::TAG_BITRATE_MODE_VBR))},
        {"unrelated", ConstraintSet::Create(BeginPairList(std::string("a"), std::string("a")))}};
    VideoHelper(V::CODEC_ID_VP9)->GetConstraints(constraints);
    EXPECT_FALSE(constraints[C::TAG_BITRATE_MODE]->IsValid(Core::Property("", C::TAG_BITRATE_MODE_CBR)));
    EXPECT_EQ(constraints.count("unrelated"), 1u);
    EXPECT_EQ(constraints[C::TAG_BITRATE], DataHelperCodecFFMPEG::s_defaultVideoBitrateConstraint);
    EXPECT_EQ(constraints[C::TAG_QUALITY], DataHelperCodecFFMPEG::s_defaultQualityConstraint);
}

TEST(VideoCodec, QualityRanges) {
    const struct {
        const std::string* codec;
        long long quality;
        bool admitted;
    } cases[] = {
        {&V::CODEC_ID_THEORA, 0, false},  {&V::CODEC_ID_THEORA, 1, true},  {&V::CODEC_ID_THEORA, 10, true},
        {&V::CODEC_ID_THEORA, 11, false}, {&V::CODEC_ID_WMV2, 31, true},   {&V::CODEC_ID_WMV2, 32, false},
        {&V::CODEC_ID_H263, 100, true},   {&V::CODEC_ID_H263, 101, false}, {&V::CODEC_ID_VP9, 0, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(*c.codec + " quality " + std::to_string(c.quality));
        EXPECT_EQ(Admits(*VideoHelper(*c.codec), C::TAG_QUALITY, c.quality), c.admitted);
    }
    EXPECT_TRUE(Admits(*DataHelperVideoCodecWmv3::Create(), C::TAG_QUALITY, 100LL));
}

TEST(VideoCodec, ProfilesLiveInTheEncoderOptions) {
    const std::string profilePath = C::TAG_CODEC_OPTIONS_ENCODE + "/" + C::TAG_PROFILE;
    const DataHelperPtr mpeg4 = VideoHelper(V::CODEC_ID_MPEG4);
    EXPECT_EQ(mpeg4->GetDefaults().ChildByPath(profilePath).GetString(), V::TAG_MPEG4_PROFILE_SIMPLE);
    EXPECT_TRUE(Admits(*mpeg4, profilePath, V::TAG_MPEG4_PROFILE_ADVANCED_SIMPLE));
    EXPECT_FALSE(Admits(*mpeg4, profilePath, V::TAG_X264_PROFILE_HIGH));
    EXPECT_EQ(ConstraintsOf(*mpeg4).count(C::TAG_PROFILE), 0u);

    // HEVC leaves profile and pass mode alone, and each encoder has its own tune setting.
    const auto hevc = ConstraintsOf(*DataHelperVideoCodecX265::Create());
    EXPECT_EQ(hevc.count(profilePath), 0u);
    EXPECT_EQ(hevc.count(C::TAG_MULTIPASS_ENCODING), 0u);
    EXPECT_EQ(hevc.count(C::TAG_CODEC_OPTIONS_ENCODE + "/" + V::TAG_X264_TUNE), 0u);
    const auto h264 = ConstraintsOf(*VideoHelper(V::CODEC_ID_H264));
    EXPECT_EQ(h264.count(C::TAG_CODEC_OPTIONS_ENCODE + "/" + V::TAG_X265_TUNE), 0u);
    EXPECT_EQ(h264.count(C::TAG_MULTIPASS_ENCODING), 1u);
}

TEST(VideoCodec, X264UltrafastNeedsBaseline) {
    const std::string options = IPreset::KEY_FILTER_VIDEO_CODEC + "/" + C::TAG_CODEC_OPTIONS_ENCODE + "/";
    const auto rules = RulesOn(*VideoHelper(V::CODEC_ID_H264), options + C::TAG_PROFILE);
    ASSERT_EQ(rules.size(), 1u);
    EXPECT_EQ(rules[0]->GetFirstPath(), options + C::TAG_PRESET);
    const struct {
        const std::string* preset;
        const std::string* profile;
        ValidationRuleCheck::Verdict verdict;
    } cases[] = {
        {&V::TAG_X264_PRESET_ULTRAFAST, &V::TAG_X264_PROFILE_MAIN, ValidationRuleCheck::BROKEN},
        {&V::TAG_X264_PRESET_ULTRAFAST, &V::TAG_X264_PROFILE_BASELINE, ValidationRuleCheck::HOLDS},
        {&V::TAG_X264_PRESET_FASTER, &V::TAG_X264_PROFILE_HIGH, ValidationRuleCheck::HOLDS},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(*c.preset + " " + *c.profile);
        Core::Property job = Job(V::CODEC_ID_H264);
        Core::Property& encoderOptions = job[IPreset::KEY_FILTER_VIDEO_CODEC][C::TAG_CODEC_OPTIONS_ENCODE];
        encoderOptions.SetChildT(C::TAG_PRESET, *c.preset);
        encoderOptions.SetChildT(C::TAG_PROFILE, *c.profile);
        EXPECT_EQ(Check(rules[0], job), c.verdict);
    }
}

TEST(VideoCodec, Mpeg2DropsTheFrameRateRule) {
    // Only meaningful where the encoder lists frame rates, as libavcodec's does.
    const auto plain = DataHelperVideoCodecMpeg2::Create();
    if (dynamic_cast<const DataHelperCodecFFMPEG&>(*plain).GetFrameRates().empty()) {
        GTEST_SKIP() << "the MPEG-2 encoder lists no frame rates";
    }
    EXPECT_TRUE(RulesOn(*plain, kFrameRatePath).empty());
    EXPECT_EQ(RulesOn(*VideoHelper(V::CODEC_ID_MPEG1VIDEO), kFrameRatePath).size(), 1u);
    IDataHelper::Constraints constraints = ConstraintsOf(*plain);
    EXPECT_EQ(constraints.count(V::TAG_FPS), 1u) << "the frame-rate constraint stays";
}

TEST(VideoCodec, MpegFrameSizeRules) {
    const struct {
        long long width, height;
        ValidationRuleCheck::Verdict widthVerdict, heightVerdict;
    } cases[] = {
        {720, 576, ValidationRuleCheck::HOLDS, ValidationRuleCheck::HOLDS},
        {3840, 2160, ValidationRuleCheck::HOLDS, ValidationRuleCheck::HOLDS},
        {721, 32, ValidationRuleCheck::HOLDS, ValidationRuleCheck::HOLDS},
        {3842, 2162, ValidationRuleCheck::BROKEN, ValidationRuleCheck::BROKEN},
        {31, 31, ValidationRuleCheck::BROKEN, ValidationRuleCheck::BROKEN},
    };
    for (const std::string* codec : {&V::CODEC_ID_MPEG1VIDEO, &V::CODEC_ID_MPEG2VIDEO}) {
        const DataHelperPtr helper = VideoHelper(*codec);
        const auto widthRules = RulesOn(*helper, ResizerPath(V::TAG_WIDTH));
        const auto heightRules = RulesOn(*helper, ResizerPath(V::TAG_HEIGHT));
        ASSERT_EQ(widthRules.size(), 1u);
        ASSERT_EQ(heightRules.size(), 1u);
        for (const auto& c : cases) {
            SCOPED_TRACE(*codec + " " + std::to_string(c.width) + "x" + std::to_string(c.height));
            Core::Property job = Job(*codec);
            Resizer(job).SetChildT(V::TAG_WIDTH, c.width);
            Resizer(job).SetChildT(V::TAG_HEIGHT, c.height);
            EXPECT_EQ(Check(widthRules[0], job), c.widthVerdict);
            EXPECT_EQ(Check(heightRules[0], job), c.heightVerdict);
            // The rules bite only while their codec is selected.
            EXPECT_EQ(Check(widthRules[0], Job(V::CODEC_ID_MPEG4)), ValidationRuleCheck::HOLDS);
        }
    }
}

TEST(VideoCodec, H263SizeRuleAdmitsOnlyCustomFrames) {
    const auto rules = RulesOn(*VideoHelper(V::CODEC_ID_H263), ResizerPath(Proc::IResize::FRAME_SIZE_MODE));
    ASSERT_EQ(rules.size(), 1u);
    Core::Property job = Job(V::CODEC_ID_H263);
    Resizer(job).SetChildT(Proc::IResize::FRAME_SIZE_MODE, Proc::IResize::FRAME_SIZE_CUSTOM);
    EXPECT_EQ(Check(rules[0], job), ValidationRuleCheck::HOLDS);
    Resizer(job).SetChildT(Proc::IResize::FRAME_SIZE_MODE, Proc::IResize::FRAME_SIZE_ORIGINAL);
    EXPECT_EQ(Check(rules[0], job), ValidationRuleCheck::BROKEN);
    job[IPreset::KEY_FILTER_VIDEO_CODEC].SetChildT(C::TAG_CODEC_ID, V::CODEC_ID_MPEG4);
    EXPECT_EQ(Check(rules[0], job), ValidationRuleCheck::HOLDS);
}

TEST(VideoCodec, MjpegDiffersFromImageCodecsInBitrateModeOnly) {
    const DataHelperPtr png = VideoHelper(V::CODEC_ID_PNG);
    EXPECT_EQ(png->GetDefaults()[C::TAG_NAME].GetString(),
              dynamic_cast<const DataHelperCodecFFMPEG&>(*png).GetEncoderName());
    Core::Property expected = DataHelperVideoCodecImageBase::Create(V::CODEC_ID_MJPEG)->GetDefaults();
    EXPECT_EQ(expected[C::TAG_BITRATE_MODE].GetString(), C::TAG_BITRATE_MODE_CBR);
    expected.SetChildT(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_VBR);
    EXPECT_EQ(VideoHelper(V::CODEC_ID_MJPEG)->GetDefaults(), expected);
}
