#include "Conf/DataHelpers/DataHelperAudioCodecAlac.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"

namespace Tervan::Conf {

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecAlac::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecAlac());
}

DataHelperAudioCodecAlac::DataHelperAudioCodecAlac() : DataHelperAudioCodecFlac(IFormatCodecAudio::CODEC_ID_ALAC, {}) {}

DataHelperAudioCodecAlac::~DataHelperAudioCodecAlac() = default;

}  // namespace Tervan::Conf
