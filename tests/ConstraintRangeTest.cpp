#include "Conf/ConfException.h"
#include "Conf/DataHelpers/ConstraintMethod.h"
#include "Conf/DataHelpers/ConstraintRange.h"
#include "Conf/DataHelpers/FakeConstraintConsumer.h"
#include "RecordingConsumer.h"

#include <boost/any.hpp>
#include <gtest/gtest.h>

using namespace Tervan;
using namespace Tervan::Conf;
using Core::Property;
using Calls = std::vector<std::string>;

TEST(ConstraintRange, IntegerFixupClampsAndStillReturnsFalse) {
    struct Case {
        long long in;
        long long out;
        bool result;
    };
    const auto range = ConstraintRange::Create(0LL, 100LL, 2LL);
    for (const Case& c :
         {Case{101, 100, false}, Case{-5, 0, false}, Case{7, 7, true}, Case{0, 0, true}, Case{100, 100, true}}) {
        SCOPED_TRACE(c.in);
        Property value("v", c.in);
        EXPECT_EQ(range->IsValid(value), c.result);
        EXPECT_EQ(range->Fixup(value), c.result);
        EXPECT_EQ(value.GetInt64(), c.out);
        EXPECT_EQ(value.GetName(), "v");
    }
}

TEST(ConstraintRange, DoubleFixupFallsThroughToTheIntegerStep) {
    const auto range = ConstraintRange::Create(0.5, 2.0, 0.0);
    Property low("v", 0.1);
    EXPECT_FALSE(range->Fixup(low));
    // 0.5 read as an integer is 0, which is below nothing: the upper bound wins.
    EXPECT_DOUBLE_EQ(low.GetDouble(), 2.0);
    Property high("v", 7.5);
    EXPECT_FALSE(range->Fixup(high));
    EXPECT_DOUBLE_EQ(high.GetDouble(), 2.0);
    Property inside("v", 1.25);
    EXPECT_TRUE(range->Fixup(inside));
    EXPECT_DOUBLE_EQ(inside.GetDouble(), 1.25);
    Property text("v", "x");
    EXPECT_FALSE(range->Fixup(text));
    EXPECT_EQ(text.GetString(), "x");
}

TEST(ConstraintRange, ListsBoundsAndStepOnlyWhenSet) {
    struct Case {
        boost::intrusive_ptr<const IPropertyConstraint> range;
        Calls calls;
    };
    const Case cases[] = {
        {ConstraintRange::Create(0.5, 2.0, 0.0), {"SetMinValue(double) 0.5", "SetMaxValue(double) 2"}},
        {ConstraintRange::Create(0.5, 2.0, 0.25),
         {"SetMinValue(double) 0.5", "SetMaxValue(double) 2", "SetStep(double) 0.25"}},
        {ConstraintRange::Create(32LL, 4096LL, 2LL),
         {"SetMinValue(int) 32", "SetMaxValue(int) 4096", "SetStep(int) 2"}},
        {ConstraintRange::Create(1LL, 100LL, 0LL), {"SetMinValue(int) 1", "SetMaxValue(int) 100"}},
    };
    for (const Case& c : cases) {
        auto consumer = RecordingConsumer::Create();
        c.range->FillValueList(consumer);
        EXPECT_EQ(consumer->calls, c.calls);
        EXPECT_EQ(c.range->Description("anything"), "");
    }
}

TEST(ConstraintMethod, Predicates) {
    EXPECT_FALSE(ConstraintMethod::IsEven(Property("", 4.0)));
    EXPECT_TRUE(ConstraintMethod::IsEven(Property("", -6)));
    EXPECT_FALSE(ConstraintMethod::IsEven(Property("", 721)));
    const auto even = ConstraintMethod::CreateEven(IPropertyConstraint::DESCRIPTION_ID_EVEN_SIZE);
    Property odd("w", 7);
    EXPECT_FALSE(even->Fixup(odd));
    EXPECT_EQ(odd.GetInt64(), 7);
    EXPECT_EQ(even->Description("w"), IPropertyConstraint::DESCRIPTION_ID_EVEN_SIZE);
    auto consumer = RecordingConsumer::Create();
    even->FillValueList(consumer);
    EXPECT_TRUE(consumer->calls.empty());
    EXPECT_TRUE(ConstraintMethod::CreateAlwaysTrue("")->IsValid(Property("anything")));
}

TEST(ConstraintMethod, EmptyPredicateIsNeverValid) {
    const auto none = ConstraintMethod::Create(ConstraintMethod::Predicate(), "none");
    Property value("v", 2);
    EXPECT_FALSE(none->IsValid(value));
    EXPECT_FALSE(none->Fixup(value));
}

TEST(FakeConstraintConsumer, IntegerRangeMiddleSnapsToTheGridFromTheMinimum) {
    struct Case {
        long long lo, hi, step, middle;
    };
    for (const Case& c :
         {Case{0, 10, 3, 3}, Case{1, 10, 4, 5}, Case{0, 10, 0, 5}, Case{32, 4096, 2, 2064}, Case{-7, 0, 0, -3},
          // Truncating remainders: -7 % 3 is -1, so the grid is ..., -7, -4, -1.
          Case{-7, 0, 3, -4}}) {
        SCOPED_TRACE(c.lo);
        auto consumer = FakeConstraintConsumer::Create();
        ConstraintRange::Create(c.lo, c.hi, c.step)->FillValueList(consumer);
        const Property result = consumer->GetValue();
        EXPECT_EQ(result[FakeConstraintConsumer::MIN_VALUE].GetInt64(), c.lo);
        EXPECT_EQ(result[FakeConstraintConsumer::MID_VALUE].GetInt64(), c.middle);
        EXPECT_EQ(result[FakeConstraintConsumer::MAX_VALUE].GetInt64(), c.hi);
    }
}

TEST(FakeConstraintConsumer, DoubleRangeIgnoresItsStep) {
    auto consumer = FakeConstraintConsumer::Create();
    ConstraintRange::Create(0.0, 1.0, 0.3)->FillValueList(consumer);
    const Property result = consumer->GetValue();
    EXPECT_EQ(result[FakeConstraintConsumer::MID_VALUE].GetType(), TYPE_DOUBLE);
    EXPECT_DOUBLE_EQ(result[FakeConstraintConsumer::MID_VALUE].GetDouble(), 0.5);
}

TEST(FakeConstraintConsumer, ValuesWinOverARangeAndLabelsAreKeys) {
    auto consumer = FakeConstraintConsumer::Create();
    consumer->AddValue("a", Property("", 1));
    consumer->AddValue("b", Property("", 2));
    consumer->AddValue("a", Property("", 3));
    consumer->SetMinValue(0LL);
    consumer->SetMaxValue(9LL);
    const Property result = consumer->GetValue();
    ASSERT_EQ(result.Count(), 2u);
    EXPECT_EQ(result[0ul].GetName(), "a");
    EXPECT_EQ(result[0ul].GetInt64(), 3);
    EXPECT_EQ(result[1ul].GetName(), "b");
}

TEST(FakeConstraintConsumer, ResetForgetsTheRange) {
    auto consumer = FakeConstraintConsumer::Create();
    EXPECT_THROW(consumer->GetValue(), boost::bad_any_cast);
    consumer->SetMinValue(1.0);
    consumer->SetMaxValue(2LL);  // the range type follows the last call: an integer range with a double minimum
    EXPECT_THROW(consumer->GetValue(), boost::bad_any_cast);
    consumer->SetMinValue(1LL);
    EXPECT_NO_THROW(consumer->GetValue());
    consumer->Reset();
    EXPECT_THROW(consumer->GetValue(), boost::bad_any_cast);
}
