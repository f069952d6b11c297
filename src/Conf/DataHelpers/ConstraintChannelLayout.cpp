#include "Conf/DataHelpers/ConstraintChannelLayout.h"

#include "Conf/ChannelLayout.h"
#include "Conf/ConfException.h"

#include <algorithm>
#include <utility>

namespace Tervan::Conf {
namespace {

int Channels(const std::string& layout) {
    return LayoutRecord::Find(LayoutRecord::Find(layout).layout).channels;
}

}  // namespace

ConstraintChannelLayout::ConstraintChannelLayout(std::vector<std::string> layouts) : m_layouts(std::move(layouts)) {}

ConstraintChannelLayout::~ConstraintChannelLayout() = default;

boost::intrusive_ptr<const IPropertyConstraint> ConstraintChannelLayout::Create(
    const std::vector<std::string>& layouts) {
    return new ConstraintChannelLayout(layouts);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintChannelLayout::Create(const PairList<std::string>& layouts) {
    std::vector<std::string> identifiers;
    identifiers.reserve(layouts.size());
    for (const auto& layout : layouts) {
        identifiers.push_back(layout.second);
    }
    return new ConstraintChannelLayout(std::move(identifiers));
}

bool ConstraintChannelLayout::IsValid(const Core::Property& value) const {
    if (value.GetType() != TYPE_STRING) {
        // Reports the value-set class on purpose: hosts treat both alike.
        BOOST_THROW_EXCEPTION(NotApplicableForType("ConstraintSet", TYPE_STRING, value.GetType()));
    }
    return std::find(m_layouts.begin(), m_layouts.end(), value.GetString()) != m_layouts.end();
}

bool ConstraintChannelLayout::Fixup(Core::Property& value) const {
    if (IsValid(value)) {
        return true;
    }
    if (value.GetType() != TYPE_STRING || m_layouts.empty()) {
        return false;
    }
    try {
        const int target = Channels(value.GetString());
        const std::string* pick = &m_layouts.front();
        int pickChannels = Channels(*pick);
        for (const std::string& layout : m_layouts) {
            const int channels = Channels(layout);
            // Move toward the target, never across it.
            if ((pickChannels < channels && channels <= target) || (pickChannels > channels && channels >= target)) {
                pick = &layout;
                pickChannels = channels;
            }
        }
        value = *pick;
    } catch (const FormatException&) {
        value = m_layouts.back();
    }
    return true;
}

void ConstraintChannelLayout::FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const {
    for (const std::string& layout : m_layouts) {
        consumer->AddValue(layout, Core::Property(std::string(), layout));
    }
    consumer->Commit();
}

std::string ConstraintChannelLayout::Description(const std::string& /*name*/) const {
    return {};
}

}  // namespace Tervan::Conf
