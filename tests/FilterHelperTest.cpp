#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/DataHelpers/ValidationRuleCheck.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Core/Property.h"
#include "HelperQueries.h"
#include "Proc/IAudioFormatter.h"
#include "Proc/IDeinterlace.h"
#include "Proc/IFilterAudioFormatter.h"
#include "Proc/IFilterAudioVolume.h"
#include "Proc/IFilterDeinterlace.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IFilterResize.h"
#include "Proc/IFilterVideoPreview.h"
#include "Proc/IResample.h"
#include "Proc/IResize.h"
#include "Proc/ImplNames.h"
#include "Proc/SettingsFilterFrameRate.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Tervan;
using namespace Tervan::Conf;
using namespace HelperQueries;
using Core::Property;
using Ratio = Property::Ratio;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

namespace {

const std::string& S = Property::SEPARATOR;

const std::string kFilters[] = {
    Proc::IFilterResample::CLASS_ID,     Proc::IFilterAudioVolume::CLASS_ID, Proc::IFilterAudioFormatter::CLASS_ID,
    Proc::IFilterFrameRate::CLASS_ID,    Proc::IFilterResize::CLASS_ID,      Proc::IFilterDeinterlace::CLASS_ID,
    Proc::IFilterVideoPreview::CLASS_ID,
};

DataHelperPtr Filter(const std::string& classId) {
    return CreateDataHelper(classId, "");
}

template <class T>
bool Admits(const ConstraintPtr& constraint, const T& value) {
    return constraint->IsValid(Property("", value));
}

std::string Resampler(const std::string& tag) {
    return Proc::IResample::CLASS_ID + S + tag;
}
std::string Resizer(const std::string& tag) {
    return Proc::IResize::CLASS_ID + S + tag;
}

Property AudioCodec() {
    Property codec(IPreset::KEY_FILTER_AUDIO_CODEC);
    codec.SetChildT(A::TAG_SAMPLE_RATE, 44100LL);
    codec.SetChildT(A::TAG_LAYOUT, A::TAG_CH_LAYOUT_STEREO);
    codec.SetChildT(A::TAG_SAMPLE_FORMAT, std::string("fltp"));
    return codec;
}

Property VideoCodec(long long width, long long height, const Ratio& fps) {
    Property codec(IPreset::KEY_FILTER_VIDEO_CODEC);
    codec.SetChildT(V::TAG_WIDTH, width);
    codec.SetChildT(V::TAG_HEIGHT, height);
    codec.SetChildT(V::TAG_ASPECTX, 1LL);
    codec.SetChildT(V::TAG_ASPECTY, 1LL);
    codec.SetChildT(V::TAG_FPS, fps);
    return codec;
}

}  // namespace

TEST(FilterHelpers, RegisteredDefaultsSatisfyTheirOwnConstraints) {
    for (const std::string& classId : kFilters) {
        SCOPED_TRACE(classId);
        EXPECT_EQ(Filter(classId)->GetDefaults().GetName(), classId);
        EXPECT_EQ(CheckedDefaults(*Filter(classId)), ConstraintsOf(*Filter(classId)).size());
    }
}

TEST(DataHelperAudioResample, PresetRulesLeaveAutomaticValuesAlone) {
    struct Case {
        const char* what;
        long long rate;
        const std::string& layout;
        const char* topFormat;  // null: none at the top of the preset
        long long expectedRate;
        const std::string& expectedLayout;
        const char* expectedFormat;
    };
    const Case cases[] = {
        {"all automatic", -1, A::TAG_CH_LAYOUT_UNKNOWN, nullptr, 44100, A::TAG_CH_LAYOUT_STEREO, "fltp"},
        {"rate and layout", 48000, A::TAG_CH_LAYOUT_MONO, nullptr, 48000, A::TAG_CH_LAYOUT_MONO, "fltp"},
        {"format at the top", -1, A::TAG_CH_LAYOUT_UNKNOWN, "s32", 44100, A::TAG_CH_LAYOUT_STEREO, "s32"},
    };
    const DataHelperPtr helper = Filter(Proc::IFilterResample::CLASS_ID);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        // The defaults carry a sample format inside the resampler; it must not be taken.
        Property preset = helper->GetDefaults();
        preset.ChildByPath(Resampler(A::TAG_SAMPLE_RATE)) = c.rate;
        preset.ChildByPath(Resampler(A::TAG_LAYOUT)) = c.layout;
        if (c.topFormat != nullptr) {
            preset.SetChildT(A::TAG_SAMPLE_FORMAT, std::string(c.topFormat));
        }
        Property out = AudioCodec();
        helper->ApplyPresetSettings(preset, out);
        EXPECT_EQ(out.Count(), 3u);
        EXPECT_EQ(out[A::TAG_SAMPLE_RATE].GetInt64(), c.expectedRate);
        EXPECT_EQ(out[A::TAG_LAYOUT].GetString(), c.expectedLayout);
        EXPECT_EQ(out[A::TAG_SAMPLE_FORMAT].GetString(), c.expectedFormat);
    }
}

TEST(DataHelperAudioResample, ConstraintsAdmitTheListedValues) {
    const IDataHelper::Constraints constraints = ConstraintsOf(*Filter(Proc::IFilterResample::CLASS_ID));
    ASSERT_EQ(constraints.size(), 2u);
    const ConstraintPtr& rate = constraints.at(Resampler(A::TAG_SAMPLE_RATE));
    EXPECT_TRUE(Admits(rate, -1LL));
    EXPECT_TRUE(Admits(rate, 96000LL));
    EXPECT_FALSE(Admits(rate, 44000LL));
    EXPECT_FALSE(Admits(rate, 192000LL));
    const ConstraintPtr& layout = constraints.at(Resampler(A::TAG_LAYOUT));
    EXPECT_TRUE(Admits(layout, A::TAG_CH_LAYOUT_UNKNOWN));
    EXPECT_TRUE(Admits(layout, A::TAG_CH_LAYOUT_MONO));
    EXPECT_FALSE(Admits(layout, A::TAG_CH_LAYOUT_5POINT1));
}

TEST(DataHelperAudioVolume, VolumeIsBetweenSilenceAndDouble) {
    const ConstraintPtr volume =
        ConstraintsOf(*Filter(Proc::IFilterAudioVolume::CLASS_ID)).at(Proc::IFilterAudioVolume::VOLUME_VALUE);
    EXPECT_TRUE(Admits(volume, 0LL));
    EXPECT_TRUE(Admits(volume, 200LL));
    EXPECT_FALSE(Admits(volume, 201LL));
    EXPECT_FALSE(Admits(volume, -1LL));
}

TEST(DataHelperVideoResize, FrameBoundsAreAsymmetric) {
    const IDataHelper::Constraints constraints = ConstraintsOf(*Filter(Proc::IFilterResize::CLASS_ID));
    const ConstraintPtr& width = constraints.at(Resizer(V::TAG_WIDTH));
    const ConstraintPtr& height = constraints.at(Resizer(V::TAG_HEIGHT));
    EXPECT_TRUE(Admits(width, 4096LL));
    EXPECT_FALSE(Admits(width, 4098LL));
    EXPECT_FALSE(Admits(width, 30LL));
    EXPECT_TRUE(Admits(width, 721LL));  // the step only guides editors
    EXPECT_TRUE(Admits(height, 2160LL));
    EXPECT_FALSE(Admits(height, 2162LL));
    EXPECT_TRUE(Admits(constraints.at(Resizer(Proc::IResize::MODE)), Proc::IResize::MODE_CROP));
    EXPECT_FALSE(Admits(constraints.at(Resizer(Proc::IResize::METHOD)), Proc::IResize::MODE_CROP));
}

TEST(DataHelperVideoResize, EvenSizeRulesStandAlone) {
    const DataHelperPtr helper = Filter(Proc::IFilterResize::CLASS_ID);
    const IDataHelper::ValidationRules rules = RulesOf(*helper);
    ASSERT_EQ(rules.size(), 2u);
    Property job("job");
    job.SetChild(Proc::IFilterResize::CLASS_ID, helper->GetDefaults());
    const std::string widthPath = Proc::IFilterResize::CLASS_ID + S + Resizer(V::TAG_WIDTH);
    for (const auto& [name, rule] : rules) {
        SCOPED_TRACE(rule->GetSecondPath());
        EXPECT_EQ(name, S);
        EXPECT_EQ(rule->GetFirstPath(), "");
        EXPECT_FALSE(rule->GetFirstConstraint());
        EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, job).verdict, ValidationRuleCheck::HOLDS);
    }
    EXPECT_EQ(rules[0].second->GetSecondPath(), widthPath);
    EXPECT_EQ(rules[1].second->GetSecondPath(), Proc::IFilterResize::CLASS_ID + S + Resizer(V::TAG_HEIGHT));

    job.ChildByPath(widthPath) = 721LL;
    const ValidationRuleCheck odd = ValidationRuleCheck::Evaluate(*rules[0].second, job);
    EXPECT_EQ(odd.verdict, ValidationRuleCheck::BROKEN);
    EXPECT_EQ(odd.path, widthPath);
    EXPECT_EQ(ValidationRuleCheck::Evaluate(*rules[1].second, job).verdict, ValidationRuleCheck::HOLDS);
    EXPECT_EQ(ValidationRuleCheck::Evaluate(*rules[1].second, Property("job")).verdict,
              ValidationRuleCheck::MISSING_SETTING);
}

TEST(DataHelperVideoResize, PresetTurnsTheSourceIntoTheEncoderFrame) {
    struct Case {
        const std::string& frameSizeMode;
        const std::string& mode;
        long long width, height, aspectX, aspectY;
    };
    // A 1920x1080 square-pixel source into a 720x576 box.
    const Case cases[] = {
        {Proc::IResize::FRAME_SIZE_CUSTOM, Proc::IResize::MODE_LETTERBOX, 720, 576, 1, 1},
        {Proc::IResize::FRAME_SIZE_CUSTOM, Proc::IResize::MODE_STRETCH, 720, 576, 1, 1},
        {Proc::IResize::FRAME_SIZE_CUSTOM, Proc::IResize::MODE_CROP, 720, 576, 1, 1},
        {Proc::IResize::FRAME_SIZE_CUSTOM, Proc::IResize::MODE_SMART_FIT, 720, 406, 1, 1},
        {Proc::IResize::FRAME_SIZE_CUSTOM, Proc::IResize::MODE_UP_TO, 720, 406, 1, 1},
        {Proc::IResize::FRAME_SIZE_CUSTOM, Proc::IResize::MODE_AUTO, 720, 576, 64, 45},
        {Proc::IResize::FRAME_SIZE_HALF_ORIGINAL, Proc::IResize::MODE_AUTO, 960, 540, 1, 1},
        {Proc::IResize::FRAME_SIZE_CUSTOM_SCALE, Proc::IResize::MODE_AUTO, 720, 406, 1, 1},
    };
    const DataHelperPtr helper = Filter(Proc::IFilterResize::CLASS_ID);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.frameSizeMode + " " + c.mode);
        Property preset = helper->GetDefaults();
        preset.ChildByPath(Resizer(Proc::IResize::FRAME_SIZE_MODE)) = c.frameSizeMode;
        preset.ChildByPath(Resizer(Proc::IResize::MODE)) = c.mode;
        preset.ChildByPath(Resizer(V::TAG_WIDTH)) = 720LL;
        preset.ChildByPath(Resizer(V::TAG_HEIGHT)) = 576LL;
        Property out = VideoCodec(1920, 1080, Ratio(25));
        helper->ApplyPresetSettings(preset, out);
        EXPECT_EQ(out[V::TAG_WIDTH].GetInt64(), c.width);
        EXPECT_EQ(out[V::TAG_HEIGHT].GetInt64(), c.height);
        EXPECT_EQ(out[V::TAG_ASPECTX].GetInt64(), c.aspectX);
        EXPECT_EQ(out[V::TAG_ASPECTY].GetInt64(), c.aspectY);
        EXPECT_EQ(out[V::TAG_FPS].GetRatio(), Ratio(25));
    }
}

TEST(DataHelperVideoResize, DefaultPresetFillsAnAutoBox) {
    const DataHelperPtr helper = Filter(Proc::IFilterResize::CLASS_ID);
    const Property defaults = helper->GetDefaults();
    EXPECT_EQ(defaults.ChildByPath(Resizer(Proc::IResize::MODE)).GetString(), Proc::IResize::MODE_AUTO);
    EXPECT_EQ(defaults.ChildByPath(Resizer(Proc::IResize::METHOD)).GetString(), Proc::IResize::METHOD_BILINEAR);
    // 16:9 filling 800x600 without bars needs pixels of 4:3.
    Property out = VideoCodec(1280, 720, Ratio(25));
    helper->ApplyPresetSettings(defaults, out);
    EXPECT_EQ(out, [] {
        Property expected = VideoCodec(800, 600, Ratio(25));
        expected[V::TAG_ASPECTX] = 4LL;
        expected[V::TAG_ASPECTY] = 3LL;
        return expected;
    }());
}

TEST(DataHelperVideoResample, OffersSixteenRatesWithAutoFirst) {
    const ConstraintPtr fps = ConstraintsOf(*Filter(Proc::IFilterFrameRate::CLASS_ID)).at(V::TAG_FPS);
    const auto* set = dynamic_cast<const ConstraintSet*>(fps.get());
    ASSERT_NE(set, nullptr);
    const PairList<Property>& entries = set->GetEntries();
    ASSERT_EQ(entries.size(), 16u);
    EXPECT_EQ(entries.front().first, "Auto");
    EXPECT_EQ(entries.front().second.GetRatio(), Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE);
    EXPECT_EQ(entries[6].first, "23.97");
    EXPECT_EQ(entries[6].second.GetRatio(), Ratio(24000, 1001));
    EXPECT_EQ(entries.back().first, "120");
    EXPECT_TRUE(Admits(fps, Ratio(30000, 1001)));
    EXPECT_FALSE(Admits(fps, Ratio(2997, 100)));
    EXPECT_EQ(Filter(Proc::IFilterFrameRate::CLASS_ID)->GetDefaults()[V::TAG_FPS].GetRatio(), Ratio(25));
}

TEST(DataHelperVideoResample, AutoKeepsTheSourceRate) {
    const DataHelperPtr helper = Filter(Proc::IFilterFrameRate::CLASS_ID);
    Property out = VideoCodec(640, 480, Ratio(24000, 1001));
    helper->ApplyPresetSettings(
        Proc::IFilterFrameRate::MakeSettings(Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE), out);
    EXPECT_EQ(out[V::TAG_FPS].GetRatio(), Ratio(24000, 1001));
    helper->ApplyPresetSettings(Proc::IFilterFrameRate::MakeSettings(Ratio(30000, 1001)), out);
    EXPECT_EQ(out[V::TAG_FPS].GetType(), TYPE_RATIONAL);
    EXPECT_EQ(out[V::TAG_FPS].GetRatio(), Ratio(30000, 1001));
}

TEST(DataHelperDeinterlace, FieldRateImplementationsDoubleTheRate) {
    struct Case {
        const std::string implementation;
        Ratio rate, expected;
    };
    const Case cases[] = {
        {Proc::IDeinterlace::DEINTERLACE_IMPL_STANDART_FFMPEG, Ratio(25), Ratio(25)},
        {Proc::IDeinterlace::DEINTERLACE_IMPL_STANDART_FFMPEG, Ratio(30000, 1001), Ratio(30000, 1001)},
        {Proc::IDeinterlace::DEINTERLACE_IMPL_FIELDS_FFMPEG, Ratio(25), Ratio(50)},
        {Proc::IDeinterlace::DEINTERLACE_IMPL_FIELDS_FFMPEG, Ratio(30000, 1001), Ratio(60000, 1001)},
        {"any other", Ratio(24000, 1001), Ratio(48000, 1001)},
    };
    const DataHelperPtr helper = Filter(Proc::IFilterDeinterlace::CLASS_ID);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.implementation);
        Property preset = helper->GetDefaults();
        preset.ChildByPath(Proc::IDeinterlace::CLASS_ID + S + IPreset::KEY_TYPE_ID) = c.implementation;
        Property out = VideoCodec(720, 576, c.rate);
        helper->ApplyPresetSettings(preset, out);
        EXPECT_EQ(out[V::TAG_FPS].GetRatio(), c.expected);
    }
    // Doubling a rate must not overflow: halving an even denominator needs no room.
    Property preset = helper->GetDefaults();
    preset.ChildByPath(Proc::IDeinterlace::CLASS_ID + S + IPreset::KEY_TYPE_ID) =
        Proc::IDeinterlace::DEINTERLACE_IMPL_FIELDS_FFMPEG;
    const long long huge = std::numeric_limits<long long>::max() / 2 + 1;
    Property out = VideoCodec(720, 576, Ratio(huge, 2));
    helper->ApplyPresetSettings(preset, out);
    EXPECT_EQ(out[V::TAG_FPS].GetRatio(), Ratio(huge));
    out = VideoCodec(720, 576, Ratio(huge));
    EXPECT_EQ(HelperMessage([&] { helper->ApplyPresetSettings(preset, out); }),
              "Frame rate too high to double: " + std::to_string(huge) + "/1");
    EXPECT_EQ(out[V::TAG_FPS].GetRatio(), Ratio(huge));
}

TEST(FilterHelpers, FormatterAndPreviewDefaults) {
    const Property preview = Filter(Proc::IFilterVideoPreview::CLASS_ID)->GetDefaults();
    EXPECT_EQ(preview.Count(), 1u);
    EXPECT_EQ(preview[Proc::IFilterVideoPreview::FRAMES_TO_SKIP_COUNT].GetInt64(), 10);

    const Property formatter = Filter(Proc::IFilterAudioFormatter::CLASS_ID)->GetDefaults();
    ASSERT_EQ(formatter.Count(), 2u);
    EXPECT_EQ(formatter[0ul].GetName(), Proc::IAudioFormatter::CLASS_ID);
    EXPECT_EQ(formatter[0ul][IPreset::KEY_TYPE_ID].GetString(), Proc::ImplNames::DEFAULT);
    EXPECT_EQ(formatter[1ul].GetName(), Proc::IFilterAudioFormatter::PACKET_DURATION);
    EXPECT_EQ(formatter[1ul].GetInt64(), 100000);
}
