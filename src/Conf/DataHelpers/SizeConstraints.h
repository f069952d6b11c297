#pragma once

#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Core/Property.h"

#include <boost/intrusive_ptr.hpp>

#include <utility>
#include <vector>

namespace Tervan::Conf {

// Offers a fixed list of frame sizes as frame-size-mode nodes. Only the custom
// frame-size mode is "valid": a mode naming a listed size is not.
class TERVAN_API SizeConstraints : public RefCounted<IPropertyConstraint> {
public:
    static boost::intrusive_ptr<const IPropertyConstraint> Create(
        const std::vector<std::pair<long long, long long>>& sizes);

    void FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const override;
    bool IsValid(const Core::Property& value) const override;
    bool Fixup(Core::Property& value) const override;
    std::string Description(const std::string& name) const override;

protected:
    explicit SizeConstraints(std::vector<std::pair<long long, long long>> sizes);
    ~SizeConstraints() override;

private:
    std::vector<std::pair<long long, long long>> m_sizes;
};

}  // namespace Tervan::Conf
