#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IFilterFrameRate.h"

#include <vector>

namespace Tervan::Conf {

namespace {

std::vector<std::string> Identifiers(const DataHelperFormatContainer::Codecs& codecs) {
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < codecs.count; ++i) {
        ids.push_back(*codecs.ids[i]);
    }
    return ids;
}

std::string CodecKey(const std::string& streamType, const std::string& codecSection) {
    return IPreset::KEY_STREAMS + IPreset::INDEX + streamType + Core::Property::SEPARATOR + codecSection +
           Core::Property::SEPARATOR + IFormatCodec::TAG_CODEC_ID;
}

void AddStream(Core::Property& streams, const std::string& streamType, const std::string& codecSection,
               const std::string& codec) {
    Core::Property& stream = streams.SetChild(std::to_string(streams.Count()));
    stream.SetChildT(IPreset::KEY_TYPE_ID, streamType);
    stream.SetChild(codecSection).SetChildT(IFormatCodec::TAG_CODEC_ID, codec);
}

}  // namespace

DataHelperFormatContainer::DataHelperFormatContainer(const Description& description)
    : m_identifierKey(description.identifierKey),
      m_identifier(description.identifier ? *description.identifier : std::string()),
      m_flags(description.flags),
      m_limits{description.limits[0], description.limits[1], description.limits[2], description.limits[3]} {
    if (description.video.count > 0) {
        SetVideoCodecs(Identifiers(description.video), *description.video.defaultId);
    }
    if (description.audio.count > 0) {
        SetAudioCodecs(Identifiers(description.audio), *description.audio.defaultId);
    }
}

DataHelperFormatContainer::~DataHelperFormatContainer() = default;

Core::Property DataHelperFormatContainer::GetDefaults() const {
    // Built on first use, once: most hosts ask a few formats, and the library loads sooner without the rest.
    // By then the subclass has set its codec lists and settings, which never change afterwards.
    std::call_once(m_defaultsOnce, [this] {
        const Core::Property built = BuildDefaults();
        // Copied, not moved: a copy holds the children in the room they take, where building reserved more.
        m_defaults = built;
    });
    return m_defaults;
}

Core::Property DataHelperFormatContainer::BuildDefaults() const {
    Core::Property format(IPreset::KEY_FORMAT);
    if (m_identifierKey) {
        format.SetChildT(*m_identifierKey, m_identifier);
    }
    if (m_flags & PSP_MODE) {
        format.SetChildT(IFormatFile::TAG_PSP_MODE, false);
    }
    if (m_flags & PROGRESSIVE_READ) {
        format.SetChildT(IFormatFile::TAG_PROGRESSIVE_READ, false);
    }
    for (const Core::Property& setting : m_settings) {
        format.SetChild(setting.GetName(), setting);
    }

    Core::Property& limits = format.SetChild(IFormatFile::TAG_LIMITS);
    limits.SetChildT(IFormatFile::TAG_LIMITS_VIDEO, m_limits[0]);
    limits.SetChildT(IFormatFile::TAG_LIMITS_AUDIO, m_limits[1]);
    limits.SetChildT(IFormatFile::TAG_LIMITS_SUBTITLE, m_limits[2]);
    limits.SetChildT(IFormatFile::TAG_LIMITS_OTHER, m_limits[3]);

    Core::Property& streams = format.SetChild(IPreset::KEY_STREAMS);
    if (HasVideoCodecs()) {
        AddStream(streams, IPreset::STREAM_TYPE_VIDEO, IPreset::KEY_FILTER_VIDEO_CODEC, DefaultVideoCodec());
    }
    if (HasAudioCodecs()) {
        AddStream(streams, IPreset::STREAM_TYPE_AUDIO, IPreset::KEY_FILTER_AUDIO_CODEC, DefaultAudioCodec());
    }
    return format;
}

void DataHelperFormatContainer::GetRequiredObjects(RequiredObjects&) const {}

void DataHelperFormatContainer::GetValidationRules(ValidationRules& out) const {
    AppendRules(out, m_rules);
}

void DataHelperFormatContainer::GetConstraints(Constraints& out) const {
    if (HasVideoCodecs()) {
        out[VideoCodecKey()] = VideoCodecsConstraint();
    }
    if (HasAudioCodecs()) {
        out[AudioCodecKey()] = AudioCodecsConstraint();
    }
    InsertConstraints(out, m_constraints);
}

void DataHelperFormatContainer::AddRule(const boost::intrusive_ptr<IValidationRule>& rule) {
    m_rules.emplace_back(Core::Property::SEPARATOR, rule);
}

void DataHelperFormatContainer::AddConstraint(const std::string& key, const ConstraintPtr& constraint) {
    m_constraints.emplace_back(key, constraint);
}

void DataHelperFormatContainer::AddSetting(const Core::Property& setting) {
    m_settings.push_back(setting);
}

const std::string& DataHelperFormatContainer::VideoCodecKey() {
    static const std::string key = CodecKey(IPreset::STREAM_TYPE_VIDEO, IPreset::KEY_FILTER_VIDEO_CODEC);
    return key;
}

const std::string& DataHelperFormatContainer::AudioCodecKey() {
    static const std::string key = CodecKey(IPreset::STREAM_TYPE_AUDIO, IPreset::KEY_FILTER_AUDIO_CODEC);
    return key;
}

boost::intrusive_ptr<IValidationRule> DataHelperFormatContainer::SampleRateRule(
    const boost::intrusive_ptr<const IPropertyConstraint>& codecs, const PairList<long long>& rates) {
    return PairValidationRule::Create(AudioCodecIdPath(), codecs, SampleRatePath(), ConstraintSet::Create(rates));
}

boost::intrusive_ptr<IValidationRule> DataHelperFormatContainer::FrameRateRule(
    const boost::intrusive_ptr<const IPropertyConstraint>& codecs, const PairList<boost::rational<long long>>& rates) {
    return PairValidationRule::Create(
        IPreset::KEY_FILTER_VIDEO_CODEC + Core::Property::SEPARATOR + IFormatCodec::TAG_CODEC_ID, codecs,
        Proc::IFilterFrameRate::CLASS_ID + Core::Property::SEPARATOR + IFormatCodecVideo::TAG_FPS,
        ConstraintSet::Create(rates));
}

}  // namespace Tervan::Conf
