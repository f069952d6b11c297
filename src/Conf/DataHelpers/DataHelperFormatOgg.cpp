#include "Conf/DataHelpers/DataHelperFormatOgg.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;

constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_VORBIS};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&IPreset::KEY_TYPE_ID,
                                                 &F::FORMAT_OGG,
                                                 Container::NO_FLAGS,
                                                 {0, 1, 0, 16},
                                                 {},
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_VORBIS)};

}  // namespace

DataHelperFormatOgg::DataHelperFormatOgg() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatOgg::~DataHelperFormatOgg() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatOgg::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatOgg());
}

}  // namespace Tervan::Conf
