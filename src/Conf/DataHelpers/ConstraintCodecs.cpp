#include "Conf/DataHelpers/ConstraintCodecs.h"

#include "Conf/ConfException.h"

#include <algorithm>
#include <utility>

namespace Tervan::Conf {

ConstraintCodecs::ConstraintCodecs(PairList<std::string> codecs, std::string defaultCodec)
    : m_codecs(std::move(codecs)), m_defaultCodec(std::move(defaultCodec)) {}

ConstraintCodecs::~ConstraintCodecs() = default;

boost::intrusive_ptr<const IPropertyConstraint> ConstraintCodecs::Create(const PairList<std::string>& codecs,
                                                                         const std::string& defaultCodec) {
    return new ConstraintCodecs(codecs, defaultCodec);
}

bool ConstraintCodecs::IsValid(const Core::Property& value) const {
    if (value.GetType() != TYPE_STRING) {
        BOOST_THROW_EXCEPTION(NotApplicableForType("ConstraintCodecs", TYPE_STRING, value.GetType()));
    }
    return std::any_of(m_codecs.begin(), m_codecs.end(),
                       [&value](const auto& codec) { return codec.second == value.GetString(); });
}

bool ConstraintCodecs::Fixup(Core::Property& value) const {
    if (IsValid(value)) {
        return true;
    }
    if (m_defaultCodec.empty()) {
        return false;
    }
    value.CopyDataFrom(Core::Property(std::string(), m_defaultCodec));
    return true;
}

void ConstraintCodecs::FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const {
    for (const auto& [label, codec] : m_codecs) {
        consumer->AddValue(label, Core::Property(std::string(), codec));
    }
    consumer->Commit();
}

std::string ConstraintCodecs::Description(const std::string& /*name*/) const {
    return {};
}

}  // namespace Tervan::Conf
