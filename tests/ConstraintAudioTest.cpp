#include "Conf/DataHelpers/ConstraintChannelLayout.h"
#include "Conf/DataHelpers/ConstraintSampleFormat.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "RecordingConsumer.h"

#include <gtest/gtest.h>

using namespace Tervan;
using namespace Tervan::Conf;
using Core::Property;
using A = IFormatCodecAudio;
using Calls = std::vector<std::string>;

TEST(ConstraintChannelLayout, RepairMovesTowardTheTargetNeverAcross) {
    struct Case {
        std::vector<std::string> list;
        std::string value;
        std::string expected;
    };
    const Case cases[] = {
        {{A::TAG_CH_LAYOUT_MONO, A::TAG_CH_LAYOUT_STEREO, A::TAG_CH_LAYOUT_5POINT1},
         A::TAG_CH_LAYOUT_7POINT1,
         A::TAG_CH_LAYOUT_5POINT1},
        {{A::TAG_CH_LAYOUT_5POINT1, A::TAG_CH_LAYOUT_STEREO}, A::TAG_CH_LAYOUT_QUAD, A::TAG_CH_LAYOUT_5POINT1},
        {{A::TAG_CH_LAYOUT_STEREO, A::TAG_CH_LAYOUT_5POINT1}, A::TAG_CH_LAYOUT_QUAD, A::TAG_CH_LAYOUT_STEREO},
        // Equal counts keep the earlier layout.
        {{A::TAG_CH_LAYOUT_MONO, A::TAG_CH_LAYOUT_5POINT1_BACK, A::TAG_CH_LAYOUT_5POINT1},
         A::TAG_CH_LAYOUT_7POINT1,
         A::TAG_CH_LAYOUT_5POINT1_BACK},
        // An identifier the vocabulary does not know becomes the last listed layout.
        {{A::TAG_CH_LAYOUT_MONO, A::TAG_CH_LAYOUT_STEREO}, "9.1 atmos", A::TAG_CH_LAYOUT_STEREO},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.value);
        const auto constraint = ConstraintChannelLayout::Create(c.list);
        Property value("layout", c.value);
        EXPECT_TRUE(constraint->Fixup(value));
        EXPECT_EQ(value.GetString(), c.expected);
    }
}

TEST(ConstraintChannelLayout, ReportsTheSetClassAndListsIdentifiers) {
    const auto constraint = ConstraintChannelLayout::Create(PairList<std::string>{{"ignored", A::TAG_CH_LAYOUT_MONO}});
    EXPECT_TRUE(constraint->IsValid(Property("", A::TAG_CH_LAYOUT_MONO)));
    EXPECT_FALSE(constraint->IsValid(Property("", A::TAG_CH_LAYOUT_STEREO)));
    auto consumer = RecordingConsumer::Create();
    constraint->FillValueList(consumer);
    EXPECT_EQ(consumer->calls, (Calls{"AddValue mono=mono", "Commit"}));
    Property empty("v", A::TAG_CH_LAYOUT_STEREO);
    EXPECT_FALSE(ConstraintChannelLayout::Create(std::vector<std::string>{})->Fixup(empty));
}

TEST(ConstraintSampleFormat, CounterpartFirstThenNearestWithDifferentFlag) {
    struct Case {
        std::vector<SampleFormats> list;
        std::string value;
        std::string expected;
    };
    const Case cases[] = {
        // The counterpart wins even where another entry is as near by width.
        {{SAMPLE_FMT_S32, SAMPLE_FMT_S16P}, "s16", "s16p"},
        {{SAMPLE_FMT_FLTP}, "s16", "fltp"},
        // Same width: the one whose planarity differs from the rejected one's is nearer.
        {{SAMPLE_FMT_S32, SAMPLE_FMT_S32P}, "flt", "s32p"},
        {{SAMPLE_FMT_FLT, SAMPLE_FMT_S32P}, "dbl", "s32p"},
        {{SAMPLE_FMT_S32P, SAMPLE_FMT_FLTP}, "s16", "s32p"},  // equal distances: the earlier entry
        {{SAMPLE_FMT_U8, SAMPLE_FMT_DBLP}, "s64", "dblp"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.value + " -> " + c.expected);
        const auto constraint = ConstraintSampleFormat::Create(c.list);
        Property value("fmt", c.value);
        EXPECT_TRUE(constraint->Fixup(value));
        EXPECT_EQ(value.GetString(), c.expected);
    }
}

TEST(ConstraintSampleFormat, EmptyListAndListing) {
    const auto constraint = ConstraintSampleFormat::Create({SAMPLE_FMT_S16});
    const auto empty = ConstraintSampleFormat::Create({});
    Property value("fmt", "s16");
    EXPECT_FALSE(empty->IsValid(value));
    EXPECT_FALSE(empty->Fixup(value));
    EXPECT_EQ(value.GetString(), "s16");
    auto consumer = RecordingConsumer::Create();
    constraint->FillValueList(consumer);
    ASSERT_EQ(consumer->values.size(), 1u);
    EXPECT_EQ(consumer->values[0].GetName(), "s16");
    EXPECT_EQ(consumer->calls, (Calls{"AddValue s16=s16", "Commit"}));
}
