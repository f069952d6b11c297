#include "Conf/DataHelpers/DataHelperFormatWav.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;

constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_PCM_S16LE};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_WAV,
                                                 Container::NO_FLAGS,
                                                 {0, 1, 0, 16},
                                                 {},
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_PCM_S16LE)};

}  // namespace

DataHelperFormatWav::DataHelperFormatWav() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatWav::~DataHelperFormatWav() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatWav::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatWav());
}

}  // namespace Tervan::Conf
