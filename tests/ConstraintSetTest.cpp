#include "Conf/ConfException.h"
#include "Conf/DataHelpers/ConstraintChannelLayout.h"
#include "Conf/DataHelpers/ConstraintCodecs.h"
#include "Conf/DataHelpers/ConstraintSampleFormat.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "RecordingConsumer.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Tervan;
using namespace Tervan::Conf;
using Core::Property;
using Ratio = Property::Ratio;
using Calls = std::vector<std::string>;

namespace {

const PairList<long long> kTensList = {{"10", 10}, {"20", 20}, {"30", 30}};

std::string ClassOf(const ConstraintException& e) {
    const auto* name = boost::get_error_info<ConstraintException::TagConstraintClass>(e);
    return name == nullptr ? "<none>" : *name;
}

}  // namespace

TEST(ConstraintSet, FixupSnapsToNearestWithTiesToTheEarlierEntry) {
    struct Case {
        long long in;
        long long out;
    };
    const auto set = ConstraintSet::Create(kTensList);
    for (const Case& c : {Case{15, 10}, Case{25, 20}, Case{26, 30}, Case{20, 20}, Case{-1000, 10}, Case{99, 30}}) {
        SCOPED_TRACE(c.in);
        Property value("rate", c.in);
        EXPECT_TRUE(set->Fixup(value));
        EXPECT_EQ(value.GetInt64(), c.out);
        EXPECT_EQ(value.GetName(), "rate");
    }
}

TEST(ConstraintSet, IntegerDistancesAreExactIn64Bits) {
    struct Case {
        const char* name;
        PairList<long long> entries;
        long long in;
        long long out;
    };
    const long long big = 1LL << 53;
    const Case cases[] = {
        // A wrapping signed difference would put LLONG_MIN one step from LLONG_MAX.
        {"no overflow", {{"min", LLONG_MIN}, {"zero", 0}}, LLONG_MAX, 0},
        // In doubles big + 3 rounds to big + 4 and both entries would be 2 away.
        {"no rounding", {{"a", big}, {"b", big + 3}}, big + 2, big + 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Property value("v", c.in);
        EXPECT_TRUE(ConstraintSet::Create(c.entries)->Fixup(value));
        EXPECT_EQ(value.GetInt64(), c.out);
    }
}

TEST(ConstraintSet, RationalsAndDoubles) {
    const auto rates = ConstraintSet::Create(PairList<Ratio>{{"25", Ratio(25)}, {"29.97", Ratio(30000, 1001)}});
    Property fps("fps", Ratio(30));
    EXPECT_FALSE(rates->IsValid(fps));
    EXPECT_TRUE(rates->Fixup(fps));
    EXPECT_EQ(fps.GetRatio(), Ratio(30000, 1001));
    EXPECT_TRUE(rates->IsValid(Property("", Ratio(60000, 2002))));

    const auto doubles = ConstraintSet::Create(PairList<double>{{"a", 0.5}, {"b", 2.0}});
    Property d("d", 1.3);
    EXPECT_TRUE(doubles->Fixup(d));
    EXPECT_DOUBLE_EQ(d.GetDouble(), 2.0);
}

TEST(ConstraintSet, BoolAndStringSetsNeverRepair) {
    const auto strings = ConstraintSet::Create(PairList<std::string>{{"CBR", "cbr"}, {"VBR", "vbr"}});
    Property mode("mode", "abr");
    EXPECT_FALSE(strings->Fixup(mode));
    EXPECT_EQ(mode.GetString(), "abr");
    EXPECT_TRUE(strings->IsValid(Property("", "vbr")));
    EXPECT_FALSE(strings->IsValid(Property("", "VBR")));  // labels are not values

    const auto bools = ConstraintSet::Create(PairList<bool>{{"yes", true}});
    Property flag("flag", false);
    EXPECT_FALSE(bools->Fixup(flag));
    EXPECT_FALSE(flag.GetBool());
}

TEST(ConstraintException, TypeMismatchNamesTheClassTheTypeAndTheThrowSite) {
    struct Case {
        const char* name;
        boost::intrusive_ptr<const IPropertyConstraint> constraint;
        Property value;
        const char* constraintClass;
        PropertyTypes type;
        const char* what;
    };
    const Case cases[] = {
        {"set", ConstraintSet::Create(PairList<double>{{"one", 1.0}}), Property("", 1), "ConstraintSet", TYPE_DOUBLE,
         "ConstraintSet judges values of the type double, not of the type int64"},
        {"codecs", ConstraintCodecs::Create({{"AAC", "aac"}}, "aac"), Property("", 5), "ConstraintCodecs", TYPE_STRING,
         "ConstraintCodecs judges values of the type string, not of the type int64"},
        // The layout constraint deliberately reports the value-set class.
        {"layout", ConstraintChannelLayout::Create({IFormatCodecAudio::TAG_CH_LAYOUT_MONO}), Property("", true),
         "ConstraintSet", TYPE_STRING, "ConstraintSet judges values of the type string, not of the type bool"},
        {"sample format", ConstraintSampleFormat::Create({SAMPLE_FMT_S16}), Property("", 1.0), "ConstraintSampleFormat",
         TYPE_STRING, "ConstraintSampleFormat judges values of the type string, not of the type double"},
    };
    for (const Case& c : cases) {
        for (bool fixup : {false, true}) {
            SCOPED_TRACE(std::string(c.name) + (fixup ? " Fixup" : " IsValid"));
            Property value = c.value;
            try {
                fixup ? c.constraint->Fixup(value) : c.constraint->IsValid(value);
                ADD_FAILURE() << "no exception";
            } catch (const ConstraintIsNotApplicableForTypeException& e) {
                EXPECT_EQ(ClassOf(e), c.constraintClass);
                const auto* type = boost::get_error_info<ConstraintException::TagValueType>(e);
                ASSERT_NE(type, nullptr);
                EXPECT_EQ(*type, c.type);
                EXPECT_STREQ(e.what(), c.what);
                EXPECT_NE(boost::get_error_info<boost::throw_function>(e), nullptr);
                EXPECT_NE(boost::get_error_info<boost::throw_file>(e), nullptr);
                EXPECT_NE(boost::get_error_info<boost::throw_line>(e), nullptr);
            }
            EXPECT_EQ(value, c.value);
        }
    }
}

TEST(ConstraintSet, EmptySet) {
    const auto empty = ConstraintSet::Create(PairList<long long>{});
    Property value("v", "not even an integer");
    EXPECT_FALSE(empty->Fixup(value));  // no type check when there is nothing to pick
    EXPECT_FALSE(empty->IsValid(Property("", 5)));
    auto consumer = RecordingConsumer::Create();
    empty->FillValueList(consumer);
    EXPECT_EQ(consumer->calls, Calls{"Commit"});
    EXPECT_EQ(empty->Description("rate"), "Parameter rate must be one of the following values: %2");
}

TEST(ConstraintSet, ListsLabelsInOrderThenCommits) {
    auto consumer = RecordingConsumer::Create();
    ConstraintSet::Create(kTensList)->FillValueList(consumer);
    EXPECT_EQ(consumer->calls, (Calls{"AddValue 10=10", "AddValue 20=20", "AddValue 30=30", "Commit"}));

    Property list("list");
    list.SetChild("Auto", Property("", "auto"));
    list.SetChild("AAC", Property("", "aac"));
    const auto fromTree = ConstraintSet::Create(TYPE_STRING, list);
    auto second = RecordingConsumer::Create();
    fromTree->FillValueList(second);
    EXPECT_EQ(second->calls, (Calls{"AddValue Auto=auto", "AddValue AAC=aac", "Commit"}));
}

TEST(ConstraintSet, DescriptionListsLabelsEachFollowedByABlank) {
    const auto set = ConstraintSet::Create(PairList<std::string>{{"Low", "l"}, {"High", "h"}});
    EXPECT_EQ(set->Description("quality"), "Parameter quality must be one of the following values: Low High ");
    static const long long rates[] = {8000, 44100};
    EXPECT_EQ(ConstraintSet::Create(CreatePairValueList(rates))->Description("rate"),
              "Parameter rate must be one of the following values: 8000 44100 ");
    ::setenv("LANGUAGE", "de", 1);
    EXPECT_EQ(set->Description("quality"), "Parameter quality muss einen der folgenden Werte haben: Low High ");
    ::unsetenv("LANGUAGE");
}

TEST(ConstraintCodecs, RepairsToTheDefault) {
    const auto codecs =
        ConstraintCodecs::Create(PairList<std::string>{{"H.264", "h264"}, {"MPEG-4", "mpeg4"}}, "mpeg4");
    EXPECT_TRUE(codecs->IsValid(Property("", "h264")));
    Property label("codec_id", "H.264");
    EXPECT_FALSE(codecs->IsValid(label));
    EXPECT_TRUE(codecs->Fixup(label));
    EXPECT_EQ(label.GetString(), "mpeg4");
    EXPECT_EQ(label.GetName(), "codec_id");
    EXPECT_EQ(codecs->Description("x"), "");
}

TEST(ConstraintCodecs, EmptyDefaultOrEmptyList) {
    const auto noDefault = ConstraintCodecs::Create(PairList<std::string>{{"a", "a"}}, "");
    Property value("v", "b");
    EXPECT_FALSE(noDefault->Fixup(value));
    EXPECT_EQ(value.GetString(), "b");

    const auto noList = ConstraintCodecs::Create({}, "aac");
    Property other("v", "mp3");
    EXPECT_FALSE(noList->IsValid(other));
    EXPECT_TRUE(noList->Fixup(other));
    EXPECT_EQ(other.GetString(), "aac");
    auto consumer = RecordingConsumer::Create();
    noList->FillValueList(consumer);
    EXPECT_EQ(consumer->calls, Calls{"Commit"});
}
