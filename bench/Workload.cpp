#include "Workload.h"

#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/DataHelpers/ValidationRuleCheck.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"
#include "JobAssembly.h"
#include "StreamSides.h"

#include <algorithm>

namespace Tervan::Bench {
namespace {

using Conf::IDataHelper;
using Conf::IPreset;

void Offer(const IDataHelper& helper, const boost::intrusive_ptr<DialogConsumer>& dialog) {
    IDataHelper::Constraints constraints;
    helper.GetConstraints(constraints);
    for (const auto& entry : constraints) {
        if (entry.second) {
            dialog->Reset();
            entry.second->FillValueList(dialog);
        }
    }
}

// A stream is checked against every rule of the format, including the rules about
// streams of the other type, whose first setting it lacks: those do not apply.
std::size_t BrokenRules(const IDataHelper& helper, const Core::Property& stream) {
    IDataHelper::ValidationRules rules;
    helper.GetValidationRules(rules);
    return static_cast<std::size_t>(std::count_if(rules.begin(), rules.end(), [&](const auto& entry) {
        const auto check = Conf::ValidationRuleCheck::EvaluateVerdict(*entry.second, stream);
        const bool applies =
            check.verdict != Conf::ValidationRuleCheck::MISSING_SETTING || check.path != entry.second->GetFirstPath();
        return applies && check.verdict != Conf::ValidationRuleCheck::HOLDS;
    }));
}

}  // namespace

boost::intrusive_ptr<DialogConsumer> DialogConsumer::Create() {
    return boost::intrusive_ptr<DialogConsumer>(new DialogConsumer());
}

void DialogConsumer::Reset() {
    m_labels.clear();
}

void DialogConsumer::AddValue(const std::string& label, const Core::Property& /*value*/) {
    m_labels.push_back(label);
}

void DialogConsumer::Commit() {}

void DialogConsumer::SetMaxValue(double value) {
    m_bounds[1] = value;
}

void DialogConsumer::SetMaxValue(long long value) {
    SetMaxValue(static_cast<double>(value));
}

void DialogConsumer::SetMinValue(double value) {
    m_bounds[0] = value;
}

void DialogConsumer::SetMinValue(long long value) {
    SetMinValue(static_cast<double>(value));
}

void DialogConsumer::SetStep(double value) {
    m_bounds[2] = value;
}

void DialogConsumer::SetStep(long long value) {
    SetStep(static_cast<double>(value));
}

PlanResult PlanMp4Job(const boost::intrusive_ptr<DialogConsumer>& dialog) {
    PlanResult result;
    const auto format = CreateDataHelper(IPreset::KEY_FORMAT, Conf::IFormatFile::FORMAT_MP4);
    result.settings = format->GetDefaults();
    Offer(*format, dialog);

    Core::Property& streams = result.settings[IPreset::KEY_STREAMS];
    for (unsigned long i = 0; i < streams.Count(); ++i) {
        Core::Property& stream = streams[i];
        const bool audio = stream[IPreset::KEY_TYPE_ID].GetString() == IPreset::STREAM_TYPE_AUDIO;
        const std::string& codecKey = audio ? IPreset::KEY_FILTER_AUDIO_CODEC : IPreset::KEY_FILTER_VIDEO_CODEC;
        const auto codec = CreateDataHelper(codecKey, stream[codecKey][Conf::IFormatCodec::TAG_CODEC_ID].GetString());
        Job::MergeInto(stream[codecKey], codec->GetDefaults());
        Offer(*codec, dialog);

        IDataHelper::RequiredObjects required;
        codec->GetRequiredObjects(required);
        for (const auto& [classId, implementation] : required) {
            const auto filter = CreateDataHelper(classId, implementation);
            if (!stream.ChildExists(classId)) {
                stream.SetChild(classId, filter->GetDefaults());
            }
            Offer(*filter, dialog);
            result.brokenRules += BrokenRules(*filter, stream);
        }

        // Values the stream holds twice start from the filter's side; once corrected
        // by the codec they are copied back, so rules reading either side agree.
        for (const Job::Twin& twin : Job::Twins()) {
            if (twin.audio != audio) {
                continue;
            }
            const Core::Property* filterValue = stream.FindChildByPath(twin.filterPath);
            if (filterValue != nullptr && stream.FindChildByPath(twin.codecPath) == nullptr) {
                Job::SetAt(stream, twin.codecPath, Core::Property(*filterValue));
            }
        }
        Core::Property& codecNode = stream[codecKey];
        codec->CorrectFormatCodec(codecNode);
        if (audio) {
            // The format corrects its own audio section, whose node name differs from the stream's.
            codecNode.SetName(Conf::IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO);
            format->CorrectFormatCodec(codecNode);
            codecNode.SetName(codecKey);
        }
        for (const Job::Twin& twin : Job::Twins()) {
            if (twin.audio == audio && twin.keptInStep) {
                if (const Core::Property* codecValue = stream.FindChildByPath(twin.codecPath)) {
                    Job::SetAt(stream, twin.filterPath, Core::Property(*codecValue));
                }
            }
        }

        result.brokenRules += BrokenRules(*codec, stream) + BrokenRules(*format, stream);
    }
    return result;
}

std::size_t CheckJobSettings(const std::string& formatName, const Core::Property& settings) {
    std::size_t failures = 0;
    const auto admits = [&failures](const IDataHelper::Constraints& constraints, const Core::Property& node,
                                    const Core::Property* stream) {
        for (const auto& [key, constraint] : constraints) {
            // A codec names the filter settings it constrains from the stream.
            const Core::Property* base = &node;
            if (stream != nullptr && stream->FindChild(key.substr(0, key.find(Core::Property::SEPARATOR)))) {
                base = stream;
            }
            const Core::Property* value = base->FindChildByPath(key);
            failures += value != nullptr && !constraint->IsValid(*value) ? 1 : 0;
        }
    };
    const auto format = CreateDataHelper(IPreset::KEY_FORMAT, formatName);
    IDataHelper::Constraints formatConstraints;
    format->GetConstraints(formatConstraints);
    // Keys under streams/@<type>/ hold for every stream of that type; they are checked per stream below.
    const std::string everyStream = IPreset::KEY_STREAMS + IPreset::INDEX;
    IDataHelper::Constraints rootConstraints;
    for (const auto& entry : formatConstraints) {
        if (entry.first.compare(0, everyStream.size(), everyStream) != 0) {
            rootConstraints.insert(entry);
        }
    }
    admits(rootConstraints, settings, nullptr);

    for (const Core::Property& stream : settings[IPreset::KEY_STREAMS]) {
        const std::string& type = stream[IPreset::KEY_TYPE_ID].GetString();
        const bool audio = type == IPreset::STREAM_TYPE_AUDIO;
        const std::string& codecKey = audio ? IPreset::KEY_FILTER_AUDIO_CODEC : IPreset::KEY_FILTER_VIDEO_CODEC;
        const Core::Property& codecNode = stream[codecKey];
        const auto codec = CreateDataHelper(codecKey, codecNode[Conf::IFormatCodec::TAG_CODEC_ID].GetString());

        const std::string streamPrefix = everyStream + type + Core::Property::SEPARATOR;
        IDataHelper::Constraints streamConstraints;
        for (const auto& [key, constraint] : formatConstraints) {
            if (key.compare(0, streamPrefix.size(), streamPrefix) == 0) {
                streamConstraints.emplace(key.substr(streamPrefix.size()), constraint);
            }
        }
        admits(streamConstraints, stream, nullptr);

        IDataHelper::Constraints constraints;
        codec->GetConstraints(constraints);
        admits(constraints, codecNode, &stream);
        failures += BrokenRules(*codec, stream) + BrokenRules(*format, stream);

        IDataHelper::RequiredObjects required;
        codec->GetRequiredObjects(required);
        for (const auto& [classId, implementation] : required) {
            const Core::Property* filterNode = stream.FindChild(classId);
            if (filterNode == nullptr) {
                ++failures;
                continue;
            }
            const auto filter = CreateDataHelper(classId, implementation);
            IDataHelper::Constraints filterConstraints;
            filter->GetConstraints(filterConstraints);
            admits(filterConstraints, *filterNode, nullptr);
            failures += BrokenRules(*filter, stream);
        }
    }
    return failures;
}

Job::Job LoadExampleJob(const std::string& relativePath) {
    return Job::ReadJob(std::string(TERVAN_SOURCE_DIR) + "/" + relativePath);
}

}  // namespace Tervan::Bench
