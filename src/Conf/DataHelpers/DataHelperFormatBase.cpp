#include "Conf/DataHelpers/DataHelperFormatBase.h"

#include "Conf/ConfException.h"
#include "Conf/DataHelpers/ConstraintCodecs.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"

#include <algorithm>

namespace Tervan::Conf {

namespace {

const char* const kNoVideoCodecs = "Video codecs constraint is not set";
const char* const kNoAudioCodecs = "Audio codecs constraint is not set";

// The default is not stored: the constraint writes it into any value it rejects.
std::string DefaultCodec(const IPropertyConstraint& codecs) {
    Core::Property value{std::string(), std::string()};
    codecs.Fixup(value);
    return value.GetString();
}

}  // namespace

DataHelperFormatBase::DataHelperFormatBase() = default;

DataHelperFormatBase::~DataHelperFormatBase() = default;

boost::intrusive_ptr<const IPropertyConstraint> DataHelperFormatBase::SetCodecConstraint(
    const std::vector<std::string>& codecs, const std::string& defaultCodec) {
    if (codecs.empty()) {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>("List of available codecs is empty"));
    }
    if (std::find(codecs.begin(), codecs.end(), defaultCodec) == codecs.end()) {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>("Default codec " + defaultCodec +
                                                               " is not presented in list of avalible codecs"));
    }
    return ConstraintCodecs::Create(CreatePairValueList(codecs), defaultCodec);
}

void DataHelperFormatBase::SetVideoCodecs(const std::vector<std::string>& codecs, const std::string& defaultCodec) {
    m_videoCodecs = SetCodecConstraint(codecs, defaultCodec);
}

void DataHelperFormatBase::SetAudioCodecs(const std::vector<std::string>& codecs, const std::string& defaultCodec) {
    m_audioCodecs = SetCodecConstraint(codecs, defaultCodec);
}

boost::intrusive_ptr<const IPropertyConstraint> DataHelperFormatBase::VideoCodecsConstraint() const {
    if (!m_videoCodecs) {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>(kNoVideoCodecs));
    }
    return m_videoCodecs;
}

boost::intrusive_ptr<const IPropertyConstraint> DataHelperFormatBase::AudioCodecsConstraint() const {
    if (!m_audioCodecs) {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>(kNoAudioCodecs));
    }
    return m_audioCodecs;
}

std::string DataHelperFormatBase::DefaultVideoCodec() const {
    if (!m_videoCodecs) {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>(kNoVideoCodecs));
    }
    return DefaultCodec(*m_videoCodecs);
}

std::string DataHelperFormatBase::DefaultAudioCodec() const {
    if (!m_audioCodecs) {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>(kNoAudioCodecs));
    }
    return DefaultCodec(*m_audioCodecs);
}

void DataHelperFormatBase::ApplyPresetSettings(const Core::Property&, Core::Property&) const {}

const std::string& DataHelperFormatBase::AudioCodecIdPath() {
    static const std::string path =
        IPreset::KEY_FILTER_AUDIO_CODEC + Core::Property::SEPARATOR + IFormatCodec::TAG_CODEC_ID;
    return path;
}

const std::string& DataHelperFormatBase::SampleRatePath() {
    static const std::string path = Proc::IFilterResample::CLASS_ID + Core::Property::SEPARATOR +
                                    Proc::IResample::CLASS_ID + Core::Property::SEPARATOR +
                                    IFormatCodecAudio::TAG_SAMPLE_RATE;
    return path;
}

void DataHelperFormatBase::CorrectFormatCodec(Core::Property& codec) const {
    if (codec.GetName() != IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO) {
        return;
    }
    ValidationRules rules;
    GetValidationRules(rules);
    // Both settings exist from here on, even when no rule applies. Adding the rate may
    // move the codec identifier, so that one is looked up again.
    codec[IFormatCodec::TAG_CODEC_ID];
    Core::Property& sampleRate = codec[IFormatCodecAudio::TAG_SAMPLE_RATE];
    const Core::Property& codecId = codec[IFormatCodec::TAG_CODEC_ID];

    const std::string& codecPath = AudioCodecIdPath();
    const std::string& ratePath = SampleRatePath();
    for (const auto& entry : rules) {
        const IValidationRule& rule = *entry.second;
        if (rule.GetFirstPath() != codecPath || rule.GetSecondPath() != ratePath ||
            !rule.GetFirstConstraint()->IsValid(codecId)) {
            continue;
        }
        const boost::intrusive_ptr<const IPropertyConstraint> rates = rule.GetSecondConstraint();
        if (!rates->IsValid(sampleRate)) {
            rates->Fixup(sampleRate);
        }
    }
}

}  // namespace Tervan::Conf
