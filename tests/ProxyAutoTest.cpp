#include "Conf/ConfException.h"
#include "Conf/DataHelpers/ConstraintRange.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/DataHelperAudioCodecAc3.h"
#include "Conf/DataHelpers/DataHelperAudioCodecEmpty.h"
#include "Conf/DataHelpers/DataHelperProxyAuto.h"
#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"
#include "HelperQueries.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/SettingsFilterFrameRate.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace Tervan;
using namespace Tervan::Conf;
using namespace HelperQueries;
using Core::Property;
using Ratio = boost::rational<long long>;

namespace {

const std::string& Sep() {
    return Property::SEPARATOR;
}

const std::string kAudioCodecKey = StreamCodecKey(IPreset::STREAM_TYPE_AUDIO);
const std::string kVideoCodecKey = StreamCodecKey(IPreset::STREAM_TYPE_VIDEO);

std::string FrameRatePath() {
    return Proc::IFilterFrameRate::CLASS_ID + Sep() + IFormatCodecVideo::TAG_FPS;
}

DataHelperPtr Wrap(const DataHelperPtr& helper) {
    return DataHelperProxyAuto::Create(IPreset::KEY_FORMAT, helper);
}

// The one rule whose second path is path.
boost::intrusive_ptr<IValidationRule> RuleFor(const IDataHelper::ValidationRules& rules, const std::string& path) {
    boost::intrusive_ptr<IValidationRule> found;
    for (const auto& entry : rules) {
        if (entry.second->GetSecondPath() == path) {
            EXPECT_FALSE(found) << "two rules on " << path;
            found = entry.second;
        }
    }
    EXPECT_TRUE(found) << "no rule on " << path;
    return found;
}

// Hands out what it was given; the other operations leave a mark on their arguments.
class StubHelper : public RefCounted<IDataHelper> {
public:
    static DataHelperPtr Create(Constraints constraints = {}, ValidationRules rules = {}) {
        return DataHelperPtr(new StubHelper(std::move(constraints), std::move(rules)));
    }

    Property GetDefaults() const override { return Property("stub", 7LL); }
    void GetRequiredObjects(RequiredObjects& out) const override { out.emplace_back("stub", "impl"); }
    void GetValidationRules(ValidationRules& out) const override {
        out.insert(out.end(), m_rules.begin(), m_rules.end());
    }
    void GetConstraints(Constraints& out) const override { out.insert(m_constraints.begin(), m_constraints.end()); }
    void ApplyPresetSettings(const Property& preset, Property& out) const override {
        out.SetChild("applied", preset["given"]);
    }
    void CorrectFormatCodec(Property& settings) const override { settings.SetChildT("corrected", true); }

protected:
    StubHelper(Constraints constraints, ValidationRules rules)
        : m_constraints(std::move(constraints)), m_rules(std::move(rules)) {}
    ~StubHelper() override = default;

private:
    Constraints m_constraints;
    ValidationRules m_rules;
};

// The real helper's constraints and rules, taken once: real helpers make new objects
// per call, so only a frozen copy shows which objects the proxy hands on.
DataHelperPtr Frozen(const std::string& type, const std::string& name) {
    const DataHelperPtr helper = CreateDataHelper(type, name);
    return StubHelper::Create(ConstraintsOf(*helper), RulesOf(*helper));
}

}  // namespace

TEST(ProxyAuto, Mp4AudioCodecsStartWithTheAutomaticCodec) {
    const DataHelperPtr mp4 = Frozen(IPreset::KEY_FORMAT, IFormatFile::FORMAT_MP4);
    const IDataHelper::Constraints own = ConstraintsOf(*mp4);
    const IDataHelper::Constraints widened = ConstraintsOf(*Wrap(mp4));

    ASSERT_EQ(widened.size(), own.size());
    const auto audio = widened.at(kAudioCodecKey);
    EXPECT_EQ(AsSet(audio).GetValueType(), TYPE_STRING);
    const Labels codecs = {IFormatCodec::CODEC_ID_AUTO, IFormatCodecAudio::CODEC_ID_AAC,
                           IFormatCodecAudio::CODEC_ID_AC3, IFormatCodecAudio::CODEC_ID_DTS,
                           IFormatCodecAudio::CODEC_ID_MP3};
    EXPECT_EQ(LabelsOf(audio), codecs);
    EXPECT_FALSE(own.at(kAudioCodecKey)->IsValid(Property("", IFormatCodec::CODEC_ID_AUTO)));
    EXPECT_TRUE(audio->IsValid(Property("", IFormatCodec::CODEC_ID_AUTO)));

    // No automatic video codec: the format's own object.
    EXPECT_EQ(widened.at(kVideoCodecKey), own.at(kVideoCodecKey));
}

TEST(ProxyAuto, H264BitrateModesStartWithAutomaticMode) {
    const DataHelperPtr h264 = Frozen(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_H264);
    const IDataHelper::Constraints own = ConstraintsOf(*h264);
    const IDataHelper::Constraints widened = ConstraintsOf(*Wrap(h264));

    Labels modes = {IFormatCodec::TAG_BITRATE_MODE_CBR_AUTO};
    const Labels ownModes = LabelsOf(own.at(IFormatCodec::TAG_BITRATE_MODE));
    modes.insert(modes.end(), ownModes.begin(), ownModes.end());
    EXPECT_EQ(LabelsOf(widened.at(IFormatCodec::TAG_BITRATE_MODE)), modes);

    // Everything else is handed on as it is.
    ASSERT_EQ(widened.size(), own.size());
    for (const auto& [key, constraint] : own) {
        if (key != IFormatCodec::TAG_BITRATE_MODE) {
            EXPECT_EQ(widened.at(key), constraint) << key;
        }
    }
}

TEST(ProxyAuto, RangeWidenedThroughTheProbeKeepsOnlyTheAutomaticValue) {
    // The probe reports a list in preference to a range, so the range's bounds are lost.
    const DataHelperPtr stub =
        StubHelper::Create({{IFormatCodec::TAG_BITRATE_MODE, ConstraintRange::Create(0LL, 10LL, 3LL)}});
    const auto widened = ConstraintsOf(*Wrap(stub)).at(IFormatCodec::TAG_BITRATE_MODE);

    EXPECT_EQ(AsSet(widened).GetValueType(), TYPE_STRING);
    EXPECT_EQ(LabelsOf(widened), Labels{IFormatCodec::TAG_BITRATE_MODE_CBR_AUTO});
    EXPECT_TRUE(widened->IsValid(Property("", IFormatCodec::TAG_BITRATE_MODE_CBR_AUTO)));
}

TEST(ProxyAuto, CallersOtherKeysAreLeftAlone) {
    const auto mine = ConstraintSet::Create(PairList<std::string>{{"x", "x"}});
    const auto stale = ConstraintSet::Create(PairList<std::string>{{"y", "y"}});
    IDataHelper::Constraints out = {{"mine", mine}, {kVideoCodecKey, stale}};

    const DataHelperPtr mp4 = Frozen(IPreset::KEY_FORMAT, IFormatFile::FORMAT_MP4);
    Wrap(mp4)->GetConstraints(out);

    EXPECT_EQ(out.at("mine"), mine);
    EXPECT_EQ(out.at(kVideoCodecKey), ConstraintsOf(*mp4).at(kVideoCodecKey));
    EXPECT_EQ(out.size(), 3u);
}

TEST(ProxyAuto, Mp4Mp3SampleRateRuleAdmitsAutomaticRate) {
    const DataHelperPtr mp4 = Frozen(IPreset::KEY_FORMAT, IFormatFile::FORMAT_MP4);
    const std::string ratePath = ResamplerPath(IFormatCodecAudio::TAG_SAMPLE_RATE);
    const auto own = RuleFor(RulesOf(*mp4), ratePath);
    const auto widened = RuleFor(RulesOf(*Wrap(mp4)), ratePath);
    ASSERT_TRUE(own && widened);

    EXPECT_EQ(LabelsOf(widened->GetSecondConstraint()),
              (Labels{"Auto", "44100", "48000", "32000", "22050", "24000", "16000"}));
    EXPECT_FALSE(own->GetSecondConstraint()->IsValid(Property("", -1LL)));
    EXPECT_TRUE(widened->GetSecondConstraint()->IsValid(Property("", -1LL)));
}

TEST(ProxyAuto, EveryRuleIsRebuiltWithItsPathsAndFirstConstraint) {
    for (const auto& [type, name] :
         {std::pair(IPreset::KEY_FORMAT, IFormatFile::FORMAT_MP4),
          std::pair(IPreset::KEY_FORMAT, IFormatFile::FORMAT_GIF),
          std::pair(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodecAudio::CODEC_ID_MP3),
          std::pair(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_MPEG2VIDEO)}) {
        SCOPED_TRACE(type + " " + name);
        const DataHelperPtr helper = Frozen(type, name);
        const IDataHelper::ValidationRules own = RulesOf(*helper);
        const IDataHelper::ValidationRules widened = RulesOf(*Wrap(helper));
        ASSERT_FALSE(own.empty());
        ASSERT_EQ(widened.size(), own.size());
        for (std::size_t i = 0; i < own.size(); ++i) {
            const IValidationRule& rule = *widened[i].second;
            EXPECT_EQ(widened[i].first, own[i].first);
            EXPECT_NE(&rule, own[i].second.get());
            EXPECT_NE(dynamic_cast<const PairValidationRule*>(&rule), nullptr);
            EXPECT_EQ(rule.GetFirstPath(), own[i].second->GetFirstPath());
            EXPECT_EQ(rule.GetSecondPath(), own[i].second->GetSecondPath());
            EXPECT_EQ(rule.GetFirstConstraint(), own[i].second->GetFirstConstraint());
        }
    }
}

// The sample rate is widened as in Mp4Mp3SampleRateRuleAdmitsAutomaticRate; the layout takes a string.
TEST(ProxyAuto, AudioCodecLayoutRuleAdmitsTheUnknownLayout) {
    const DataHelperPtr mp3 = CreateDataHelper(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodecAudio::CODEC_ID_MP3);
    const Property unknown("", IFormatCodecAudio::TAG_CH_LAYOUT_UNKNOWN);
    const auto own = RuleFor(RulesOf(*mp3), ResamplerPath(IFormatCodecAudio::TAG_LAYOUT));
    const auto widened = RuleFor(RulesOf(*Wrap(mp3)), ResamplerPath(IFormatCodecAudio::TAG_LAYOUT));
    ASSERT_TRUE(own && widened);
    EXPECT_FALSE(own->GetSecondConstraint()->IsValid(unknown));
    EXPECT_EQ(LabelsOf(widened->GetSecondConstraint()).front(), "Auto");
    EXPECT_TRUE(widened->GetSecondConstraint()->IsValid(unknown));
}

TEST(ProxyAuto, SecondConstraintAdmittingAutoIsKept) {
    const DataHelperPtr gif = Frozen(IPreset::KEY_FORMAT, IFormatFile::FORMAT_GIF);
    const auto own = RuleFor(RulesOf(*gif), FrameRatePath());
    const auto widened = RuleFor(RulesOf(*Wrap(gif)), FrameRatePath());
    ASSERT_TRUE(own && widened);
    ASSERT_TRUE(
        own->GetSecondConstraint()->IsValid(Property("", Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE)));
    EXPECT_EQ(widened->GetSecondConstraint(), own->GetSecondConstraint());
}

TEST(ProxyAuto, SecondConstraintOfAnotherTypeIsWidened) {
    // An integer set asked about the rational mark throws; the proxy takes that as a no.
    const auto integers = ConstraintSet::Create(PairList<long long>{{"25", 25}});
    const auto range = ConstraintRange::Create(8000LL, 48000LL, 0LL);
    const auto first = ConstraintSet::Create(PairList<std::string>{{"c", "c"}});
    const DataHelperPtr stub = StubHelper::Create(
        {}, {{Sep(), PairValidationRule::Create("codec", first, FrameRatePath(), integers)},
             {Sep(), PairValidationRule::Create("codec", first, "elsewhere", integers)},
             {Sep(),
              PairValidationRule::Create("codec", first, ResamplerPath(IFormatCodecAudio::TAG_SAMPLE_RATE), range)}});
    const IDataHelper::ValidationRules rules = RulesOf(*Wrap(stub));
    ASSERT_EQ(rules.size(), 3u);

    const auto frameRate = rules[0].second->GetSecondConstraint();
    EXPECT_EQ(AsSet(frameRate).GetValueType(), TYPE_RATIONAL);
    EXPECT_EQ(LabelsOf(frameRate), (Labels{"Auto", "25"}));
    EXPECT_TRUE(frameRate->IsValid(Property("", Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE)));

    // Only the paths of the table are widened.
    EXPECT_EQ(rules[1].second->GetSecondConstraint(), integers);

    // As with constraints, the probe keeps the automatic value and drops the range.
    const auto rate = rules[2].second->GetSecondConstraint();
    EXPECT_EQ(AsSet(rate).GetValueType(), TYPE_INT64);
    EXPECT_EQ(LabelsOf(rate), Labels{"Auto"});
}

// A host's constraint that throws something of its own when asked about the automatic value.
class ThrowingConstraint : public RefCounted<IPropertyConstraint> {
public:
    static ConstraintPtr Create() { return ConstraintPtr(new ThrowingConstraint()); }

    void FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const override {
        consumer->AddValue("48000", Property("48000", 48000LL));
        consumer->Commit();
    }
    bool IsValid(const Property&) const override { throw 42; }
    bool Fixup(Property&) const override { return false; }
    std::string Description(const std::string&) const override { return {}; }

private:
    ThrowingConstraint() = default;
    ~ThrowingConstraint() override = default;
};

TEST(ProxyAuto, SecondConstraintThrowingAnythingIsWidened) {
    const auto first = ConstraintSet::Create(PairList<std::string>{{"c", "c"}});
    const DataHelperPtr stub = StubHelper::Create(
        {}, {{Sep(), PairValidationRule::Create("codec", first, ResamplerPath(IFormatCodecAudio::TAG_SAMPLE_RATE),
                                                ThrowingConstraint::Create())}});
    const IDataHelper::ValidationRules rules = RulesOf(*Wrap(stub));
    ASSERT_EQ(rules.size(), 1u);
    EXPECT_EQ(LabelsOf(rules[0].second->GetSecondConstraint()), (Labels{"Auto", "48000"}));
}

TEST(ProxyAuto, DefaultsAreTheWrappedHelpers) {
    for (const auto& [type, name] : {std::pair(IPreset::KEY_FORMAT, IFormatFile::FORMAT_MP4),
                                     std::pair(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodecAudio::CODEC_ID_AAC),
                                     std::pair(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_H264),
                                     std::pair(Proc::IFilterResample::CLASS_ID, std::string())}) {
        SCOPED_TRACE(type + " " + name);
        const DataHelperPtr helper = CreateDataHelper(type, name);
        const Property own = helper->GetDefaults();
        const Property proxied = CreateDataHelperAuto(type, name)->GetDefaults();
        EXPECT_EQ(proxied.GetName(), own.GetName());
        EXPECT_TRUE(proxied == own);
    }
}

TEST(ProxyAuto, OtherOperationsReachTheWrappedHelper) {
    const DataHelperPtr proxy = Wrap(StubHelper::Create());

    IDataHelper::RequiredObjects required = {{"kept", ""}};
    proxy->GetRequiredObjects(required);
    EXPECT_EQ(required, (IDataHelper::RequiredObjects{{"kept", ""}, {"stub", "impl"}}));

    Property preset;
    preset.SetChildT("given", 5LL);
    Property out;
    proxy->ApplyPresetSettings(preset, out);
    EXPECT_EQ(out["applied"].GetInt64(), 5);

    Property settings;
    proxy->CorrectFormatCodec(settings);
    EXPECT_TRUE(settings["corrected"].GetBool());

    EXPECT_EQ(proxy->GetDefaults().GetInt64(), 7);

    // A helper without constraints or rules yields none.
    EXPECT_TRUE(ConstraintsOf(*proxy).empty());
    EXPECT_TRUE(RulesOf(*proxy).empty());
}

TEST(ProxyAuto, EachCallWrapsTheSharedHelperAnew) {
    const DataHelperPtr first = CreateDataHelperAuto(IPreset::KEY_FORMAT, IFormatFile::FORMAT_MP4);
    const DataHelperPtr second = CreateDataHelperAuto(IPreset::KEY_FORMAT, IFormatFile::FORMAT_MP4);
    EXPECT_NE(first, second);
    for (const DataHelperPtr& helper : {first, second}) {
        const auto* proxy = dynamic_cast<const DataHelperProxyAuto*>(helper.get());
        ASSERT_NE(proxy, nullptr);
        EXPECT_EQ(proxy->GetHelper(), CreateDataHelper(IPreset::KEY_FORMAT, IFormatFile::FORMAT_MP4));
        EXPECT_EQ(proxy->GetType(), IPreset::KEY_FORMAT);
    }
}

TEST(ProxyAuto, AutomaticAc3AudioIsAnEmptyCodec) {
    const DataHelperPtr automatic =
        CreateDataHelperAuto(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodecAudio::CODEC_ID_AC3);
    const auto* empty = dynamic_cast<const DataHelperAudioCodecEmpty*>(automatic.get());
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(empty->GetCodecID(), IFormatCodecAudio::CODEC_ID_AC3);
    EXPECT_NE(CreateDataHelperAuto(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodecAudio::CODEC_ID_AC3), automatic);

    const DataHelperPtr plain = CreateDataHelper(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodecAudio::CODEC_ID_AC3);
    EXPECT_NE(dynamic_cast<const DataHelperAudioCodecAc3*>(plain.get()), nullptr);

    // Only the audio codec key itself takes the shortcut; its alias gets a proxy.
    const DataHelperPtr alias =
        CreateDataHelperAuto(IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO, IFormatCodecAudio::CODEC_ID_AC3);
    const auto* proxy = dynamic_cast<const DataHelperProxyAuto*>(alias.get());
    ASSERT_NE(proxy, nullptr);
    EXPECT_EQ(proxy->GetHelper(), plain);
}

TEST(ProxyAuto, UnknownNamesFailAsInThePlainRegistry) {
    EXPECT_THROW(CreateDataHelperAuto(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_H265),
                 HelperException);
    EXPECT_THROW(CreateDataHelperAuto("no such type", IFormatCodecAudio::CODEC_ID_MP3), HelperException);
}
