#pragma once

#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/PairList.h"
#include "Conf/DataHelpers/PrebuiltLists.h"
#include "Conf/Interfaces/IDataHelper.h"

#include <cstddef>
#include <string>

namespace Tervan::Conf {

// The base of the processing filters' helpers: GetDefaults hands out the tree the
// helper was built with and every other operation does nothing, so a filter helper
// shows only what it adds.
class TERVAN_API DataHelperFilter : public RefCounted<IDataHelper> {
public:
    Core::Property GetDefaults() const override;
    void GetRequiredObjects(RequiredObjects& out) const override;
    void GetValidationRules(ValidationRules& out) const override;
    void GetConstraints(Constraints& out) const override;
    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;
    void CorrectFormatCodec(Core::Property& settings) const override;

protected:
    explicit DataHelperFilter(const Core::Property& defaults);
    ~DataHelperFilter() override;

    // A set of strings, each its own label, in table order.
    template <std::size_t N>
    static ConstraintPtr StringSet(const std::string* const (&values)[N]) {
        PairList<std::string> list;
        for (const std::string* value : values) {
            list.emplace_back(*value, *value);
        }
        return ConstraintSet::Create(list);
    }

private:
    const Core::Property m_defaults;
};

}  // namespace Tervan::Conf
