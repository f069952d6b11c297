#pragma once

#include "Conf/Interfaces/IDataHelper.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// Wraps a helper so that settings may ask for an automatic choice: an automatic audio
// codec or bitrate mode in the constraints, an automatic sample rate, layout or frame
// rate on the dependent side of the rules. Everything else is the wrapped helper's.
class TERVAN_API DataHelperProxyAuto : public RefCounted<IDataHelper> {
public:
    static boost::intrusive_ptr<const IDataHelper> Create(const std::string& type,
                                                          boost::intrusive_ptr<const IDataHelper> helper);

    const boost::intrusive_ptr<const IDataHelper>& GetHelper() const { return m_helper; }
    const std::string& GetType() const { return m_type; }

    Core::Property GetDefaults() const override;
    void GetRequiredObjects(RequiredObjects& out) const override;
    // Every rule comes back rebuilt as a pair rule, widened or not.
    void GetValidationRules(ValidationRules& out) const override;
    void GetConstraints(Constraints& out) const override;
    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;
    void CorrectFormatCodec(Core::Property& settings) const override;

protected:
    DataHelperProxyAuto(boost::intrusive_ptr<const IDataHelper> helper, std::string type);
    ~DataHelperProxyAuto() override;

private:
    boost::intrusive_ptr<const IDataHelper> m_helper;
    std::string m_type;
};

}  // namespace Tervan::Conf
