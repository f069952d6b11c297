#include "Conf/DataHelpers/DataHelperVideoCodecMjpeg.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Conf {

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecMjpeg::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecMjpeg());
}

DataHelperVideoCodecMjpeg::DataHelperVideoCodecMjpeg()
    : DataHelperVideoCodecImageBase(IFormatCodecVideo::CODEC_ID_MJPEG) {}

DataHelperVideoCodecMjpeg::~DataHelperVideoCodecMjpeg() = default;

Core::Property DataHelperVideoCodecMjpeg::GetDefaults() const {
    Core::Property defaults = DataHelperVideoCodecImageBase::GetDefaults();
    defaults.SetChildT(IFormatCodec::TAG_BITRATE_MODE, IFormatCodec::TAG_BITRATE_MODE_VBR);
    return defaults;
}

}  // namespace Tervan::Conf
