#include "Conf/DataHelpers/DataHelperFilter.h"

namespace Tervan::Conf {

// Copied, not moved: a copy holds the children in the room they take, where building reserved more.
DataHelperFilter::DataHelperFilter(const Core::Property& defaults) : m_defaults(defaults) {}

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
