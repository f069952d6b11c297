#include "Conf/FrameInfo.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IDeinterlace.h"
#include "Proc/IFilterAudioVolume.h"
#include "Proc/IFilterDeinterlace.h"
#include "Proc/IFilterResample.h"
#include "Proc/IFilterResize.h"
#include "Proc/IResample.h"
#include "Proc/IResize.h"
#include "Proc/ImplNames.h"
#include "Proc/ProcException.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

using namespace Tervan;
using Conf::FrameInfo;
using Proc::SettingsResizer;
using R = boost::rational<int>;

namespace Tervan::Conf {
void PrintTo(const FrameInfo& f, std::ostream* os) {
    *os << f.width << "x" << f.height << " " << f.aspectX << ":" << f.aspectY;
}
}  // namespace Tervan::Conf

// The plain modes on a 1920x1080 square-pixel source are covered through the resize helper's preset.
TEST(SettingsResizer, OutputFrameHonoursShapesAndEvenSizes) {
    using M = SettingsResizer;
    const FrameInfo fullHd{1920, 1080, 1, 1}, palWide{720, 576, 64, 45};  // both 16:9
    const FrameInfo pal{720, 576, 1, 1}, hd{1280, 720, 1, 1};
    struct Case {
        const char* what;
        FrameInfo source;
        M::FrameSizeMode frameSizeMode;
        M::Mode mode;
        FrameInfo box;  // the settings' width, height and aspect
        FrameInfo expected;
    } const cases[] = {
        {"fit a tall source", {1080, 1920, 1, 1}, M::FRAME_SIZE_CUSTOM, M::MODE_SMART_FIT, pal, {324, 576, 1, 1}},
        {"fit into wide pixels", fullHd, M::FRAME_SIZE_CUSTOM, M::MODE_SMART_FIT, palWide, palWide},
        {"fit wide pixels", palWide, M::FRAME_SIZE_CUSTOM, M::MODE_SMART_FIT, {1280, 1280, 1, 1}, hd},
        {"unknown shape is square", {1920, 1080, 0, 1}, M::FRAME_SIZE_CUSTOM, M::MODE_SMART_FIT, pal, {720, 406, 1, 1}},
        {"auto, 4:3 to PAL", {640, 480, 1, 1}, M::FRAME_SIZE_CUSTOM, M::MODE_AUTO, pal, {720, 576, 16, 15}},
        {"up to keeps a smaller source", {640, 360, 1, 1}, M::FRAME_SIZE_CUSTOM, M::MODE_UP_TO, pal, {640, 360, 1, 1}},
        {"up to squares wide pixels", palWide, M::FRAME_SIZE_CUSTOM, M::MODE_UP_TO, hd, {1024, 576, 1, 1}},
        // 1022 * 9 / 16 = 574.875.
        {"up to, too wide", palWide, M::FRAME_SIZE_CUSTOM, M::MODE_UP_TO, {1022, 720, 1, 1}, {1022, 574, 1, 1}},
        {"odd box rounds down", fullHd, M::FRAME_SIZE_CUSTOM, M::MODE_STRETCH, {721, 577, 1, 1}, pal},
        {"original, odd", {1921, 1081, 16, 15}, M::FRAME_SIZE_ORIGINAL, M::MODE_STRETCH, pal, {1920, 1080, 16, 15}},
        {"half, odd", {721, 481, 1, 1}, M::FRAME_SIZE_HALF_ORIGINAL, M::MODE_CROP, pal, {360, 240, 1, 1}},
        {"quarter keeps the shape", palWide, M::FRAME_SIZE_QUARTER_ORIGINAL, M::MODE_AUTO, pal, {180, 144, 64, 45}},
        {"quarter never below 2", {6, 6, 1, 1}, M::FRAME_SIZE_QUARTER_ORIGINAL, M::MODE_AUTO, pal, {2, 2, 1, 1}},
        {"custom scale follows the picture", palWide, M::FRAME_SIZE_CUSTOM_SCALE, M::MODE_STRETCH, {1280, 2, 1, 1}, hd},
        // 1000 * 9 / 16 = 562.5 lines: 281.25 pairs round to 281.
        {"custom scale, even", fullHd, M::FRAME_SIZE_CUSTOM_SCALE, M::MODE_CROP, {1000, 2, 1, 1}, {1000, 562, 1, 1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SettingsResizer settings;
        settings.frameSizeMode = c.frameSizeMode;
        settings.mode = c.mode;
        settings.width = c.box.width;
        settings.height = c.box.height;
        settings.aspect = R(c.box.aspectX, c.box.aspectY);
        EXPECT_EQ(settings.GetOutputFrameSize(c.source), c.expected);
    }
    EXPECT_THROW(SettingsResizer().GetOutputFrameSize({0, 1080, 1, 1}), Proc::ProcException);
    EXPECT_THROW(SettingsResizer().GetOutputFrameSize({1920, -2, 1, 1}), Proc::ProcException);
}

// The exact geometry multiplies terms; terms it could overflow on are refused, not wrapped.
TEST(SettingsResizer, RefusesTermsBeyondTheExactRange) {
    constexpr int kMax = static_cast<int>(SettingsResizer::MAX_TERM);
    EXPECT_EQ(SettingsResizer::Term(kMax, "width"), kMax);
    EXPECT_EQ(SettingsResizer::Term(-kMax, "aspect"), -kMax);
    EXPECT_THROW(SettingsResizer::Term(kMax + 1LL, "width"), Proc::ProcException);
    EXPECT_THROW(SettingsResizer::Term(-2147483648LL, "aspect"), Proc::ProcException);
    EXPECT_THROW(SettingsResizer::Term(4294967296LL + 800, "width"), Proc::ProcException) << "no wrap to 800";

    SettingsResizer settings;
    settings.mode = SettingsResizer::MODE_AUTO;
    // The largest terms still give an exact answer.
    EXPECT_EQ(settings.GetOutputFrameSize({kMax, 2, kMax - 1, 1}).width, 640);
    EXPECT_THROW(settings.GetOutputFrameSize({2147483647, 1, 2147483629, 1}), Proc::ProcException);
    // An automatic shape multiplies three ratios: one beyond the terms is the closest within them.
    const FrameInfo odd = settings.GetOutputFrameSize({1921, 1081, 32749, 32719});
    EXPECT_GT(odd.aspectX, 0);
    EXPECT_LE(std::max(odd.aspectX, odd.aspectY), kMax);
    EXPECT_NEAR(static_cast<double>(odd.aspectX) / odd.aspectY, 1921.0 * 32749 * 3 / (1081.0 * 32719 * 4), 1e-8);
    EXPECT_EQ(settings.GetOutputFrameSize({kMax, 1, kMax, 1}).aspectX, kMax) << "clamped, not wrapped";
    settings.aspect = R(1, kMax + 1);
    EXPECT_THROW(settings.GetOutputFrameSize({1920, 1080, 1, 1}), Proc::ProcException);
}

TEST(IFilterResize, TreeRoundTripsEveryEnumerator) {
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(i);
        SettingsResizer settings;
        settings.frameSizeMode = static_cast<SettingsResizer::FrameSizeMode>(i % 5);
        settings.mode = static_cast<SettingsResizer::Mode>(i);
        settings.method = static_cast<SettingsResizer::Method>(i % 4);
        settings.width = 1000 + i;
        settings.height = 500 + i;
        settings.aspect = R(4 + i, 3);
        const Core::Property tree = Proc::IFilterResize::Settings2Property(settings);
        const SettingsResizer back = Proc::IFilterResize::Property2Settings(tree);
        EXPECT_EQ(back.frameSizeMode, settings.frameSizeMode);
        EXPECT_EQ(back.mode, settings.mode);
        EXPECT_EQ(back.method, settings.method);
        EXPECT_EQ(back.width, settings.width);
        EXPECT_EQ(back.height, settings.height);
        EXPECT_EQ(back.aspect, settings.aspect);
    }
}

TEST(IFilterResize, TreeShapeAndBadTexts) {
    SettingsResizer settings;
    settings.mode = SettingsResizer::MODE_LETTERBOX;
    Core::Property tree = Proc::IFilterResize::Settings2Property(settings);
    Core::Property& resizer = tree[Proc::IResize::CLASS_ID];
    EXPECT_EQ(resizer[Proc::IResize::FRAME_SIZE_MODE].GetString(), Proc::IResize::FRAME_SIZE_CUSTOM);
    EXPECT_EQ(resizer[Proc::IResize::MODE].GetString(), Proc::IResize::MODE_LETTERBOX);
    EXPECT_EQ(resizer[Conf::IFormatCodecVideo::TAG_WIDTH].GetType(), TYPE_INT64);

    resizer[Proc::IResize::MODE] = "sideways";
    EXPECT_THROW(Proc::IFilterResize::Property2Settings(tree), Proc::ProcException);
    resizer.RemoveChild(Proc::IResize::MODE);
    EXPECT_THROW(Proc::IFilterResize::Property2Settings(tree), Core::PropertyException);
}

TEST(ProcSettings, TreesHaveTheShapesTheCodecRulesAddress) {
    using A = Conf::IFormatCodecAudio;
    const Core::Property resample = Proc::IFilterResample::MakeSettings(Conf::CH_LAYOUT_MONO, 48000);
    const Core::Property& resampler = resample[Proc::IResample::CLASS_ID];
    EXPECT_EQ(resampler[A::TAG_SAMPLE_RATE].GetInt64(), 48000);
    EXPECT_EQ(resampler[A::TAG_LAYOUT].GetString(), A::TAG_CH_LAYOUT_MONO);
    EXPECT_EQ(resampler[A::TAG_SAMPLE_FORMAT].GetString(), "s16");
    EXPECT_EQ(resampler[Conf::IPreset::KEY_TYPE_ID].GetString(), Proc::ImplNames::DEFAULT);

    for (const bool on : {true, false}) {
        const Core::Property deinterlace = Proc::IFilterDeinterlace::MakeSettings(on);
        EXPECT_EQ(deinterlace[Proc::IFilterDeinterlace::ENABLED].GetBool(), on);
        EXPECT_EQ(deinterlace[Proc::IDeinterlace::CLASS_ID][Conf::IPreset::KEY_TYPE_ID].GetString(),
                  Proc::IDeinterlace::DEINTERLACE_IMPL_STANDART_FFMPEG);
    }

    Proc::SettingsFilterAudioVolume volume;
    volume.volume = 150;
    EXPECT_EQ(Proc::IFilterAudioVolume::Settings2Property(volume)[Proc::IFilterAudioVolume::VOLUME_VALUE].GetInt64(),
              150);
}
