#include "Conf/DataHelpers/DataHelperAudioCodecAmrNB.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"

namespace Tervan::Conf {
namespace {

using namespace AudioCodecTable;
using C = IFormatCodec;
using A = IFormatCodecAudio;

const long long kBitrates[] = {4750, 5150, 5900, 6700, 7400, 7950, 10200, 12200};
const long long kSampleRates[] = {8000};
const std::string* const kLayouts[] = {&A::TAG_CH_LAYOUT_MONO};

// Defaults after the codec id, in order.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Integer(C::TAG_BITRATE, 12200),
};
// Constraints set over the base's.
const Setting kConstraints[] = {
    Integers(Place::CODEC, C::TAG_BITRATE, kBitrates),
    Strings(Place::CODEC, C::TAG_BITRATE_MODE, BitrateModes::CBR_ONLY),
};
// Codec rules after the encoder's, which drop 8000 Hz as too low for other codecs.
const Setting kRules[] = {
    Integers(Place::RESAMPLER, A::TAG_SAMPLE_RATE, kSampleRates),
    Layouts(Place::RESAMPLER, A::TAG_LAYOUT, kLayouts),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecAmrNB::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecAmrNB());
}

DataHelperAudioCodecAmrNB::DataHelperAudioCodecAmrNB()
    : DataHelperAudioCodecBase(A::CODEC_ID_AMR_NB, kDefaults, kConstraints, kRules) {}

DataHelperAudioCodecAmrNB::~DataHelperAudioCodecAmrNB() = default;

}  // namespace Tervan::Conf
