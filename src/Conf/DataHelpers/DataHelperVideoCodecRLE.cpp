#include "Conf/DataHelpers/DataHelperVideoCodecRLE.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Conf {

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecRLE::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecRLE());
}

DataHelperVideoCodecRLE::DataHelperVideoCodecRLE() : DataHelperVideoCodecProres(IFormatCodecVideo::CODEC_ID_QTRLE) {}

DataHelperVideoCodecRLE::~DataHelperVideoCodecRLE() = default;

}  // namespace Tervan::Conf
