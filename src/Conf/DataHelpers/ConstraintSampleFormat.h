#pragma once

#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Conf/SampleFormats.h"
#include "Core/Property.h"

#include <boost/intrusive_ptr.hpp>

#include <string>
#include <utility>
#include <vector>

namespace Tervan::Conf {

// A sample-format setting restricted to what an encoder accepts; an unaccepted
// format is repaired to its counterpart or the most alike accepted one.
class TERVAN_API ConstraintSampleFormat : public RefCounted<IPropertyConstraint> {
public:
    static boost::intrusive_ptr<const IPropertyConstraint> Create(const std::vector<SampleFormats>& formats);

    void FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const override;
    bool IsValid(const Core::Property& value) const override;
    bool Fixup(Core::Property& value) const override;
    std::string Description(const std::string& name) const override;

protected:
    explicit ConstraintSampleFormat(const std::vector<SampleFormats>& formats);
    ~ConstraintSampleFormat() override;

private:
    std::vector<std::pair<SampleFormats, std::string>> m_formats;
};

}  // namespace Tervan::Conf
