#include "Conf/DataHelpers/DataHelperFilter.h"

#include <utility>

namespace Tervan::Conf {

DataHelperFilter::DataHelperFilter(Core::Property defaults) : m_defaults(std::move(defaults)) {}

DataHelperFilter::~DataHelperFilter() = default;

Core::Property DataHelperFilter::GetDefaults() const {
    return m_defaults;
}

void DataHelperFilter::GetRequiredObjects(RequiredObjects&) const {}

void DataHelperFilter::GetValidationRules(ValidationRules&) const {}

void DataHelperFilter::GetConstraints(Constraints&) const {}

void DataHelperFilter::ApplyPresetSettings(const Core::Property&, Core::Property&) const {}

void DataHelperFilter::CorrectFormatCodec(Core::Property&) const {}

}  // namespace Tervan::Conf
