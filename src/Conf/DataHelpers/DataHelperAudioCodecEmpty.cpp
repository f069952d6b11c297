#include "Conf/DataHelpers/DataHelperAudioCodecEmpty.h"

#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"

namespace Tervan::Conf {
namespace {

using C = IFormatCodec;
using A = IFormatCodecAudio;

std::string ResamplerPath(const std::string& tag) {
    return Proc::IFilterResample::CLASS_ID + Core::Property::SEPARATOR + Proc::IResample::CLASS_ID +
           Core::Property::SEPARATOR + tag;
}

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecEmpty::Create(const std::string& codecId) {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecEmpty(codecId));
}

DataHelperAudioCodecEmpty::DataHelperAudioCodecEmpty(const std::string& codecId) : m_codecId(codecId) {}

DataHelperAudioCodecEmpty::~DataHelperAudioCodecEmpty() = default;

Core::Property DataHelperAudioCodecEmpty::GetDefaults() const {
    Core::Property defaults(IPreset::KEY_FILTER_AUDIO_CODEC);
    defaults.CreateChildT(C::TAG_CODEC_ID, m_codecId);
    defaults.CreateChildT(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR_AUTO);
    defaults.CreateChildT(C::TAG_BITRATE, 256000LL);
    defaults.SetChild(C::TAG_CODEC_OPTIONS_ENCODE);
    return defaults;
}

void DataHelperAudioCodecEmpty::GetRequiredObjects(RequiredObjects&) const {}

void DataHelperAudioCodecEmpty::GetValidationRules(ValidationRules& out) const {
    // No sample rate and an unknown layout: nothing to resample into.
    static const PairList<long long> noRate = BeginPairList("-1", -1LL);
    static const PairList<std::string> noLayout = BeginPairList(A::TAG_CH_LAYOUT_UNKNOWN, A::TAG_CH_LAYOUT_UNKNOWN);
    const auto rule = [this](const std::string& tag,
                             const boost::intrusive_ptr<const IPropertyConstraint>& constraint) {
        return PairValidationRule::Create(IPreset::KEY_FILTER_AUDIO_CODEC + Core::Property::SEPARATOR + C::TAG_CODEC_ID,
                                          ConstraintSet::Create(BeginPairList(m_codecId, m_codecId)),
                                          ResamplerPath(tag), constraint);
    };
    out.emplace_back(Core::Property::SEPARATOR, rule(A::TAG_SAMPLE_RATE, ConstraintSet::Create(noRate)));
    out.emplace_back(Core::Property::SEPARATOR, rule(A::TAG_LAYOUT, ConstraintSet::Create(noLayout)));
}

void DataHelperAudioCodecEmpty::GetConstraints(Constraints& out) const {
    out[C::TAG_BITRATE_MODE] =
        ConstraintSet::Create(BeginPairList(C::TAG_BITRATE_MODE_CBR_AUTO, C::TAG_BITRATE_MODE_CBR_AUTO));
}

void DataHelperAudioCodecEmpty::ApplyPresetSettings(const Core::Property&, Core::Property&) const {}

void DataHelperAudioCodecEmpty::CorrectFormatCodec(Core::Property&) const {}

}  // namespace Tervan::Conf
