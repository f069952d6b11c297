#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include "Conf/DataHelpers/ConstraintRange.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResize.h"
#include "Proc/IResize.h"

namespace Tervan::Conf {
namespace {

using VideoCodecTable::Constraint;
using VideoCodecTable::Default;

std::string ConstraintPath(const Constraint& row) {
    return row.inOptions ? IFormatCodec::TAG_CODEC_OPTIONS_ENCODE + Core::Property::SEPARATOR + *row.tag : *row.tag;
}

}  // namespace

DataHelperVideoCodecBase::~DataHelperVideoCodecBase() = default;

void DataHelperVideoCodecBase::Interpret(const Default* firstDefault, const Default* lastDefault,
                                         const Constraint* firstConstraint, const Constraint* lastConstraint) {
    m_defaults = DataHelperCodecFFMPEG::GetDefaults();
    Core::Property options(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE);
    for (const Default* row = firstDefault; row != lastDefault; ++row) {
        Core::Property& node = row->inOptions ? options : m_defaults;
        switch (row->kind) {
            case Default::INTEGER:
                node.CreateChildT(*row->tag, row->number);
                break;
            case Default::TEXT:
                node.CreateChildT(*row->tag, *row->text);
                break;
            case Default::ENCODER_NAME:
                node.CreateChildT(*row->tag, GetEncoderName());
                break;
        }
    }
    m_defaults.SetChild(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE, options);
    // Kept for the library's lifetime: a copy holds the children without the room building reserved.
    m_defaults = Core::Property(m_defaults);

    for (const Constraint* row = firstConstraint; row != lastConstraint; ++row) {
        ConstraintPtr constraint;
        switch (row->kind) {
            case Constraint::DEFAULT_BITRATE:
                constraint = s_defaultVideoBitrateConstraint;
                break;
            case Constraint::DEFAULT_QUALITY:
                constraint = s_defaultQualityConstraint;
                break;
            case Constraint::RANGE:
                constraint = ConstraintRange::Create(row->lo, row->hi, 0LL);
                break;
            case Constraint::VALUES:
                constraint = OneOf(row->values, row->values + row->valueCount);
                break;
        }
        m_constraints.emplace_back(ConstraintPath(*row), constraint);
    }
}

Core::Property DataHelperVideoCodecBase::GetDefaults() const {
    return m_defaults;
}

void DataHelperVideoCodecBase::GetRequiredObjects(RequiredObjects& out) const {
    if (m_filters == Filters::RESIZE_AND_FRAME_RATE) {
        out.emplace_back(Proc::IFilterResize::CLASS_ID, std::string());
        out.emplace_back(Proc::IFilterFrameRate::CLASS_ID, std::string());
    }
}

void DataHelperVideoCodecBase::GetConstraints(Constraints& out) const {
    DataHelperCodecFFMPEG::GetConstraints(out);
    InsertConstraints(out, m_constraints);
}

std::string DataHelperVideoCodecBase::ResizerPath(const std::string& tag) {
    return Proc::IFilterResize::CLASS_ID + Core::Property::SEPARATOR + Proc::IResize::CLASS_ID +
           Core::Property::SEPARATOR + tag;
}

void DataHelperVideoCodecBase::AddFrameBoundRule(ValidationRules& out, const VideoCodecTable::FrameBound& bound) const {
    AddCodecRule(out, ResizerPath(*bound.tag), ConstraintRange::Create(bound.lo, bound.hi, bound.step));
}

}  // namespace Tervan::Conf
