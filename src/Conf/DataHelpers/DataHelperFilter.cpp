#include "Conf/DataHelpers/DataHelperFilter.h"

namespace Tervan::Conf {

DataHelperFilter::~DataHelperFilter() = default;

void DataHelperFilter::GetRequiredObjects(RequiredObjects&) const {}

void DataHelperFilter::GetValidationRules(ValidationRules&) const {}

void DataHelperFilter::GetConstraints(Constraints&) const {}

void DataHelperFilter::ApplyPresetSettings(const Core::Property&, Core::Property&) const {}

void DataHelperFilter::CorrectFormatCodec(Core::Property&) const {}

}  // namespace Tervan::Conf
