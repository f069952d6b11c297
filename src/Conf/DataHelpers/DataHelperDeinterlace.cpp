#include "Conf/DataHelpers/DataHelperDeinterlace.h"

#include "Conf/ConfException.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IDeinterlace.h"
#include "Proc/IFilterDeinterlace.h"

#include <limits>
#include <string>

namespace Tervan::Conf {

boost::intrusive_ptr<const IDataHelper> DataHelperDeinterlace::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperDeinterlace());
}

DataHelperDeinterlace::DataHelperDeinterlace() : DataHelperFilter(Proc::IFilterDeinterlace::MakeSettings(true)) {}

DataHelperDeinterlace::~DataHelperDeinterlace() = default;

void DataHelperDeinterlace::ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const {
    const std::string& implementation =
        preset.ChildByPath(Proc::IDeinterlace::CLASS_ID + Core::Property::SEPARATOR + IPreset::KEY_TYPE_ID).GetString();
    if (implementation == Proc::IDeinterlace::DEINTERLACE_IMPL_STANDART_FFMPEG) {
        return;
    }
    const Core::Property::Ratio rate = out.ChildByPath(IFormatCodecVideo::TAG_FPS).GetRatio();
    // No real rate comes near it, but a tree may hold anything: doubling must not overflow.
    const long long numerator = rate.numerator();
    if (rate.denominator() % 2 != 0 && (numerator > std::numeric_limits<long long>::max() / 2 ||
                                        numerator < std::numeric_limits<long long>::min() / 2)) {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>(
            "Frame rate too high to double: " + std::to_string(numerator) + "/" + std::to_string(rate.denominator())));
    }
    out.SetChildT(IFormatCodecVideo::TAG_FPS, rate * 2);
}

}  // namespace Tervan::Conf
