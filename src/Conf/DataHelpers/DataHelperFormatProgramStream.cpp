#include "Conf/DataHelpers/DataHelperFormatProgramStream.h"

#include "Conf/DataHelpers/ConstraintSet.h"
#include "Core/Property.h"

#include <boost/rational.hpp>

#include <utility>

namespace Tervan::Conf {

namespace {

using Ratio = boost::rational<long long>;

// (label, frames per second). 20 is no MPEG rate; it is offered all the same.
const PairList<Ratio>& MpegFrameRates() {
    static const PairList<Ratio> rates = BeginPairList("20", Ratio(20))("23.97", Ratio(24000, 1001))("24", Ratio(24))(
        "25", Ratio(25))("29.97", Ratio(30000, 1001))("30", Ratio(30))("50", Ratio(50))("59.94", Ratio(60000, 1001))(
        "60", Ratio(60));
    return rates;
}

}  // namespace

DataHelperFormatProgramStream::DataHelperFormatProgramStream(const Description& description,
                                                             const PairList<std::string>& frameRateCodecs)
    : DataHelperFormatContainer(description) {
    AddRule(FrameRateRule(ConstraintSet::Create(frameRateCodecs), MpegFrameRates()));
}

DataHelperFormatProgramStream::~DataHelperFormatProgramStream() = default;

}  // namespace Tervan::Conf
