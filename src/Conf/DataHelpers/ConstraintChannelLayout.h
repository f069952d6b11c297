#pragma once

#include "Conf/DataHelpers/PairList.h"
#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Core/Property.h"

#include <boost/intrusive_ptr.hpp>

#include <string>
#include <vector>

namespace Tervan::Conf {

// A channel-layout setting restricted to a list; an unlisted layout is repaired to a
// listed one chosen by channel count, moving only toward the target count.
class TERVAN_API ConstraintChannelLayout : public RefCounted<IPropertyConstraint> {
public:
    static boost::intrusive_ptr<const IPropertyConstraint> Create(const std::vector<std::string>& layouts);
    // Keeps the second element (the identifier) of each pair.
    static boost::intrusive_ptr<const IPropertyConstraint> Create(const PairList<std::string>& layouts);

    void FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const override;
    bool IsValid(const Core::Property& value) const override;
    bool Fixup(Core::Property& value) const override;
    std::string Description(const std::string& name) const override;

protected:
    explicit ConstraintChannelLayout(std::vector<std::string> layouts);
    ~ConstraintChannelLayout() override;

private:
    std::vector<std::string> m_layouts;
};

}  // namespace Tervan::Conf
