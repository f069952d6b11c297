#pragma once

#include "Conf/DataHelpers/PairList.h"
#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Core/Property.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// A codec identifier setting restricted to a list; an unlisted value is repaired to
// the default codec.
class TERVAN_API ConstraintCodecs : public RefCounted<IPropertyConstraint> {
public:
    // codecs: (label, codec identifier) pairs.
    static boost::intrusive_ptr<const IPropertyConstraint> Create(const PairList<std::string>& codecs,
                                                                  const std::string& defaultCodec);

    void FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const override;
    bool IsValid(const Core::Property& value) const override;
    bool Fixup(Core::Property& value) const override;
    std::string Description(const std::string& name) const override;

protected:
    ConstraintCodecs(PairList<std::string> codecs, std::string defaultCodec);
    ~ConstraintCodecs() override;

private:
    PairList<std::string> m_codecs;
    std::string m_defaultCodec;
};

}  // namespace Tervan::Conf
