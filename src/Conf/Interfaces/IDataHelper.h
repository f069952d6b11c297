#pragma once

#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Conf/Interfaces/IValidationRule.h"
#include "Core/Property.h"
#include "Core/RefCount.h"

#include <boost/intrusive_ptr.hpp>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Tervan::Conf {

// Knows the settings of one format, codec or filter. Immutable and shared: every
// operation is const.
class TERVAN_API IDataHelper : public virtual IRefCountable {
public:
    using DataHelperMap = std::map<std::string, const boost::intrusive_ptr<const IDataHelper>>;
    // (object class identifier, implementation name; empty for the default one)
    using RequiredObjects = std::vector<std::pair<std::string, std::string>>;
    // Every rule is listed under the name Core::Property::SEPARATOR.
    using ValidationRules = std::vector<std::pair<std::string, boost::intrusive_ptr<IValidationRule>>>;
    // Keyed by the setting's path relative to the helper's own subtree.
    using Constraints = std::map<std::string, boost::intrusive_ptr<const IPropertyConstraint>>;

    // A format's whole settings tree, its streams under IPreset::KEY_STREAMS; a codec's
    // codec node; a filter's settings node.
    virtual Core::Property GetDefaults() const = 0;
    // Appends the filters a codec needs in its stream; formats and filters need none.
    virtual void GetRequiredObjects(RequiredObjects& out) const = 0;
    // Appends rules whose paths start at a stream node: the codec's node by its name
    // (IPreset::KEY_FILTER_AUDIO_CODEC, ...), a filter's settings by its class
    // identifier. A format's rules apply to each of its streams.
    virtual void GetValidationRules(ValidationRules& out) const = 0;
    // Inserts or replaces entries, leaving the others. A format's keys run from its
    // root, and IPreset::KEY_STREAMS + IPreset::INDEX + a stream type stands for every
    // stream of that type; a codec's run from its codec node, except a key that begins
    // with a filter's class identifier (AAC's resampler layout), which runs from the
    // stream node like a rule's path; a filter's run from the filter's node.
    virtual void GetConstraints(Constraints& out) const = 0;
    // Carries a preset's values into out: a codec's reads the preset's codec node and
    // writes a codec node (a video codec reads the frame size and rate already in out);
    // a filter's reads the filter's preset and writes the codec node it feeds.
    virtual void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const = 0;
    // Repairs a codec node in place. An audio codec's node must hold the sample rate,
    // sample format and channel layout beside its own settings (a missing one is
    // created empty and then fails its constraint). A format corrects only an audio
    // codec node named IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO.
    virtual void CorrectFormatCodec(Core::Property& settings) const = 0;
};

using DataHelperPtr = boost::intrusive_ptr<const IDataHelper>;

}  // namespace Tervan::Conf
