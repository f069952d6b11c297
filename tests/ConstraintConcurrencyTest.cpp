#include "Conf/DataHelpers/ConstraintChannelLayout.h"
#include "Conf/DataHelpers/ConstraintCodecs.h"
#include "Conf/DataHelpers/ConstraintMethod.h"
#include "Conf/DataHelpers/ConstraintRange.h"
#include "Conf/DataHelpers/ConstraintSampleFormat.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/FakeConstraintConsumer.h"
#include "Conf/DataHelpers/SizeConstraints.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"

#include <gtest/gtest.h>

#include <thread>

using namespace Tervan;
using namespace Tervan::Conf;
using Core::Property;

namespace {

struct Probe {
    boost::intrusive_ptr<const IPropertyConstraint> constraint;
    Property value;
};

// Everything a constraint can be asked, as one comparable tree.
Property Ask(const Probe& probe) {
    Property result("result");
    Property fixed = probe.value;
    result.SetChildT("valid", probe.constraint->IsValid(probe.value));
    result.SetChildT("fixed", probe.constraint->Fixup(fixed));
    result.SetChild("value", fixed);
    auto consumer = FakeConstraintConsumer::Create();
    probe.constraint->FillValueList(consumer);
    try {
        result.SetChild("listed", consumer->GetValue());
    } catch (const boost::bad_any_cast&) {
        result.SetChildT("listed", std::string("nothing"));
    }
    result.SetChildT("description", probe.constraint->Description("setting"));
    return result;
}

}  // namespace

TEST(Constraints, SharedAcrossThreadsGiveSingleThreadResults) {
    const std::vector<Probe> probes = {
        {ConstraintSet::Create(PairList<long long>{{"10", 10}, {"20", 20}}), Property("", 14)},
        {ConstraintRange::Create(0LL, 100LL, 3LL), Property("", 150)},
        {ConstraintRange::Create(0.5, 2.5, 0.0), Property("", 0.1)},
        {ConstraintMethod::CreateEven("even"), Property("", 3)},
        {ConstraintCodecs::Create(PairList<std::string>{{"a", "aac"}}, "aac"), Property("", "mp3")},
        {SizeConstraints::Create({{176, 144}}), Property("", "custom")},
        {ConstraintChannelLayout::Create({IFormatCodecAudio::TAG_CH_LAYOUT_STEREO}),
         Property("", IFormatCodecAudio::TAG_CH_LAYOUT_5POINT1)},
        {ConstraintSampleFormat::Create({SAMPLE_FMT_FLTP, SAMPLE_FMT_S16}), Property("", "s32")},
    };
    std::vector<Property> expected;
    for (const Probe& probe : probes) {
        expected.push_back(Ask(probe));
    }
    std::vector<int> mismatches(4, 0);
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < mismatches.size(); ++t) {
        threads.emplace_back([&, t] {
            for (int round = 0; round < 200; ++round) {
                for (std::size_t i = 0; i < probes.size(); ++i) {
                    if (Ask(probes[i]) != expected[i]) {
                        ++mismatches[t];
                    }
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (int count : mismatches) {
        EXPECT_EQ(count, 0);
    }
}
