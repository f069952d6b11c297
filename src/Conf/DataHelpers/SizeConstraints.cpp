#include "Conf/DataHelpers/SizeConstraints.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Proc/IResize.h"

#include <utility>

namespace Tervan::Conf {

SizeConstraints::SizeConstraints(std::vector<std::pair<long long, long long>> sizes) : m_sizes(std::move(sizes)) {}

SizeConstraints::~SizeConstraints() = default;

boost::intrusive_ptr<const IPropertyConstraint> SizeConstraints::Create(
    const std::vector<std::pair<long long, long long>>& sizes) {
    return new SizeConstraints(sizes);
}

bool SizeConstraints::IsValid(const Core::Property& value) const {
    return value.GetType() == TYPE_STRING && value.GetString() == Proc::IResize::FRAME_SIZE_CUSTOM;
}

bool SizeConstraints::Fixup(Core::Property& value) const {
    return IsValid(value);
}

void SizeConstraints::FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const {
    for (const auto& [width, height] : m_sizes) {
        Core::Property node(Proc::IResize::FRAME_SIZE_MODE);
        node.SetChildT(IFormatCodecVideo::TAG_WIDTH, width);
        node.SetChildT(IFormatCodecVideo::TAG_HEIGHT, height);
        consumer->AddValue(std::to_string(width) + " x " + std::to_string(height), node);
    }
    consumer->Commit();
}

std::string SizeConstraints::Description(const std::string& /*name*/) const {
    return {};
}

}  // namespace Tervan::Conf
