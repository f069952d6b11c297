#pragma once

#include "Conf/DataHelpers/DataHelperFormatBase.h"
#include "Conf/DataHelpers/PairList.h"
#include "Conf/DataHelpers/PrebuiltLists.h"

#include <boost/rational.hpp>

#include <array>
#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

namespace Tervan::Conf {

// The shape every container shares, driven by one Description per container: the
// default tree (format identifier, flags, stream limits, one stream per codec kind)
// and the codec-list constraints. Subclasses add only rules and extra settings.
class TERVAN_API DataHelperFormatContainer : public DataHelperFormatBase {
public:
    struct Codecs {
        const std::string* const* ids;  // in the order offered
        std::size_t count;              // 0: the container has no stream of this kind
        const std::string* defaultId;
    };

    // Boolean settings written, always false, right after the format identifier.
    enum Flags : unsigned { NO_FLAGS = 0, PSP_MODE = 1, PROGRESSIVE_READ = 2 };

    struct Description {
        const std::string* identifierKey;  // the root setting naming the format; null for none
        const std::string* identifier;
        unsigned flags;
        long long limits[4];  // most streams of each kind: video, audio, subtitle, other
        Codecs video;         // {} for none
        Codecs audio;
    };

    template <std::size_t N>
    static constexpr Codecs CodecList(const std::string* const (&ids)[N], const std::string& defaultId) {
        return {ids, N, &defaultId};
    }

    Core::Property GetDefaults() const override;
    void GetRequiredObjects(RequiredObjects& out) const override;
    void GetValidationRules(ValidationRules& out) const override;
    void GetConstraints(Constraints& out) const override;

protected:
    // Copies everything it keeps: the description may be a temporary.
    explicit DataHelperFormatContainer(const Description& description);
    ~DataHelperFormatContainer() override;

    // Constraint keys of the codec of every stream of that kind.
    static const std::string& VideoCodecKey();
    static const std::string& AudioCodecKey();

    // (identifier, identifier) pairs for string sets.
    template <std::size_t N>
    static PairList<std::string> IdentifierPairs(const std::string* const (&ids)[N]) {
        PairList<std::string> pairs;
        for (const std::string* id : ids) {
            pairs.emplace_back(*id, *id);
        }
        return pairs;
    }

    // An audio codec satisfying codecs must run at one of rates.
    static boost::intrusive_ptr<IValidationRule> SampleRateRule(
        const boost::intrusive_ptr<const IPropertyConstraint>& codecs, const PairList<long long>& rates);
    // A video codec satisfying codecs must run at one of rates.
    static boost::intrusive_ptr<IValidationRule> FrameRateRule(
        const boost::intrusive_ptr<const IPropertyConstraint>& codecs,
        const PairList<boost::rational<long long>>& rates);

    // Subclasses add their own rules and constraints while they are constructed; the
    // helper hands them out after the container's, a constraint replacing any of its key.
    void AddRule(const boost::intrusive_ptr<IValidationRule>& rule);
    void AddConstraint(const std::string& key, const ConstraintPtr& constraint);
    // A root setting of the format's own, written after the flags and before the limits.
    void AddSetting(const Core::Property& setting);

private:
    Core::Property BuildDefaults() const;

    ConstraintList m_constraints;
    ValidationRules m_rules;
    const std::string* m_identifierKey;
    std::string m_identifier;
    unsigned m_flags;
    std::array<long long, 4> m_limits;
    std::vector<Core::Property> m_settings;
    mutable std::once_flag m_defaultsOnce;
    mutable Core::Property m_defaults;
};

}  // namespace Tervan::Conf
