#pragma once

#include "Conf/DataHelpers/PairList.h"
#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Core/Property.h"

#include <boost/intrusive_ptr.hpp>
#include <boost/rational.hpp>

#include <string>
#include <utility>
#include <vector>

namespace Tervan::Conf {

// A closed list of labelled admissible values of one type. Fixup snaps a number to
// the nearest entry (ties to the earlier one); bool and string sets never repair.
class TERVAN_API ConstraintSet : public RefCounted<IPropertyConstraint> {
public:
    static boost::intrusive_ptr<const IPropertyConstraint> Create(const PairList<bool>& values);
    static boost::intrusive_ptr<const IPropertyConstraint> Create(const PairList<double>& values);
    static boost::intrusive_ptr<const IPropertyConstraint> Create(const PairList<long long>& values);
    static boost::intrusive_ptr<const IPropertyConstraint> Create(const PairList<std::string>& values);
    static boost::intrusive_ptr<const IPropertyConstraint> Create(const PairList<boost::rational<long long>>& values);
    static boost::intrusive_ptr<const IPropertyConstraint> Create(PropertyTypes type,
                                                                  const PairList<Core::Property>& values);
    // One entry per child of list: label = the child's name, value = the child.
    static boost::intrusive_ptr<const IPropertyConstraint> Create(PropertyTypes type, const Core::Property& list);

    void FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const override;
    bool IsValid(const Core::Property& value) const override;
    bool Fixup(Core::Property& value) const override;
    std::string Description(const std::string& name) const override;

    PropertyTypes GetValueType() const { return m_type; }
    const PairList<Core::Property>& GetEntries() const { return m_entries; }

protected:
    template <class T>
    ConstraintSet(PropertyTypes type, const PairList<T>& values);
    ConstraintSet(PropertyTypes type, const PairList<Core::Property>& values);
    ~ConstraintSet() override;

private:
    PropertyTypes m_type;
    PairList<Core::Property> m_entries;
};

}  // namespace Tervan::Conf
