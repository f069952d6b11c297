#include "Conf/DataHelpers/DataHelperFormatGif.h"

#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Core/Property.h"
#include "Proc/SettingsFilterFrameRate.h"

#include <boost/rational.hpp>

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using V = IFormatCodecVideo;
using Ratio = boost::rational<long long>;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_GIF};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&IFormatFile::TAG_CONTAINER,
                                                 &IFormatFile::FORMAT_GIF,
                                                 Container::NO_FLAGS,
                                                 {1, 0, 0, 0},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_GIF),
                                                 {}};

// The video codecs held to the GIF frame rates (listed twice, harmlessly).
constexpr const std::string* kFrameRateCodecs[] = {&V::CODEC_ID_GIF, &V::CODEC_ID_GIF};

// (label, frames per second); no rate above 30.
const PairList<Ratio>& GifFrameRates() {
    static const PairList<Ratio> rates =
        BeginPairList("Auto", Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE)("8", Ratio(8))(
            "10", Ratio(10))("12", Ratio(12))("15", Ratio(15))("20", Ratio(20))("23.97", Ratio(24000, 1001))(
            "24", Ratio(24))("25", Ratio(25))("29.97", Ratio(30000, 1001))("30", Ratio(30));
    return rates;
}

}  // namespace

DataHelperFormatGif::DataHelperFormatGif() : DataHelperFormatContainer(kDescription) {
    AddRule(FrameRateRule(ConstraintSet::Create(IdentifierPairs(kFrameRateCodecs)), GifFrameRates()));
}

DataHelperFormatGif::~DataHelperFormatGif() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatGif::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatGif());
}

}  // namespace Tervan::Conf
