#include "Conf/DataHelpers/DataHelperVideoResize.h"

#include "Conf/DataHelpers/ConstraintMethod.h"
#include "Conf/DataHelpers/ConstraintRange.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/FrameInfo.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Proc/IFilterResize.h"
#include "Proc/IResize.h"
#include "Proc/SettingsResizer.h"

namespace Tervan::Conf {
namespace {

using Proc::IResize;
using V = IFormatCodecVideo;

const std::string* const kFrameSizeModes[] = {
    &IResize::FRAME_SIZE_CUSTOM,        &IResize::FRAME_SIZE_CUSTOM_SCALE,     &IResize::FRAME_SIZE_ORIGINAL,
    &IResize::FRAME_SIZE_HALF_ORIGINAL, &IResize::FRAME_SIZE_QUARTER_ORIGINAL,
};
const std::string* const kModes[] = {
    &IResize::MODE_SMART_FIT, &IResize::MODE_UP_TO, &IResize::MODE_LETTERBOX,
    &IResize::MODE_STRETCH,   &IResize::MODE_AUTO,  &IResize::MODE_CROP,
};
const std::string* const kMethods[] = {
    &IResize::METHOD_POINT,
    &IResize::METHOD_FAST_BILINEAR,
    &IResize::METHOD_BILINEAR,
    &IResize::METHOD_BICUBIC,
};

std::string ResizerPath(const std::string& tag) {
    return IResize::CLASS_ID + Core::Property::SEPARATOR + tag;
}

Core::Property Defaults() {
    // Auto fit (mode 4) with bilinear scaling (method 2) into 800x600 square pixels.
    Proc::SettingsResizer settings;
    settings.mode = Proc::SettingsResizer::MODE_AUTO;
    settings.method = Proc::SettingsResizer::METHOD_BILINEAR;
    settings.width = 800;
    settings.height = 600;
    settings.aspect = boost::rational<int>(1, 1);
    return Proc::IFilterResize::Settings2Property(settings);
}

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoResize::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoResize());
}

DataHelperVideoResize::~DataHelperVideoResize() = default;

DataHelperVideoResize::DataHelperVideoResize()
    : DataHelperFilter(Defaults()),
      m_constraints{{ResizerPath(IResize::FRAME_SIZE_MODE), StringSet(kFrameSizeModes)},
                    {ResizerPath(IResize::MODE), StringSet(kModes)},
                    // Wider than high, and wider than the MPEG codecs allow, on purpose.
                    {ResizerPath(V::TAG_WIDTH), ConstraintRange::Create(32LL, 4096LL, 2LL)},
                    {ResizerPath(V::TAG_HEIGHT), ConstraintRange::Create(32LL, 2160LL, 2LL)},
                    {ResizerPath(IResize::METHOD), StringSet(kMethods)}} {
    // Tied to no other setting: the output frame must always have even sides.
    for (const std::string* tag : {&V::TAG_WIDTH, &V::TAG_HEIGHT}) {
        m_rules.emplace_back(
            Core::Property::SEPARATOR,
            PairValidationRule::Create(std::string(), nullptr,
                                       Proc::IFilterResize::CLASS_ID + Core::Property::SEPARATOR + ResizerPath(*tag),
                                       ConstraintMethod::CreateEven(IPropertyConstraint::DESCRIPTION_ID_EVEN_SIZE)));
    }
}

void DataHelperVideoResize::GetConstraints(Constraints& out) const {
    InsertConstraints(out, m_constraints);
}

void DataHelperVideoResize::GetValidationRules(ValidationRules& out) const {
    AppendRules(out, m_rules);
}

void DataHelperVideoResize::ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const {
    const auto read = [&out](const std::string& tag) {
        return Proc::SettingsResizer::Term(out.ChildByPath(tag).GetInt64(), tag.c_str());
    };
    const FrameInfo source{read(V::TAG_WIDTH), read(V::TAG_HEIGHT), read(V::TAG_ASPECTX), read(V::TAG_ASPECTY)};
    const FrameInfo frame = Proc::IFilterResize::Property2Settings(preset).GetOutputFrameSize(source);
    out.SetChildT(V::TAG_WIDTH, static_cast<long long>(frame.width));
    out.SetChildT(V::TAG_HEIGHT, static_cast<long long>(frame.height));
    out.SetChildT(V::TAG_ASPECTX, static_cast<long long>(frame.aspectX));
    out.SetChildT(V::TAG_ASPECTY, static_cast<long long>(frame.aspectY));
}

}  // namespace Tervan::Conf
