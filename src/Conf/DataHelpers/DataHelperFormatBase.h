#pragma once

#include "Conf/Interfaces/IDataHelper.h"
#include "Core/Property.h"

#include <boost/intrusive_ptr.hpp>

#include <string>
#include <vector>

namespace Tervan::Conf {

// The common base of the container formats: the codecs each stream kind admits, with
// a default, and the sample-rate correction a container imposes on its audio codec.
// Subclasses set their codec lists in their constructors and supply the rest.
class TERVAN_API DataHelperFormatBase : public RefCounted<IDataHelper> {
public:
    // HelperException when the format has no codecs of that kind.
    boost::intrusive_ptr<const IPropertyConstraint> VideoCodecsConstraint() const;
    boost::intrusive_ptr<const IPropertyConstraint> AudioCodecsConstraint() const;
    std::string DefaultVideoCodec() const;
    std::string DefaultAudioCodec() const;

    bool HasVideoCodecs() const { return m_videoCodecs != nullptr; }
    bool HasAudioCodecs() const { return m_audioCodecs != nullptr; }

    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;
    // Forces an admissible sample rate onto an audio codec node, as this format's
    // sample-rate rules demand; any other node is left alone.
    void CorrectFormatCodec(Core::Property& codec) const override;

protected:
    DataHelperFormatBase();
    ~DataHelperFormatBase() override;

    // A codec-list constraint labelling each codec by its identifier; HelperException
    // when the list is empty or lacks the default.
    static boost::intrusive_ptr<const IPropertyConstraint> SetCodecConstraint(const std::vector<std::string>& codecs,
                                                                              const std::string& defaultCodec);
    void SetVideoCodecs(const std::vector<std::string>& codecs, const std::string& defaultCodec);
    void SetAudioCodecs(const std::vector<std::string>& codecs, const std::string& defaultCodec);

    // The two ends of a sample-rate rule, from the root of a job's settings; built on first use.
    static const std::string& AudioCodecIdPath();
    static const std::string& SampleRatePath();

private:
    boost::intrusive_ptr<const IPropertyConstraint> m_videoCodecs;
    boost::intrusive_ptr<const IPropertyConstraint> m_audioCodecs;
};

}  // namespace Tervan::Conf
