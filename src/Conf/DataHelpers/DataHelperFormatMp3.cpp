#include "Conf/DataHelpers/DataHelperFormatMp3.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;

constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_MP3};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_MP3,
                                                 Container::NO_FLAGS,
                                                 {0, 1, 0, 16},
                                                 {},
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_MP3)};

}  // namespace

DataHelperFormatMp3::DataHelperFormatMp3() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatMp3::~DataHelperFormatMp3() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatMp3::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatMp3());
}

}  // namespace Tervan::Conf
