#pragma once

#include "Conf/Interfaces/IDataHelper.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// A stream without audio: no encoder, no sample rate, an unknown layout. Also stands in
// for a codec whose settings are left entirely to the automatic path.
class TERVAN_API DataHelperAudioCodecEmpty : public RefCounted<IDataHelper> {
public:
    static boost::intrusive_ptr<const IDataHelper> Create(const std::string& codecId);
    explicit DataHelperAudioCodecEmpty(const std::string& codecId);

    const std::string& GetCodecID() const { return m_codecId; }

    Core::Property GetDefaults() const override;
    void GetRequiredObjects(RequiredObjects& out) const override;
    void GetValidationRules(ValidationRules& out) const override;
    void GetConstraints(Constraints& out) const override;
    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;
    void CorrectFormatCodec(Core::Property& settings) const override;

protected:
    ~DataHelperAudioCodecEmpty() override;

private:
    std::string m_codecId;
};

}  // namespace Tervan::Conf
