#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/DataHelperFormatContainer.h"
#include "Conf/DataHelpers/FakeConstraintConsumer.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "FormatTestSupport.h"

#include <gtest/gtest.h>

#include <utility>

using namespace FormatTest;

namespace {

struct CodecLists : DataHelperFormatBase {
    using DataHelperFormatBase::SetCodecConstraint;
};

constexpr const std::string* kProbeAudio[] = {&A::CODEC_ID_MP3, &A::CODEC_ID_AAC};
constexpr DataHelperFormatContainer::Description kProbe = {
    nullptr,      nullptr, DataHelperFormatContainer::NO_FLAGS,
    {0, 1, 0, 0}, {},      DataHelperFormatContainer::CodecList(kProbeAudio, A::CODEC_ID_MP3)};

// An audio-only format with rules of the test's choosing, counting how often they are asked for.
class ProbeFormat : public DataHelperFormatContainer {
public:
    explicit ProbeFormat(ValidationRules rules) : DataHelperFormatContainer(kProbe), m_rules(std::move(rules)) {}
    ~ProbeFormat() override = default;

    void GetValidationRules(ValidationRules& out) const override {
        ++requests;
        out.insert(out.end(), m_rules.begin(), m_rules.end());
    }

    mutable int requests = 0;

private:
    ValidationRules m_rules;
};

std::pair<std::string, boost::intrusive_ptr<IValidationRule>> RateRule(const std::string& codecPath,
                                                                       const std::string& ratePath,
                                                                       const PairList<long long>& rates) {
    return {Property::SEPARATOR, PairValidationRule::Create(
                                     codecPath, ConstraintSet::Create(PairList<std::string>{{"mp3", A::CODEC_ID_MP3}}),
                                     ratePath, ConstraintSet::Create(rates))};
}

}  // namespace

TEST(DataHelperFormatBase, CodecListMessagesAreExact) {
    const std::vector<std::string> codecs = {A::CODEC_ID_AAC, A::CODEC_ID_MP3};
    EXPECT_EQ(HelperMessage([] { CodecLists::SetCodecConstraint({}, A::CODEC_ID_AAC); }),
              "List of available codecs is empty");
    // The empty list is reported before the missing default.
    EXPECT_EQ(HelperMessage([] { CodecLists::SetCodecConstraint({}, "none"); }), "List of available codecs is empty");
    EXPECT_EQ(HelperMessage([&] { CodecLists::SetCodecConstraint(codecs, "AAC"); }),
              "Default codec AAC is not presented in list of avalible codecs");
}

TEST(DataHelperFormatBase, CodecListIsLabelledByIdentifier) {
    const ConstraintPtr constraint =
        CodecLists::SetCodecConstraint({A::CODEC_ID_AAC, A::CODEC_ID_MP3}, A::CODEC_ID_MP3);
    const auto consumer = FakeConstraintConsumer::Create();
    constraint->FillValueList(consumer);
    EXPECT_EQ(ChildNames(consumer->GetValue()), (std::vector<std::string>{A::CODEC_ID_AAC, A::CODEC_ID_MP3}));
}

TEST(DataHelperFormatBase, MissingCodecListsAreReported) {
    struct Case {
        std::string format;
        bool video;  // which list is missing
    };
    for (const Case& c : {Case{IFormatFile::FORMAT_AAC, true}, Case{IFormatFile::FORMAT_WAV, true},
                          Case{IFormatFile::FORMAT_PNG, false}, Case{IFormatFile::FORMAT_GIF, false}}) {
        SCOPED_TRACE(c.format);
        const DataHelperFormatBase& helper = AsFormatBase(*Format(c.format));
        const std::string expected =
            c.video ? "Video codecs constraint is not set" : "Audio codecs constraint is not set";
        EXPECT_EQ(HelperMessage([&] { c.video ? helper.DefaultVideoCodec() : helper.DefaultAudioCodec(); }), expected);
        EXPECT_EQ(HelperMessage([&] { c.video ? helper.VideoCodecsConstraint() : helper.AudioCodecsConstraint(); }),
                  expected);
    }
}

// Each operation raises its own error, so the recorded throw site names it.
TEST(DataHelperFormatBase, ErrorsNameTheOperationThatRaisesThem) {
    const DataHelperFormatBase& gif = AsFormatBase(*Format(IFormatFile::FORMAT_GIF));
    const std::pair<std::string, std::function<void()>> operations[] = {
        {"AudioCodecsConstraint", [&] { gif.AudioCodecsConstraint(); }},
        {"DefaultAudioCodec", [&] { gif.DefaultAudioCodec(); }},
        {"SetCodecConstraint", [] { CodecLists::SetCodecConstraint({}, A::CODEC_ID_AAC); }},
    };
    for (const auto& [name, operation] : operations) {
        SCOPED_TRACE(name);
        try {
            operation();
            ADD_FAILURE() << "no exception";
        } catch (const HelperException& e) {
            const char* const* function = boost::get_error_info<boost::throw_function>(e);
            ASSERT_NE(function, nullptr);
            EXPECT_NE(std::string(*function).find("DataHelperFormatBase::" + name), std::string::npos) << *function;
        }
    }
}

TEST(DataHelperFormatBase, ApplyPresetSettingsChangesNothing) {
    Property preset(IPreset::KEY_FORMAT);
    preset.SetChildT(IFormatFile::TAG_CONTAINER, IFormatFile::FORMAT_AVI);
    Property out = Format(IFormatFile::FORMAT_MP4)->GetDefaults();
    const Property before = out;
    Format(IFormatFile::FORMAT_MP4)->ApplyPresetSettings(preset, out);
    EXPECT_EQ(out, before);
    EXPECT_EQ(out.GetName(), before.GetName());
}

TEST(DataHelperFormatBase, CorrectFormatCodecLooksOnlyAtAudioNodes) {
    const ProbeFormat probe({RateRule(kAudioCodecPath, kSampleRatePath, {{"8000", 8000}})});
    for (const std::string& name : {V::TAG_FORMAT_CODEC_VIDEO, IPreset::KEY_FILTER_AUDIO_CODEC, std::string("x")}) {
        Property node = CodecNode(name, A::CODEC_ID_MP3, 44100);
        probe.CorrectFormatCodec(node);
        EXPECT_EQ(node, CodecNode(name, A::CODEC_ID_MP3, 44100));
    }
    EXPECT_EQ(probe.requests, 0);
    Property audio = CodecNode(A::TAG_FORMAT_CODEC_AUDIO, A::CODEC_ID_MP3, 44100);
    probe.CorrectFormatCodec(audio);
    EXPECT_EQ(probe.requests, 1);
    EXPECT_EQ(audio[A::TAG_SAMPLE_RATE].GetInt64(), 8000);
}

TEST(DataHelperFormatBase, CorrectFormatCodecAppliesMatchingRulesInTurn) {
    // Alone, the second rule would pick 30000 for 44100; after the first it sees 16000.
    const ProbeFormat chained({RateRule(kAudioCodecPath, kSampleRatePath, {{"8000", 8000}, {"16000", 16000}}),
                               RateRule(kAudioCodecPath, kSampleRatePath, {{"11025", 11025}, {"30000", 30000}})});
    Property node = CodecNode(A::TAG_FORMAT_CODEC_AUDIO, A::CODEC_ID_MP3, 44100);
    chained.CorrectFormatCodec(node);
    EXPECT_EQ(node[A::TAG_SAMPLE_RATE].GetInt64(), 11025);

    // Rules over other settings are not corrections.
    const ProbeFormat elsewhere(
        {RateRule(IPreset::KEY_FILTER_VIDEO_CODEC + Property::SEPARATOR + IFormatCodec::TAG_CODEC_ID, kSampleRatePath,
                  {{"8000", 8000}}),
         RateRule(kAudioCodecPath, A::TAG_SAMPLE_RATE, {{"8000", 8000}})});
    Property untouched = CodecNode(A::TAG_FORMAT_CODEC_AUDIO, A::CODEC_ID_MP3, 44100);
    elsewhere.CorrectFormatCodec(untouched);
    EXPECT_EQ(untouched[A::TAG_SAMPLE_RATE].GetInt64(), 44100);
}
