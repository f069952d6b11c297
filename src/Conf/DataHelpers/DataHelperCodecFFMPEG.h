#pragma once

#include "Conf/DataHelpers/PairList.h"
#include "Conf/DataHelpers/PrebuiltLists.h"
#include "Conf/Interfaces/IDataHelper.h"
#include "Conf/SampleFormats.h"
#include "Core/Property.h"
#include "Core/PropertyTypes.h"

#include <boost/intrusive_ptr.hpp>
#include <boost/rational.hpp>

#include <cstddef>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace Tervan::Conf {

// The bitrate-mode lists most codec tables offer.
namespace BitrateModes {
extern const std::string* const CBR_OR_VBR[2];
extern const std::string* const CBR_ONLY[1];
}  // namespace BitrateModes

// The base of every audio and video codec helper: asks libavcodec once, at
// construction, what the codec's encoder accepts, and derives from it the codec's
// rules on the resample or frame-rate filter, its frame-rate constraint, preset
// translation and correction. Subclasses add their defaults, constraints and rules.
class TERVAN_API DataHelperCodecFFMPEG : public RefCounted<IDataHelper> {
public:
    // Created while the library loads, before the registry's helpers, and shared by
    // every video helper.
    static const ConstraintPtr s_defaultVideoBitrateConstraint;
    static const ConstraintPtr s_defaultQualityConstraint;

    const std::string& GetCodecID() const { return m_codecId; }
    const std::string& GetEncoderName() const { return m_encoderName; }
    MediaType GetMediaType() const { return m_mediaType; }
    // The name of the codec's node in a whole settings tree.
    const std::string& GetPresetKey() const { return m_presetKey; }
    const std::vector<SampleFormats>& GetSampleFormats() const { return m_sampleFormats; }
    const PairList<long long>& GetSampleRates() const { return m_sampleRates; }
    const PairList<std::string>& GetChannelLayouts() const { return m_channelLayouts; }
    const PairList<boost::rational<long long>>& GetFrameRates() const { return m_frameRates; }

    Core::Property GetDefaults() const override;
    void GetRequiredObjects(RequiredObjects& out) const override;
    void GetValidationRules(ValidationRules& out) const override;
    void GetConstraints(Constraints& out) const override;
    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;
    void CorrectFormatCodec(Core::Property& settings) const override;

protected:
    DataHelperCodecFFMPEG(const std::string& codecId, MediaType type);
    ~DataHelperCodecFFMPEG() override;

    void load();
    void CorrectAudioResamplerSettings(Core::Property& settings) const;
    void CorrectBitrate(Core::Property& settings) const;

    // A rule that bites only while this codec is selected: (GetPresetKey()/codec id
    // in {codec id}) implies (secondPath in constraint).
    boost::intrusive_ptr<IValidationRule> CodecRule(
        const std::string& secondPath, const boost::intrusive_ptr<const IPropertyConstraint>& constraint) const;
    // Appends CodecRule(secondPath, constraint) under the name Core::Property::SEPARATOR.
    void AddCodecRule(ValidationRules& out, const std::string& secondPath,
                      const boost::intrusive_ptr<const IPropertyConstraint>& constraint) const;
    // Proc::IFilterResample::CLASS_ID / Proc::IResample::CLASS_ID / tag
    static std::string ResamplerPath(const std::string& tag);
    // A value set over strings, each labelled by itself, in table order.
    static boost::intrusive_ptr<const IPropertyConstraint> OneOf(const std::string* const* first,
                                                                 const std::string* const* last);
    template <std::size_t N>
    static boost::intrusive_ptr<const IPropertyConstraint> OneOf(const std::string* const (&values)[N]) {
        return OneOf(values, values + N);
    }

private:
    // What the corrections consult, taken once from this helper's own lists and defaults,
    // overrides included: a correction then looks up three settings instead of building them.
    struct BitrateSetting {
        const std::string* tag;
        ConstraintPtr constraint;                // null when the helper has none
        std::optional<Core::Property> fallback;  // the default, when there is one
    };
    struct ResamplerSetting {
        const std::string* tag;
        ConstraintPtr constraint;  // its rule's second constraint, null when no rule names it
    };
    struct Consulted {
        std::vector<BitrateSetting> bitrate;      // in correction order
        std::vector<ResamplerSetting> resampler;  // in correction order
    };
    const Consulted& ConsultedLists() const;

    std::string m_codecId;
    // libavcodec's number for the codec id, asked once: for an identifier outside the
    // vocabulary the lookup walks every codec descriptor.
    int m_libavcodecId;
    std::string m_encoderName;
    MediaType m_mediaType;
    std::string m_presetKey;
    std::vector<SampleFormats> m_sampleFormats;
    PairList<long long> m_sampleRates;
    PairList<std::string> m_channelLayouts;
    PairList<boost::rational<long long>> m_frameRates;
    // Built from the lists above once load() has filled them.
    ConstraintPtr m_codecIdConstraint;
    ConstraintPtr m_frameRateConstraint;
    ValidationRules m_encoderRules;
    mutable std::once_flag m_consultedOnce;
    mutable Consulted m_consulted;
};

}  // namespace Tervan::Conf
