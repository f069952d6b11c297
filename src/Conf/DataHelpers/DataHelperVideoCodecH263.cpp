#include "Conf/DataHelpers/DataHelperVideoCodecH263.h"

#include "Conf/DataHelpers/SizeConstraints.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Proc/IResize.h"

#include <iterator>
#include <utility>
#include <vector>

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

// The picture sizes H.263 defines, sub-QCIF to 16CIF. Columns: width, height.
const std::pair<long long, long long> kPictureSizes[] = {{128, 96}, {176, 144}, {352, 288}, {704, 576}, {1408, 1152}};

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Integer(C::TAG_BITRATE, 2000000),
    Integer(C::TAG_QUALITY, 1),
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_OR_VBR),
    DefaultQuality(C::TAG_QUALITY),
    DefaultBitrate(C::TAG_BITRATE),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecH263::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecH263());
}

DataHelperVideoCodecH263::DataHelperVideoCodecH263()
    : DataHelperVideoCodecBase(V::CODEC_ID_H263, kDefaults, kConstraints) {
    AddCodecRule(m_ownRules, ResizerPath(Proc::IResize::FRAME_SIZE_MODE),
                 SizeConstraints::Create({std::begin(kPictureSizes), std::end(kPictureSizes)}));
}

DataHelperVideoCodecH263::~DataHelperVideoCodecH263() = default;

void DataHelperVideoCodecH263::GetValidationRules(ValidationRules& out) const {
    DataHelperVideoCodecBase::GetValidationRules(out);
    AppendRules(out, m_ownRules);
}

}  // namespace Tervan::Conf
