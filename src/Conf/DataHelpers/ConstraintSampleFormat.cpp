#include "Conf/DataHelpers/ConstraintSampleFormat.h"

#include "Conf/ConfException.h"

#include <algorithm>
#include <cstdlib>

namespace Tervan::Conf {
namespace {

// Width difference, plus one when the flag is EQUAL: among formats of the same width
// the one whose flag differs from the rejected format's is preferred.
int Distance(const SampleFmtRecord& rejected, const SampleFmtRecord& candidate) {
    return std::abs(rejected.bitsPerSample - candidate.bitsPerSample) + (rejected.planar == candidate.planar ? 1 : 0);
}

}  // namespace

ConstraintSampleFormat::ConstraintSampleFormat(const std::vector<SampleFormats>& formats) {
    m_formats.reserve(formats.size());
    for (SampleFormats format : formats) {
        m_formats.emplace_back(format, SampleFmtRecord::Find(format).name);
    }
}

ConstraintSampleFormat::~ConstraintSampleFormat() = default;

boost::intrusive_ptr<const IPropertyConstraint> ConstraintSampleFormat::Create(
    const std::vector<SampleFormats>& formats) {
    return new ConstraintSampleFormat(formats);
}

bool ConstraintSampleFormat::IsValid(const Core::Property& value) const {
    if (value.GetType() != TYPE_STRING) {
        BOOST_THROW_EXCEPTION(NotApplicableForType("ConstraintSampleFormat", TYPE_STRING, value.GetType()));
    }
    const SampleFormats format = SampleFmtRecord::Find(value.GetString()).format;
    return std::any_of(m_formats.begin(), m_formats.end(),
                       [format](const auto& entry) { return entry.first == format; });
}

bool ConstraintSampleFormat::Fixup(Core::Property& value) const {
    if (IsValid(value)) {
        return true;
    }
    if (value.GetType() != TYPE_STRING || m_formats.empty()) {
        return false;
    }
    const SampleFmtRecord& rejected = SampleFmtRecord::Find(value.GetString());
    const SampleFmtRecord& counterpart = SampleFmtRecord::Find(rejected.counterpart);
    const std::string counterpartName(counterpart.name);
    if (IsValid(Core::Property(std::string(), counterpartName))) {
        value = counterpartName;
        return true;
    }
    const SampleFmtRecord* pick = &SampleFmtRecord::Find(m_formats.front().first);
    for (std::size_t i = 1; i < m_formats.size(); ++i) {
        const SampleFmtRecord& candidate = SampleFmtRecord::Find(m_formats[i].first);
        if (Distance(rejected, candidate) < Distance(rejected, *pick)) {
            pick = &candidate;
        }
    }
    value = std::string(pick->name);
    return true;
}

void ConstraintSampleFormat::FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const {
    for (const auto& entry : m_formats) {
        consumer->AddValue(entry.second, Core::Property(entry.second, entry.second));
    }
    consumer->Commit();
}

std::string ConstraintSampleFormat::Description(const std::string& /*name*/) const {
    return {};
}

}  // namespace Tervan::Conf
