#include "Conf/DataHelpers/DataHelperProxyAuto.h"

#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/FakeConstraintConsumer.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"
#include "Proc/SettingsFilterFrameRate.h"

#include <exception>
#include <map>
#include <utility>

namespace Tervan::Conf {

namespace {

using ConstraintPtr = boost::intrusive_ptr<const IPropertyConstraint>;
using ConsumerPtr = boost::intrusive_ptr<FakeConstraintConsumer>;

constexpr char kAuto[] = "Auto";

// Built per call: the tables read constants of other libraries.

// constraint key -> automatic value; no automatic video codec on purpose
std::map<std::string, std::string> ConstraintAutoValues() {
    const std::string& sep = Core::Property::SEPARATOR;
    return {
        {IFormatCodec::TAG_BITRATE_MODE, IFormatCodec::TAG_BITRATE_MODE_CBR_AUTO},
        {IPreset::KEY_STREAMS + IPreset::INDEX + IPreset::STREAM_TYPE_AUDIO + sep + IPreset::KEY_FILTER_AUDIO_CODEC +
             sep + IFormatCodec::TAG_CODEC_ID,
         IFormatCodec::CODEC_ID_AUTO},
    };
}

// rule's second path -> automatic value, named "Auto"
std::map<std::string, Core::Property> RuleAutoValues() {
    const std::string& sep = Core::Property::SEPARATOR;
    const std::string resample = Proc::IFilterResample::CLASS_ID + sep + Proc::IResample::CLASS_ID + sep;
    return {
        {resample + IFormatCodecAudio::TAG_SAMPLE_RATE, Core::Property(kAuto, -1LL)},
        {resample + IFormatCodecAudio::TAG_LAYOUT, Core::Property(kAuto, IFormatCodecAudio::TAG_CH_LAYOUT_UNKNOWN)},
        {Proc::IFilterFrameRate::CLASS_ID + sep + IFormatCodecVideo::TAG_FPS,
         Core::Property(kAuto, Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE)},
    };
}

// A set of the given type: the automatic value first, then what the constraint offers
// as the probe renders it.
ConstraintPtr Widen(const IPropertyConstraint& constraint, const std::string& label, const Core::Property& automatic,
                    PropertyTypes type, const ConsumerPtr& consumer) {
    consumer->Reset();
    consumer->AddValue(label, automatic);
    constraint.FillValueList(consumer);
    return ConstraintSet::Create(type, consumer->GetValue());
}

// A constraint made for another type throws; that is a plain no, whatever a host's
// own constraint throws.
bool Admits(const IPropertyConstraint& constraint, const Core::Property& value) {
    try {
        return constraint.IsValid(value);
    } catch (...) {
        return false;
    }
}

}  // namespace

DataHelperProxyAuto::DataHelperProxyAuto(boost::intrusive_ptr<const IDataHelper> helper, std::string type)
    : m_helper(std::move(helper)), m_type(std::move(type)) {}

DataHelperProxyAuto::~DataHelperProxyAuto() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperProxyAuto::Create(const std::string& type,
                                                                    boost::intrusive_ptr<const IDataHelper> helper) {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperProxyAuto(std::move(helper), type));
}

Core::Property DataHelperProxyAuto::GetDefaults() const {
    return m_helper->GetDefaults();
}

void DataHelperProxyAuto::GetRequiredObjects(RequiredObjects& out) const {
    m_helper->GetRequiredObjects(out);
}

void DataHelperProxyAuto::GetValidationRules(ValidationRules& out) const {
    ValidationRules own;
    m_helper->GetValidationRules(own);
    const ConsumerPtr consumer = FakeConstraintConsumer::Create();
    const std::map<std::string, Core::Property> automatic = RuleAutoValues();
    for (const auto& [name, rule] : own) {
        const std::string secondPath = rule->GetSecondPath();
        ConstraintPtr second = rule->GetSecondConstraint();
        const auto found = automatic.find(secondPath);
        if (found != automatic.end() && !Admits(*second, found->second)) {
            const Core::Property& value = found->second;
            second = Widen(*second, value.GetName(), value, value.GetType(), consumer);
        }
        out.emplace_back(
            name, PairValidationRule::Create(rule->GetFirstPath(), rule->GetFirstConstraint(), secondPath, second));
    }
}

void DataHelperProxyAuto::GetConstraints(Constraints& out) const {
    Constraints own;
    m_helper->GetConstraints(own);
    const std::map<std::string, std::string> automatic = ConstraintAutoValues();
    const ConsumerPtr consumer = FakeConstraintConsumer::Create();
    for (auto& [key, constraint] : own) {
        const auto found = automatic.find(key);
        if (found != automatic.end()) {
            constraint = Widen(*constraint, found->second, Core::Property("", found->second), TYPE_STRING, consumer);
        }
        out[key] = constraint;
    }
}

void DataHelperProxyAuto::ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const {
    m_helper->ApplyPresetSettings(preset, out);
}

void DataHelperProxyAuto::CorrectFormatCodec(Core::Property& settings) const {
    m_helper->CorrectFormatCodec(settings);
}

}  // namespace Tervan::Conf
