#include "Conf/ChannelLayout.h"
#include "Conf/FrameInfo.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Core/Property.h"
#include "Proc/IDeinterlace.h"
#include "Proc/IFilterAudioVolume.h"
#include "Proc/IFilterDeinterlace.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IFilterResize.h"
#include "Proc/IResample.h"
#include "Proc/IResize.h"
#include "Proc/ImplNames.h"
#include "Proc/ProcException.h"
#include "Proc/SettingsResizer.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Tervan;
using Conf::FrameInfo;
using Proc::SettingsResizer;

namespace Tervan::Conf {
void PrintTo(const FrameInfo& f, std::ostream* os) {
    *os << f.width << "x" << f.height << " " << f.aspectX << ":" << f.aspectY;
}
}  // namespace Tervan::Conf

namespace {

const std::string& S = Core::Property::SEPARATOR;

struct GeometryCase {
    const char* what;
    FrameInfo source;
    SettingsResizer::FrameSizeMode frameSizeMode;
    SettingsResizer::Mode mode;
    int width, height;
    boost::rational<int> aspect;
    FrameInfo expected;
};

void Check(const GeometryCase& c) {
    SCOPED_TRACE(c.what);
    SettingsResizer settings;
    settings.frameSizeMode = c.frameSizeMode;
    settings.mode = c.mode;
    settings.width = c.width;
    settings.height = c.height;
    settings.aspect = c.aspect;
    EXPECT_EQ(settings.GetOutputFrameSize(c.source), c.expected);
}

const FrameInfo kFullHd{1920, 1080, 1, 1};
const FrameInfo kPalWide{720, 576, 64, 45};  // 16:9 in anamorphic PAL pixels
using R = boost::rational<int>;

}  // namespace

TEST(SettingsResizer, CustomBoxFollowsTheResizeMode) {
    using M = SettingsResizer;
    const GeometryCase cases[] = {
        {"letterbox keeps the box", kFullHd, M::FRAME_SIZE_CUSTOM, M::MODE_LETTERBOX, 720, 576, R(1), {720, 576, 1, 1}},
        {"stretch keeps the box", kFullHd, M::FRAME_SIZE_CUSTOM, M::MODE_STRETCH, 720, 576, R(1), {720, 576, 1, 1}},
        {"crop keeps the box", kFullHd, M::FRAME_SIZE_CUSTOM, M::MODE_CROP, 720, 576, R(1), {720, 576, 1, 1}},
        // 720 * 9 / 16 = 405, rounded up to even.
        {"smart fit, wide source", kFullHd, M::FRAME_SIZE_CUSTOM, M::MODE_SMART_FIT, 720, 576, R(1), {720, 406, 1, 1}},
        {"smart fit, tall source",
         {1080, 1920, 1, 1},
         M::FRAME_SIZE_CUSTOM,
         M::MODE_SMART_FIT,
         720,
         576,
         R(1),
         {324, 576, 1, 1}},
        {"smart fit into anamorphic pixels",
         kFullHd,
         M::FRAME_SIZE_CUSTOM,
         M::MODE_SMART_FIT,
         720,
         576,
         R(64, 45),
         {720, 576, 64, 45}},
        {"smart fit of an anamorphic source",
         kPalWide,
         M::FRAME_SIZE_CUSTOM,
         M::MODE_SMART_FIT,
         1280,
         1280,
         R(1),
         {1280, 720, 1, 1}},
        // The pixel shape that makes 16:9 fill 720x576 is PAL's wide one, and 4:3 gives PAL's narrow one.
        {"auto, 16:9 source", kFullHd, M::FRAME_SIZE_CUSTOM, M::MODE_AUTO, 720, 576, R(1), {720, 576, 64, 45}},
        {"auto, 4:3 source", {640, 480, 1, 1}, M::FRAME_SIZE_CUSTOM, M::MODE_AUTO, 720, 576, R(1), {720, 576, 16, 15}},
        {"up to shrinks a larger source",
         kFullHd,
         M::FRAME_SIZE_CUSTOM,
         M::MODE_UP_TO,
         720,
         576,
         R(1),
         {720, 406, 1, 1}},
        {"up to keeps a smaller source",
         {640, 360, 1, 1},
         M::FRAME_SIZE_CUSTOM,
         M::MODE_UP_TO,
         720,
         576,
         R(1),
         {640, 360, 1, 1}},
        {"up to widens anamorphic pixels",
         kPalWide,
         M::FRAME_SIZE_CUSTOM,
         M::MODE_UP_TO,
         1280,
         720,
         R(1),
         {1024, 576, 1, 1}},
        {"up to, natural width just too wide",
         kPalWide,
         M::FRAME_SIZE_CUSTOM,
         M::MODE_UP_TO,
         1022,
         720,
         R(1),
         {1022, 574, 1, 1}},
        {"odd box rounds down", kFullHd, M::FRAME_SIZE_CUSTOM, M::MODE_STRETCH, 721, 577, R(1), {720, 576, 1, 1}},
        {"unknown source shape is square",
         {1920, 1080, 0, 1},
         M::FRAME_SIZE_CUSTOM,
         M::MODE_SMART_FIT,
         720,
         576,
         R(1),
         {720, 406, 1, 1}},
    };
    for (const GeometryCase& c : cases) {
        Check(c);
    }
}

TEST(SettingsResizer, SourceDerivedSizesIgnoreTheResizeMode) {
    using M = SettingsResizer;
    const GeometryCase cases[] = {
        {"original rounds down to even",
         {1921, 1081, 16, 15},
         M::FRAME_SIZE_ORIGINAL,
         M::MODE_STRETCH,
         720,
         576,
         R(1),
         {1920, 1080, 16, 15}},
        {"half", kFullHd, M::FRAME_SIZE_HALF_ORIGINAL, M::MODE_AUTO, 720, 576, R(1), {960, 540, 1, 1}},
        {"half of odd sizes",
         {721, 481, 1, 1},
         M::FRAME_SIZE_HALF_ORIGINAL,
         M::MODE_CROP,
         720,
         576,
         R(1),
         {360, 240, 1, 1}},
        {"quarter keeps the pixel shape",
         kPalWide,
         M::FRAME_SIZE_QUARTER_ORIGINAL,
         M::MODE_SMART_FIT,
         720,
         576,
         R(1),
         {180, 144, 64, 45}},
        {"quarter never below 2",
         {6, 6, 1, 1},
         M::FRAME_SIZE_QUARTER_ORIGINAL,
         M::MODE_SMART_FIT,
         720,
         576,
         R(1),
         {2, 2, 1, 1}},
        {"custom scale follows the picture",
         kPalWide,
         M::FRAME_SIZE_CUSTOM_SCALE,
         M::MODE_STRETCH,
         1280,
         100,
         R(1),
         {1280, 720, 1, 1}},
        // 1000 * 9 / 16 = 562.5 rounds to the nearest even, 562.
        {"custom scale rounds to even",
         kFullHd,
         M::FRAME_SIZE_CUSTOM_SCALE,
         M::MODE_LETTERBOX,
         1000,
         100,
         R(1),
         {1000, 562, 1, 1}},
    };
    for (const GeometryCase& c : cases) {
        Check(c);
    }
}

TEST(SettingsResizer, SourceWithoutSizeThrows) {
    const SettingsResizer settings;
    EXPECT_THROW(settings.GetOutputFrameSize({0, 1080, 1, 1}), Proc::ProcException);
    EXPECT_THROW(settings.GetOutputFrameSize({1920, -2, 1, 1}), Proc::ProcException);
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

TEST(IFilterResize, TreeHasTheShapeTheCodecRulesAddress) {
    SettingsResizer settings;
    settings.mode = SettingsResizer::MODE_LETTERBOX;
    settings.method = SettingsResizer::METHOD_FAST_BILINEAR;
    settings.width = 1280;
    const Core::Property tree = Proc::IFilterResize::Settings2Property(settings);
    EXPECT_EQ(tree.GetName(), Proc::IFilterResize::CLASS_ID);
    const std::string r = Proc::IResize::CLASS_ID + S;
    EXPECT_EQ(tree.ChildByPath(r + Proc::IResize::FRAME_SIZE_MODE).GetString(), Proc::IResize::FRAME_SIZE_CUSTOM);
    EXPECT_EQ(tree.ChildByPath(r + Proc::IResize::MODE).GetString(), Proc::IResize::MODE_LETTERBOX);
    EXPECT_EQ(tree.ChildByPath(r + Proc::IResize::METHOD).GetString(), Proc::IResize::METHOD_FAST_BILINEAR);
    EXPECT_EQ(tree.ChildByPath(r + Conf::IFormatCodecVideo::TAG_WIDTH).GetType(), TYPE_INT64);
    EXPECT_EQ(tree.ChildByPath(r + Conf::IFormatCodecVideo::TAG_WIDTH).GetInt64(), 1280);
    EXPECT_EQ(tree.ChildByPath(r + Conf::IFormatCodecVideo::TAG_ASPECTY).GetInt64(), 1);
}

TEST(IFilterResize, UnknownTextsAndMissingSettingsThrow) {
    Core::Property tree = Proc::IFilterResize::Settings2Property(SettingsResizer());
    tree.ChildByPath(Proc::IResize::CLASS_ID + S + Proc::IResize::MODE) = "sideways";
    EXPECT_THROW(Proc::IFilterResize::Property2Settings(tree), Proc::ProcException);
    tree[Proc::IResize::CLASS_ID].RemoveChild(Proc::IResize::MODE);
    EXPECT_THROW(Proc::IFilterResize::Property2Settings(tree), Core::PropertyException);
}

TEST(ProcSettings, ResampleTreeHoldsTheResampler) {
    const Core::Property tree = Proc::IFilterResample::MakeSettings(Conf::CH_LAYOUT_MONO, 48000);
    EXPECT_EQ(tree.GetName(), Proc::IFilterResample::CLASS_ID);
    const Core::Property& resampler = tree[Proc::IResample::CLASS_ID];
    EXPECT_EQ(resampler[Conf::IFormatCodecAudio::TAG_SAMPLE_RATE].GetInt64(), 48000);
    EXPECT_EQ(resampler[Conf::IFormatCodecAudio::TAG_LAYOUT].GetString(), Conf::IFormatCodecAudio::TAG_CH_LAYOUT_MONO);
    EXPECT_EQ(resampler[Conf::IFormatCodecAudio::TAG_SAMPLE_FORMAT].GetString(), "s16");
    EXPECT_EQ(resampler[Conf::IPreset::KEY_TYPE_ID].GetString(), Proc::ImplNames::DEFAULT);
}

TEST(ProcSettings, FrameRateDeinterlaceAndVolumeTrees) {
    const Core::Property rate = Proc::IFilterFrameRate::MakeSettings({30000, 1001});
    EXPECT_EQ(rate.GetName(), Proc::IFilterFrameRate::CLASS_ID);
    EXPECT_EQ(rate[Conf::IFormatCodecVideo::TAG_FPS].GetRatio(), Core::Property::Ratio(30000, 1001));

    for (const bool on : {true, false}) {
        const Core::Property deinterlace = Proc::IFilterDeinterlace::MakeSettings(on);
        EXPECT_EQ(deinterlace.GetName(), Proc::IFilterDeinterlace::CLASS_ID);
        EXPECT_EQ(deinterlace[Proc::IFilterDeinterlace::ENABLED].GetBool(), on);
        EXPECT_EQ(deinterlace.ChildByPath(Proc::IDeinterlace::CLASS_ID + S + Conf::IPreset::KEY_TYPE_ID).GetString(),
                  Proc::IDeinterlace::DEINTERLACE_IMPL_STANDART_FFMPEG);
    }

    Proc::SettingsFilterAudioVolume volume;
    EXPECT_EQ(volume.volume, 100);
    volume.volume = 150;
    const Core::Property tree = Proc::IFilterAudioVolume::Settings2Property(volume);
    EXPECT_EQ(tree.GetName(), Proc::IFilterAudioVolume::CLASS_ID);
    EXPECT_EQ(tree[Proc::IFilterAudioVolume::VOLUME_VALUE].GetInt64(), 150);
}
