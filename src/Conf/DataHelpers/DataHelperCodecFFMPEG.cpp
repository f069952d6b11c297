#include "Conf/DataHelpers/DataHelperCodecFFMPEG.h"

#include "Conf/ChannelLayout.h"
#include "Conf/ConfException.h"
#include "Conf/DataHelpers/ConstraintChannelLayout.h"
#include "Conf/DataHelpers/ConstraintRange.h"
#include "Conf/DataHelpers/ConstraintSampleFormat.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Conf/VideoBitrate.h"
#include "Media/MediaWrapper.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"

#include <boost/rational.hpp>

#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace Tervan::Conf {
namespace {

// libavcodec's id of MPEG-1 video: only its first eight frame rates are offered.
constexpr int kMpeg1VideoCodecId = 1;
constexpr std::size_t kMpeg1FrameRateCap = 8;
constexpr std::size_t kFrameRateCap = 999;
// Rates below this are too low for any output we produce.
constexpr int kMinSampleRate = 11025;

// Encoders that take no B-frames.
const std::string* const kNoBFrameCodecs[] = {&IFormatCodecVideo::CODEC_ID_MJPEG, &IFormatCodecVideo::CODEC_ID_FLV1,
                                              &IFormatCodecVideo::CODEC_ID_WMV2, &IFormatCodecVideo::CODEC_ID_H263};

// Video preset settings copied as they are when present. Columns: setting, type.
struct CopiedSetting {
    const std::string* tag;
    PropertyTypes type;
};
const CopiedSetting kCopiedVideoSettings[] = {
    {&IFormatCodecVideo::TAG_MAX_I_FRAME_INTERVAL, TYPE_INT64},
    {&IFormatCodecVideo::TAG_MAX_B_FRAME_SEQUENCE, TYPE_INT64},
    {&IFormatCodec::TAG_THREAD_NUMBER, TYPE_INT64},
    {&IFormatCodec::TAG_UTILIZE_ALL_RESOURCES, TYPE_BOOL},
    {&IFormatCodec::TAG_MULTIPASS_ENCODING, TYPE_STRING},
};

// The resampler settings an audio encoder restricts, in the order they are fixed.
const std::string* const kResamplerTags[] = {&IFormatCodecAudio::TAG_SAMPLE_RATE, &IFormatCodecAudio::TAG_SAMPLE_FORMAT,
                                             &IFormatCodecAudio::TAG_LAYOUT};

// The settings CorrectBitrate looks after, in order.
const std::string* const kBitrateTags[] = {&IFormatCodec::TAG_BITRATE_MODE, &IFormatCodec::TAG_BITRATE,
                                           &IFormatCodec::TAG_QUALITY};

void CopyTyped(const Core::Property& from, Core::Property& to, const CopiedSetting& setting) {
    const Core::Property& value = from[*setting.tag];
    switch (setting.type) {
        case TYPE_BOOL:
            to.SetChildT(*setting.tag, value.GetBool());
            break;
        case TYPE_STRING:
            to.SetChildT(*setting.tag, value.GetString());
            break;
        default:
            to.SetChildT(*setting.tag, value.GetInt64());
            break;
    }
}

// A preset may leave a setting out; correction restores it from the defaults.
void CopyIfPresent(const Core::Property& from, Core::Property& to, const std::string& tag) {
    if (const Core::Property* value = from.FindChild(tag)) {
        to.SetChild(tag, *value);
    }
}

std::string FrameRateLabel(const boost::rational<long long>& rate) {
    std::ostringstream label;
    label << std::setprecision(5) << boost::rational_cast<double>(rate);
    return label.str();
}

void ApplyVideoPreset(const Core::Property& preset, Core::Property& out, const std::string& codecId) {
    out.SetChildT(IFormatCodec::TAG_CODEC_ID, codecId);
    const std::string& mode = preset[IFormatCodec::TAG_BITRATE_MODE].GetString();
    // The frame comes from the caller's tree, which must hold it whatever the mode.
    const Core::Property& frame = out;
    const long long width = frame[IFormatCodecVideo::TAG_WIDTH].GetInt64();
    const long long height = frame[IFormatCodecVideo::TAG_HEIGHT].GetInt64();
    const double fps = boost::rational_cast<double>(frame[IFormatCodecVideo::TAG_FPS].GetRatio());
    for (const CopiedSetting& setting : kCopiedVideoSettings) {
        if (preset.ChildExists(*setting.tag)) {
            CopyTyped(preset, out, setting);
        }
    }
    const auto defaultBitrate = [&](int quality) {
        return GetDefaultVideoBitrate(codecId, width, height, fps, quality);
    };
    if (mode == IFormatCodec::TAG_BITRATE_MODE_CBR) {
        out.SetChildT(IFormatCodec::TAG_BITRATE_MODE, mode);
        CopyIfPresent(preset, out, IFormatCodec::TAG_BITRATE);
    } else if (mode == IFormatCodec::TAG_BITRATE_MODE_VBR) {
        out.SetChildT(IFormatCodec::TAG_BITRATE_MODE, mode);
        if (!preset.ChildExists(IFormatCodec::TAG_QUALITY)) {
            BOOST_THROW_EXCEPTION(Core::Described<HelperException>("Quality is required for VBR bitrate mode"));
        }
        const long long quality = preset[IFormatCodec::TAG_QUALITY].GetInt64();
        out.SetChildT(IFormatCodec::TAG_QUALITY, quality);
        out.SetChildT(IFormatCodec::TAG_BITRATE, defaultBitrate(static_cast<int>(quality)));
    } else if (mode == IFormatCodec::TAG_BITRATE_MODE_CBR_AUTO) {
        // Stored as plain CBR on purpose: the encoder knows no automatic mode.
        out.SetChildT(IFormatCodec::TAG_BITRATE_MODE, IFormatCodec::TAG_BITRATE_MODE_CBR);
        out.SetChildT(IFormatCodec::TAG_BITRATE, defaultBitrate(-1));
    } else {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>("Unknown bitrate mode"));
    }
    // Read as an integer, so that a preset cannot put a value of another type in the tree.
    const Core::Property* bitsPerPixel = preset.FindChild(IFormatCodecVideo::TAG_BITS_PER_PIXEL);
    out.SetChildT(IFormatCodecVideo::TAG_BITS_PER_PIXEL, bitsPerPixel != nullptr ? bitsPerPixel->GetInt64() : 0LL);
}

void ApplyAudioPreset(const Core::Property& preset, Core::Property& out, const std::string& codecId) {
    out.SetChildT(IFormatCodec::TAG_CODEC_ID, codecId);
    const std::string& mode = preset[IFormatCodec::TAG_BITRATE_MODE].GetString();
    if (mode == IFormatCodec::TAG_BITRATE_MODE_CBR) {
        out.SetChildT(IFormatCodec::TAG_BITRATE_MODE, mode);
        CopyIfPresent(preset, out, IFormatCodec::TAG_BITRATE);
    } else if (mode == IFormatCodec::TAG_BITRATE_MODE_VBR) {
        out.SetChildT(IFormatCodec::TAG_BITRATE_MODE, mode);
        CopyIfPresent(preset, out, IFormatCodec::TAG_QUALITY);
    } else if (mode == IFormatCodec::TAG_BITRATE_MODE_CBR_AUTO) {
        // The bitrate is left to correction.
        out.SetChildT(IFormatCodec::TAG_BITRATE_MODE, IFormatCodec::TAG_BITRATE_MODE_CBR);
    } else {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>("Unknown bitrate mode"));
    }
}

}  // namespace

const std::string* const BitrateModes::CBR_OR_VBR[2] = {&IFormatCodec::TAG_BITRATE_MODE_CBR,
                                                        &IFormatCodec::TAG_BITRATE_MODE_VBR};
const std::string* const BitrateModes::CBR_ONLY[1] = {&IFormatCodec::TAG_BITRATE_MODE_CBR};

DataHelperCodecFFMPEG::DataHelperCodecFFMPEG(const std::string& codecId, MediaType type)
    : m_codecId(codecId),
      m_libavcodecId(CodecIDFromTextID(codecId)),
      m_encoderName(Media::EncoderFromCodec(m_libavcodecId)),
      m_mediaType(type),
      m_presetKey(type == MEDIA_TYPE_AUDIO ? IPreset::KEY_FILTER_AUDIO_CODEC : IPreset::KEY_FILTER_VIDEO_CODEC) {
    load();
    m_codecIdConstraint = ConstraintSet::Create(BeginPairList(m_codecId, m_codecId));
    if (m_mediaType == MEDIA_TYPE_VIDEO) {
        if (!m_frameRates.empty()) {
            m_frameRateConstraint = ConstraintSet::Create(m_frameRates);
            AddCodecRule(m_encoderRules,
                         Proc::IFilterFrameRate::CLASS_ID + Core::Property::SEPARATOR + IFormatCodecVideo::TAG_FPS,
                         m_frameRateConstraint);
        }
    } else if (m_mediaType == MEDIA_TYPE_AUDIO) {
        if (!m_sampleRates.empty()) {
            AddCodecRule(m_encoderRules, ResamplerPath(IFormatCodecAudio::TAG_SAMPLE_RATE),
                         ConstraintSet::Create(m_sampleRates));
        }
        if (!m_sampleFormats.empty()) {
            AddCodecRule(m_encoderRules, ResamplerPath(IFormatCodecAudio::TAG_SAMPLE_FORMAT),
                         ConstraintSampleFormat::Create(m_sampleFormats));
        }
        if (!m_channelLayouts.empty()) {
            AddCodecRule(m_encoderRules, ResamplerPath(IFormatCodecAudio::TAG_LAYOUT),
                         ConstraintChannelLayout::Create(m_channelLayouts));
        }
    }
}

DataHelperCodecFFMPEG::~DataHelperCodecFFMPEG() = default;

void DataHelperCodecFFMPEG::load() {
    m_sampleFormats.clear();
    m_sampleRates.clear();
    m_channelLayouts.clear();
    m_frameRates.clear();
    const std::optional<Media::EncoderDescription> encoder = Media::FindEncoder(m_encoderName, m_libavcodecId);
    if (!encoder) {
        return;
    }
    if (m_mediaType == MEDIA_TYPE_VIDEO) {
        const std::size_t cap = encoder->codecId == kMpeg1VideoCodecId ? kMpeg1FrameRateCap : kFrameRateCap;
        const std::size_t count = std::min(cap, encoder->frameRates.size());
        for (std::size_t i = 0; i < count; ++i) {
            const boost::rational<long long>& rate = encoder->frameRates[i];
            m_frameRates.emplace_back(FrameRateLabel(rate), rate);
        }
    } else if (m_mediaType == MEDIA_TYPE_AUDIO) {
        for (int format : encoder->sampleFormats) {
            m_sampleFormats.push_back(Media::SampleFormatTervanFromFFMPEG(format));
        }
        for (int rate : encoder->sampleRates) {
            if (rate >= kMinSampleRate) {
                m_sampleRates.emplace_back(std::to_string(rate), rate);
            }
        }
        for (std::uint64_t mask : encoder->channelLayouts) {
            if (Media::ChannelLayoutFFMPEGIsSupported(mask)) {
                const std::string name(LayoutRecord::Find(Media::ChannelLayoutTervanFromFFMPEG(mask)).name);
                m_channelLayouts.emplace_back(name, name);
            }
        }
    }
}

Core::Property DataHelperCodecFFMPEG::GetDefaults() const {
    Core::Property defaults(m_presetKey);
    defaults.CreateChildT(IFormatCodec::TAG_CODEC_ID, m_codecId);
    return defaults;
}

void DataHelperCodecFFMPEG::GetRequiredObjects(RequiredObjects&) const {}

void DataHelperCodecFFMPEG::GetValidationRules(ValidationRules& out) const {
    AppendRules(out, m_encoderRules);
}

void DataHelperCodecFFMPEG::GetConstraints(Constraints& out) const {
    if (m_frameRateConstraint) {
        out[IFormatCodecVideo::TAG_FPS] = m_frameRateConstraint;
    }
}

void DataHelperCodecFFMPEG::ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const {
    const std::string& presetCodecId = preset[IFormatCodec::TAG_CODEC_ID].GetString();
    if (presetCodecId != m_codecId) {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>("Incompatible preset codec id: " + presetCodecId +
                                                               ", required " + m_codecId));
    }
    if (m_mediaType == MEDIA_TYPE_VIDEO) {
        ApplyVideoPreset(preset, out, m_codecId);
    } else if (m_mediaType == MEDIA_TYPE_AUDIO) {
        ApplyAudioPreset(preset, out, m_codecId);
    } else {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>("Unknown stream type"));
    }
    const Core::Property* options = preset.FindChild(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE);
    if (options != nullptr && options->Count() > 0) {
        out.SetChild(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE, *options);
        return;
    }
    const Core::Property defaults = GetDefaults();
    if (const Core::Property* defaultOptions = defaults.FindChild(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE)) {
        out.SetChild(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE, *defaultOptions);
    }
}

void DataHelperCodecFFMPEG::CorrectFormatCodec(Core::Property& settings) const {
    if (m_mediaType == MEDIA_TYPE_VIDEO) {
        CorrectBitrate(settings);
        const bool takesNoBFrames = std::any_of(std::begin(kNoBFrameCodecs), std::end(kNoBFrameCodecs),
                                                [this](const std::string* codec) { return *codec == m_codecId; });
        if (takesNoBFrames) {
            settings.RemoveChild(IFormatCodecVideo::TAG_MAX_B_FRAME_SEQUENCE);
        }
    } else if (m_mediaType == MEDIA_TYPE_AUDIO) {
        CorrectAudioResamplerSettings(settings);
        CorrectBitrate(settings);
    } else {
        BOOST_THROW_EXCEPTION(Core::Described<HelperException>("Unknown stream type"));
    }
}

const DataHelperCodecFFMPEG::Consulted& DataHelperCodecFFMPEG::ConsultedLists() const {
    std::call_once(m_consultedOnce, [this] {
        Constraints constraints;
        GetConstraints(constraints);
        const Core::Property defaults = GetDefaults();
        for (const std::string* tag : kBitrateTags) {
            const auto found = constraints.find(*tag);
            const Core::Property* fallback = defaults.FindChild(*tag);
            m_consulted.bitrate.push_back({tag, found != constraints.end() ? found->second : nullptr,
                                           fallback != nullptr ? std::optional(*fallback) : std::nullopt});
        }
        ValidationRules rules;
        GetValidationRules(rules);
        for (const std::string* tag : kResamplerTags) {
            const auto rule = std::find_if(rules.begin(), rules.end(), [tag](const auto& entry) {
                return entry.second->GetSecondPath().find(*tag) != std::string::npos;
            });
            m_consulted.resampler.push_back({tag, rule != rules.end() ? rule->second->GetSecondConstraint() : nullptr});
        }
    });
    return m_consulted;
}

void DataHelperCodecFFMPEG::CorrectAudioResamplerSettings(Core::Property& settings) const {
    for (const ResamplerSetting& setting : ConsultedLists().resampler) {
        const std::string& tag = *setting.tag;
        Core::Property& value = settings[tag];
        if (setting.constraint && !setting.constraint->Fixup(value)) {
            BOOST_THROW_EXCEPTION(std::logic_error("Can't fix value [" + tag +
                                                   "] = " + Core::PropertyValueToString(value) + " for encoder [" +
                                                   m_codecId + "]\n" + Core::GetCallStack()));
        }
    }
}

void DataHelperCodecFFMPEG::CorrectBitrate(Core::Property& settings) const {
    for (const BitrateSetting& setting : ConsultedLists().bitrate) {
        const std::string& tag = *setting.tag;
        if (Core::Property* value = settings.FindChild(tag)) {
            if (setting.constraint && setting.constraint->Fixup(*value)) {
                continue;
            }
        }
        if (setting.fallback) {
            settings.SetChild(tag, *setting.fallback);
        }
    }
}

boost::intrusive_ptr<IValidationRule> DataHelperCodecFFMPEG::CodecRule(
    const std::string& secondPath, const boost::intrusive_ptr<const IPropertyConstraint>& constraint) const {
    return PairValidationRule::Create(m_presetKey + Core::Property::SEPARATOR + IFormatCodec::TAG_CODEC_ID,
                                      m_codecIdConstraint, secondPath, constraint);
}

void DataHelperCodecFFMPEG::AddCodecRule(ValidationRules& out, const std::string& secondPath,
                                         const boost::intrusive_ptr<const IPropertyConstraint>& constraint) const {
    out.emplace_back(Core::Property::SEPARATOR, CodecRule(secondPath, constraint));
}

std::string DataHelperCodecFFMPEG::ResamplerPath(const std::string& tag) {
    return Proc::IFilterResample::CLASS_ID + Core::Property::SEPARATOR + Proc::IResample::CLASS_ID +
           Core::Property::SEPARATOR + tag;
}

boost::intrusive_ptr<const IPropertyConstraint> DataHelperCodecFFMPEG::OneOf(const std::string* const* first,
                                                                             const std::string* const* last) {
    PairList<std::string> values;
    for (; first != last; ++first) {
        values.emplace_back(**first, **first);
    }
    return ConstraintSet::Create(values);
}

}  // namespace Tervan::Conf
