#include "Conf/DataHelpers/DataHelperFormatWma.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;

constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_WMAV2};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_WMA,
                                                 Container::NO_FLAGS,
                                                 {0, 1, 0, 16},
                                                 {},
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_WMAV2)};

}  // namespace

DataHelperFormatWma::DataHelperFormatWma() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatWma::~DataHelperFormatWma() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatWma::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatWma());
}

}  // namespace Tervan::Conf
