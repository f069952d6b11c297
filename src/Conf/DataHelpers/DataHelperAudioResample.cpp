#include "Conf/DataHelpers/DataHelperAudioResample.h"

#include "Conf/ChannelLayout.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"

namespace Tervan::Conf {
namespace {

using A = IFormatCodecAudio;

// Hz; -1 keeps the codec's rate.
const long long kSampleRates[] = {-1,    8000,  11025, 12000, 16000, 22050, 24000,
                                  32000, 44100, 48000, 64000, 88200, 96000};
// The unknown layout keeps the codec's layout.
const std::string* const kLayouts[] = {&A::TAG_CH_LAYOUT_UNKNOWN, &A::TAG_CH_LAYOUT_MONO, &A::TAG_CH_LAYOUT_STEREO};

std::string ResamplerPath(const std::string& tag) {
    return Proc::IResample::CLASS_ID + Core::Property::SEPARATOR + tag;
}

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioResample::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioResample());
}

DataHelperAudioResample::~DataHelperAudioResample() = default;

DataHelperAudioResample::DataHelperAudioResample()
    : DataHelperFilter(Proc::IFilterResample::MakeSettings(CH_LAYOUT_STEREO, 44100)),
      m_constraints{{ResamplerPath(A::TAG_LAYOUT), StringSet(kLayouts)},
                    {ResamplerPath(A::TAG_SAMPLE_RATE), ConstraintSet::Create(CreatePairValueList(kSampleRates))}} {}

void DataHelperAudioResample::GetConstraints(Constraints& out) const {
    InsertConstraints(out, m_constraints);
}

void DataHelperAudioResample::ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const {
    const long long rate = preset.ChildByPath(ResamplerPath(A::TAG_SAMPLE_RATE)).GetInt64();
    if (rate != -1) {
        out.SetChildT(A::TAG_SAMPLE_RATE, rate);
    }
    const std::string& layout = preset.ChildByPath(ResamplerPath(A::TAG_LAYOUT)).GetString();
    if (layout != A::TAG_CH_LAYOUT_UNKNOWN) {
        out.SetChildT(A::TAG_LAYOUT, layout);
    }
    // Read at the top of the preset, not in the resampler.
    if (const Core::Property* format = preset.FindChild(A::TAG_SAMPLE_FORMAT)) {
        out.SetChildT(A::TAG_SAMPLE_FORMAT, format->GetString());
    }
}

}  // namespace Tervan::Conf
