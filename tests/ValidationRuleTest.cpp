#include "Conf/DataHelpers/ConstraintMethod.h"
#include "Conf/DataHelpers/ConstraintSampleFormat.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/DataHelpers/SizeConstraints.h"
#include "Conf/DataHelpers/ValidationRuleCheck.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Proc/IResize.h"
#include "RecordingConsumer.h"

#include <gtest/gtest.h>

#include <utility>

using namespace Tervan;
using namespace Tervan::Conf;
using Core::Property;
using Calls = std::vector<std::string>;

namespace {

// codec/id in {h263} implies frame/width in {176, 352}.
boost::intrusive_ptr<IValidationRule> SampleRule() {
    return PairValidationRule::Create("codec/id", ConstraintSet::Create(PairList<std::string>{{"h263", "h263"}}),
                                      "frame/width",
                                      ConstraintSet::Create(PairList<long long>{{"176", 176}, {"352", 352}}));
}

// A rule of a host's own make, answering with another rule's paths and constraints.
class HostRule : public RefCounted<IValidationRule> {
public:
    explicit HostRule(boost::intrusive_ptr<IValidationRule> inner) : m_inner(std::move(inner)) {}
    bool IsValid(const Property& settings) const noexcept override { return m_inner->IsValid(settings); }
    std::string GetFirstPath() const override { return m_inner->GetFirstPath(); }
    std::string GetSecondPath() const override { return m_inner->GetSecondPath(); }
    boost::intrusive_ptr<const IPropertyConstraint> GetFirstConstraint() const override {
        return m_inner->GetFirstConstraint();
    }
    boost::intrusive_ptr<const IPropertyConstraint> GetSecondConstraint() const override {
        return m_inner->GetSecondConstraint();
    }

private:
    boost::intrusive_ptr<IValidationRule> m_inner;
};

Property Job(const char* codec, long long width) {
    Property job("job");
    job.SetChild("codec").SetChildT("id", std::string(codec));
    job.SetChild("frame").SetChildT("width", width);
    return job;
}

}  // namespace

TEST(SizeConstraints, ListsSizesAsFrameSizeModeNodes) {
    const auto sizes = SizeConstraints::Create({{640, 480}, {1280, 720}});
    auto consumer = RecordingConsumer::Create();
    sizes->FillValueList(consumer);
    ASSERT_EQ(consumer->calls.size(), 3u);
    EXPECT_EQ(consumer->calls[0].substr(0, 18), "AddValue 640 x 480");
    EXPECT_EQ(consumer->calls[1].substr(0, 19), "AddValue 1280 x 720");
    EXPECT_EQ(consumer->calls[2], "Commit");
    EXPECT_EQ(consumer->values[1].GetName(), Proc::IResize::FRAME_SIZE_MODE);
    EXPECT_EQ(consumer->values[1][IFormatCodecVideo::TAG_WIDTH].GetInt64(), 1280);
    EXPECT_EQ(consumer->values[1][IFormatCodecVideo::TAG_HEIGHT].GetInt64(), 720);
}

TEST(SizeConstraints, OnlyTheCustomModeIsValid) {
    const auto sizes = SizeConstraints::Create({{640, 480}});
    EXPECT_FALSE(sizes->IsValid(Property("", 640)));
    EXPECT_TRUE(sizes->IsValid(Property("", Proc::IResize::FRAME_SIZE_CUSTOM)));
    EXPECT_FALSE(sizes->IsValid(Property("", Proc::IResize::FRAME_SIZE_ORIGINAL)));
    Property mode("m", "640 x 480");
    EXPECT_FALSE(sizes->Fixup(mode));
    EXPECT_EQ(mode.GetString(), "640 x 480");
    EXPECT_EQ(sizes->Description("m"), "");
}

TEST(PairValidationRule, IsAnImplication) {
    const auto rule = SampleRule();
    EXPECT_TRUE(rule->IsValid(Job("h263", 352)));
    EXPECT_FALSE(rule->IsValid(Job("h263", 320)));
    EXPECT_TRUE(rule->IsValid(Job("mpeg4", 320)));
    // The second path is not even looked at when the first constraint fails.
    Property noFrame("job");
    noFrame.SetChild("codec").SetChildT("id", std::string("mpeg4"));
    EXPECT_TRUE(rule->IsValid(noFrame));
    EXPECT_EQ(rule->GetFirstPath(), "codec/id");
    EXPECT_EQ(rule->GetSecondPath(), "frame/width");
}

TEST(ValidationRuleCheck, VerdictsOnUntrustedTrees) {
    struct Case {
        const char* name;
        Property job;
        ValidationRuleCheck::Verdict verdict;
        const char* path;
    };
    Property missingFrame("job");
    missingFrame.SetChild("codec").SetChildT("id", std::string("h263"));
    Property wrongFirstType = Job("h263", 352);
    wrongFirstType["codec"]["id"] = 263;
    Property wrongSecondType = Job("h263", 352);
    wrongSecondType["frame"]["width"] = 352.0;
    const Case cases[] = {
        {"holds", Job("h263", 176), ValidationRuleCheck::HOLDS, "frame/width"},
        {"other codec", Job("vp8", 1), ValidationRuleCheck::HOLDS, "codec/id"},
        {"broken", Job("h263", 320), ValidationRuleCheck::BROKEN, "frame/width"},
        {"missing first", Property("job"), ValidationRuleCheck::MISSING_SETTING, "codec/id"},
        {"missing second", missingFrame, ValidationRuleCheck::MISSING_SETTING, "frame/width"},
        {"wrong first type", wrongFirstType, ValidationRuleCheck::WRONG_TYPE, "codec/id"},
        {"wrong second type", wrongSecondType, ValidationRuleCheck::WRONG_TYPE, "frame/width"},
    };
    const auto rule = SampleRule();
    const boost::intrusive_ptr<IValidationRule> hosted(new HostRule(rule));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const ValidationRuleCheck check = ValidationRuleCheck::Evaluate(*rule, c.job);
        // A host's rule is read through the interface alone, to the same effect.
        const ValidationRuleCheck foreign = ValidationRuleCheck::Evaluate(*hosted, c.job);
        EXPECT_EQ(foreign.verdict, check.verdict);
        EXPECT_EQ(foreign.path, check.path);
        EXPECT_EQ(foreign.detail, check.detail);
        EXPECT_EQ(check.verdict, c.verdict);
        EXPECT_EQ(check.path, c.path);
        EXPECT_NE(check.detail.find(c.path), std::string::npos) << check.detail;
        // The quick form agrees and spends nothing on prose, except on a type mismatch.
        const ValidationRuleCheck quick = ValidationRuleCheck::EvaluateVerdict(*rule, c.job);
        EXPECT_EQ(quick.verdict, c.verdict);
        EXPECT_EQ(quick.path, c.path);
        EXPECT_EQ(quick.detail.empty(), c.verdict != ValidationRuleCheck::WRONG_TYPE) << quick.detail;
    }
    EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, Job("h263", 320)).detail,
              "frame/width is 320, not admitted while codec/id is h263");
    EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, wrongFirstType).detail,
              "codec/id holds a value of the type int64 where the type string is expected");
    EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, wrongSecondType).detail,
              "frame/width holds a value of the type double where the type int64 is expected");
}

TEST(ValidationRuleCheck, RuleTiedToNoSettingAlwaysApplies) {
    const auto evenWidth = ConstraintMethod::CreateEven(IPropertyConstraint::DESCRIPTION_ID_EVEN_SIZE);
    // Without a first constraint the first path is not even looked up.
    const boost::intrusive_ptr<IValidationRule> rules[] = {
        PairValidationRule::Create("", nullptr, "frame/width", evenWidth),
        PairValidationRule::Create("no/such/setting", nullptr, "frame/width", evenWidth),
    };
    for (const auto& rule : rules) {
        SCOPED_TRACE(rule->GetFirstPath());
        EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, Job("x", 720)).verdict, ValidationRuleCheck::HOLDS);
        EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, Job("x", 721)).verdict, ValidationRuleCheck::BROKEN);
        EXPECT_TRUE(rule->IsValid(Job("x", 720)));
        EXPECT_FALSE(rule->IsValid(Job("x", 721)));
    }
}

// An empty first path is a path like any other: it names a child without a name.
TEST(ValidationRuleCheck, EmptyFirstPathWithAConstraintIsLookedUp) {
    const auto rule = PairValidationRule::Create("", ConstraintSet::Create(PairList<long long>{{"1", 1}}),
                                                 "frame/width", ConstraintMethod::CreateEven(""));
    Property tied = Job("x", 721);
    tied.SetChildT("", 1LL);
    EXPECT_FALSE(rule->IsValid(tied));
    EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, tied).verdict, ValidationRuleCheck::BROKEN);
    tied[""] = 2LL;
    EXPECT_TRUE(rule->IsValid(tied));
    EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, tied).verdict, ValidationRuleCheck::HOLDS);
    EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, Job("x", 721)).verdict, ValidationRuleCheck::MISSING_SETTING);
}

TEST(ValidationRuleCheck, UnknownSampleFormatIsNotAdmitted) {
    const auto rule =
        PairValidationRule::Create("", nullptr, "audio/fmt", ConstraintSampleFormat::Create({SAMPLE_FMT_S16}));
    Property job("job");
    job.SetChild("audio").SetChildT("fmt", std::string("s24le"));
    EXPECT_EQ(ValidationRuleCheck::Evaluate(*rule, job).verdict, ValidationRuleCheck::BROKEN);
}
