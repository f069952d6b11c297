#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include "Conf/DataHelpers/ConstraintChannelLayout.h"
#include "Conf/DataHelpers/ConstraintMethod.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IFilterResample.h"

#include <utility>
#include <vector>

namespace Tervan::Conf {
namespace {

using AudioCodecTable::Default;
using AudioCodecTable::Place;
using AudioCodecTable::Setting;

std::vector<std::string> Texts(const Setting& row) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < row.count; ++i) {
        texts.push_back(*row.strings[i]);
    }
    return texts;
}

}  // namespace

DataHelperAudioCodecBase::DataHelperAudioCodecBase(const std::string& codecId, AudioCodecTable::Rows<Default> defaults,
                                                   AudioCodecTable::Rows<Setting> constraints,
                                                   AudioCodecTable::Rows<Setting> rules, EncoderRules encoderRules)
    : DataHelperCodecFFMPEG(codecId, MEDIA_TYPE_AUDIO),
      m_defaults(DataHelperCodecFFMPEG::GetDefaults()),
      m_encoderRules(encoderRules) {
    Core::Property options(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE);
    for (const Default& row : defaults) {
        Core::Property& node = row.inOptions ? options : m_defaults;
        if (row.text != nullptr) {
            node.CreateChildT(*row.tag, *row.text);
        } else {
            node.CreateChildT(*row.tag, row.number);
        }
    }
    m_defaults.SetChild(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE, options);
    // Kept for the library's lifetime: a copy holds the children without the room building reserved.
    m_defaults = Core::Property(m_defaults);

    for (const Setting& row : constraints) {
        std::string key = *row.tag;
        if (row.place == Place::OPTIONS) {
            key.insert(0, IFormatCodec::TAG_CODEC_OPTIONS_ENCODE + Core::Property::SEPARATOR);
        } else if (row.place == Place::RESAMPLER) {
            key = ResamplerPath(key);
        }
        m_constraints.emplace_back(std::move(key), MakeConstraint(row));
    }
    for (const Setting& row : rules) {
        const std::string path = row.place == Place::RESAMPLER ? ResamplerPath(*row.tag) : CodecPath(*row.tag);
        AddCodecRule(m_rules, path, MakeConstraint(row));
    }
}

DataHelperAudioCodecBase::~DataHelperAudioCodecBase() = default;

Core::Property DataHelperAudioCodecBase::GetDefaults() const {
    return m_defaults;
}

void DataHelperAudioCodecBase::GetRequiredObjects(RequiredObjects& out) const {
    out.emplace_back(Proc::IFilterResample::CLASS_ID, std::string());
}

void DataHelperAudioCodecBase::GetValidationRules(ValidationRules& out) const {
    if (m_encoderRules == EncoderRules::KEPT) {
        DataHelperCodecFFMPEG::GetValidationRules(out);
    }
    AppendRules(out, m_rules);
}

void DataHelperAudioCodecBase::GetConstraints(Constraints& out) const {
    DataHelperCodecFFMPEG::GetConstraints(out);
    InsertConstraints(out, m_constraints);
}

std::string DataHelperAudioCodecBase::CodecPath(const std::string& tag) {
    return IPreset::KEY_FILTER_AUDIO_CODEC + Core::Property::SEPARATOR + tag;
}

ConstraintPtr DataHelperAudioCodecBase::MakeConstraint(const Setting& row) {
    switch (row.kind) {
        case Setting::ALWAYS_TRUE:
            return ConstraintMethod::CreateAlwaysTrue(std::string());
        case Setting::DEFAULT_QUALITY:
            return s_defaultQualityConstraint;
        case Setting::INTEGERS:
            return ConstraintSet::Create(
                CreatePairValueList(std::vector<long long>(row.numbers, row.numbers + row.count)));
        case Setting::STRINGS:
            return OneOf(row.strings, row.strings + row.count);
        case Setting::LAYOUTS:
            break;  // below, so that every path returns
    }
    return ConstraintChannelLayout::Create(Texts(row));
}

}  // namespace Tervan::Conf
