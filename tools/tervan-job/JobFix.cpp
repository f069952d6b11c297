#include "JobFix.h"

#include "Admitted.h"
#include "Conf/DataHelpers/ValidationRuleCheck.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IPreset.h"
#include "StreamSides.h"

#include <algorithm>
#include <map>
#include <optional>

namespace Tervan::Job {
namespace {

// Corrections and repairs run again until the stream settles; a stream that still
// moves after this many rounds keeps its remaining violations.
constexpr int MAX_ROUNDS = 4;

const char* const MISSING = "(missing)";
const char* const REMOVED = "(removed)";

std::string FirstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

std::string Leaf(const std::string& path) {
    const std::string::size_type slash = path.rfind(Core::Property::SEPARATOR);
    return slash == std::string::npos ? path : path.substr(slash + Core::Property::SEPARATOR.size());
}

std::string Parent(const std::string& path) {
    const std::string::size_type slash = path.rfind(Core::Property::SEPARATOR);
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

// The path below the first element: where a stream-relative path lies inside its node.
std::string Inside(const std::string& path) {
    const std::string::size_type slash = path.find(Core::Property::SEPARATOR);
    return slash == std::string::npos ? std::string() : path.substr(slash + Core::Property::SEPARATOR.size());
}

struct Delta {
    std::string path;
    std::string before;
    std::string after;
};

void Diff(const Core::Property* before, const Core::Property* after, const std::string& path, std::vector<Delta>& out) {
    if (before != nullptr && after != nullptr && before->GetType() == TYPE_CONTAINER &&
        after->GetType() == TYPE_CONTAINER) {
        for (const Core::Property& child : *before) {
            Diff(&child, after->FindChild(child.GetName()), JoinPath(path, child.GetName()), out);
        }
        for (const Core::Property& child : *after) {
            if (!before->ChildExists(child.GetName())) {
                Diff(nullptr, &child, JoinPath(path, child.GetName()), out);
            }
        }
    } else if (before == nullptr || after == nullptr || *before != *after) {
        out.push_back({path, before != nullptr ? DisplayValue(*before) : MISSING,
                       after != nullptr ? DisplayValue(*after) : REMOVED});
    }
}

bool AdmitsQuietly(const Conf::IPropertyConstraint& constraint, const Core::Property& value) {
    try {
        return constraint.IsValid(value);
    } catch (const std::exception&) {
        return false;
    }
}

// The constraint's own repair; else the helper's default; else the only value it
// admits. False when none of them gives an admitted value; the value is then unchanged.
bool Repair(const Conf::IPropertyConstraint& constraint, Core::Property& value,
            const std::optional<Core::Property>& fallback, std::string& reason) {
    Core::Property candidate(value);
    try {
        constraint.Fixup(candidate);
    } catch (const std::exception&) {
        candidate = value;
    }
    if (!AdmitsQuietly(constraint, candidate)) {
        const Admitted admitted = Probe(constraint);
        if (fallback && AdmitsQuietly(constraint, *fallback)) {
            candidate.CopyDataFrom(*fallback);
            reason += "; no repair of its own, so the default";
        } else if (admitted.values.size() == 1 && AdmitsQuietly(constraint, admitted.values.front().second)) {
            candidate.CopyDataFrom(admitted.values.front().second);
        } else {
            return false;
        }
    }
    value.CopyDataFrom(candidate);
    return true;
}

// Helpers that disagree can take a value away and back; steps that end where they
// began changed nothing and are not reported.
void DropRoundTrips(std::vector<Change>& changes) {
    std::map<std::string, std::pair<std::string, std::string>> net;  // path: first before, last after
    for (const Change& change : changes) {
        const auto [entry, added] = net.emplace(change.path, std::make_pair(change.before, change.after));
        if (!added) {
            entry->second.second = change.after;
        }
    }
    changes.erase(std::remove_if(changes.begin(), changes.end(),
                                 [&net](const Change& change) {
                                     const auto& [first, last] = net.at(change.path);
                                     return first == last;
                                 }),
                  changes.end());
}

// Where a repair should act: a value held on both sides is repaired on the codec's
// side, which the next keeping-in-step carries over.
std::string RepairTarget(const StreamRef& stream, const std::string& path) {
    const Twin* twin = TwinAt(stream.audio, path);
    if (twin != nullptr && twin->filterPath == path && stream.node->FindChildByPath(twin->codecPath) != nullptr) {
        return twin->codecPath;
    }
    return path;
}

}  // namespace

std::string Change::Text() const {
    return OneLine(path + ": " + before + " -> " + after + " (" + reason + ")");
}

JobEditor::JobEditor(Job& job) : m_job(job), m_governance(job) {}

void JobEditor::RecordAt(Core::Property& node, const std::string& base,
                         const std::function<std::string(Reasons&)>& step) {
    const Core::Property before = node;
    Reasons reasons;
    const std::string general = step(reasons);
    std::vector<Delta> deltas;
    Diff(&before, &node, base, deltas);
    for (Delta& delta : deltas) {
        std::string reason = general;
        for (std::string path = delta.path; !path.empty(); path = Parent(path)) {
            auto it = reasons.find(path);
            if (it != reasons.end()) {
                reason = it->second;
                break;
            }
        }
        // One step after another for the same reason reads as one change.
        auto same = std::find_if(m_report.changes.begin(), m_report.changes.end(), [&](const Change& change) {
            return change.path == delta.path && change.reason == reason;
        });
        if (same == m_report.changes.end()) {
            m_report.changes.push_back(
                {std::move(delta.path), std::move(delta.before), std::move(delta.after), reason});
        } else if (same->before == delta.after) {
            m_report.changes.erase(same);
        } else {
            same->after = std::move(delta.after);
        }
    }
}

void JobEditor::Record(const StreamRef& stream, const std::string& reason, const std::function<void()>& step) {
    RecordAt(*stream.node, stream.path, [&](Reasons&) {
        step();
        return reason;
    });
}

void JobEditor::ReplaceCodecQuietly(const StreamRef& stream, const std::string& codecId) {
    const std::string codecKey = stream.CodecKey();
    const auto helper = m_governance.Helpers().Codec(
        stream.audio, codecId, JoinPath(JoinPath(stream.path, codecKey), Conf::IFormatCodec::TAG_CODEC_ID));
    const Core::Property old = stream.Codec();
    Core::Property fresh = helper->GetDefaults();
    fresh.SetName(codecKey);
    stream.node->SetChild(codecKey, fresh);
    for (const Twin& twin : Twins()) {
        if (twin.audio == stream.audio) {
            if (const Core::Property* value = old.FindChildByPath(Inside(twin.codecPath))) {
                SetAt(*stream.node, twin.codecPath, *value);
            }
        }
    }
}

void JobEditor::ReplaceCodec(const StreamRef& stream, const std::string& codecId, const std::string& reason) {
    Record(stream, reason, [&] { ReplaceCodecQuietly(stream, codecId); });
}

void JobEditor::Complete(const StreamRef& stream) {
    RecordAt(*stream.node, stream.path, [&](Reasons& reasons) {
        const auto codec = m_governance.Codec(stream);
        const std::string codecLabel = m_governance.CodecLabel(stream);
        Conf::IDataHelper::RequiredObjects required;
        codec->GetRequiredObjects(required);
        for (const auto& object : required) {
            if (stream.node->ChildExists(object.first)) {
                continue;
            }
            Core::Property settings = m_governance.Helpers()
                                          .Get(Catalogue::FILTER, object.first, JoinPath(stream.path, object.first))
                                          ->GetDefaults();
            settings.SetName(object.first);
            stream.node->SetChild(object.first, settings);
            reasons[JoinPath(stream.path, object.first)] = "required by " + codecLabel;
        }
        for (const Twin& twin : Twins()) {
            if (twin.audio != stream.audio || stream.node->FindChildByPath(twin.codecPath) != nullptr) {
                continue;
            }
            const std::string where = JoinPath(stream.path, twin.codecPath);
            if (const Core::Property* filter = stream.node->FindChildByPath(twin.filterPath)) {
                SetAt(*stream.node, twin.codecPath, *filter);
                reasons[where] = "missing; taken from " + JoinPath(stream.path, twin.filterPath);
                continue;
            }
            const Core::Property defaults =
                m_governance.Helpers().Get(Catalogue::FILTER, twin.FilterName(), where)->GetDefaults();
            if (const Core::Property* value = defaults.FindChildByPath(Inside(twin.filterPath))) {
                SetAt(*stream.node, twin.codecPath, *value);
                reasons[where] = "missing; the default of " + HelperLabel(Catalogue::FILTER, twin.FilterName());
                continue;
            }
            Conf::IDataHelper::ValidationRules rules;
            codec->GetValidationRules(rules);
            for (const auto& rule : rules) {
                if (rule.second && rule.second->GetSecondPath() == twin.filterPath) {
                    const Admitted admitted = Probe(*rule.second->GetSecondConstraint());
                    if (!admitted.values.empty()) {
                        SetAt(*stream.node, twin.codecPath, admitted.values.front().second);
                        reasons[where] = "missing; the first value " + codecLabel + " admits";
                        break;
                    }
                }
            }
        }
        return "completed";
    });
}

void JobEditor::KeepInStep(const StreamRef& stream) {
    RecordAt(*stream.node, stream.path, [&](Reasons& reasons) {
        for (const Twin& twin : Twins()) {
            if (twin.audio != stream.audio || !twin.keptInStep || !stream.node->ChildExists(twin.FilterName())) {
                continue;
            }
            const Core::Property* codec = stream.node->FindChildByPath(twin.codecPath);
            const Core::Property* filter = stream.node->FindChildByPath(twin.filterPath);
            if (codec != nullptr &&
                (filter == nullptr ||
                 (*codec != *filter && !m_governance.IsAutomaticChoice(stream, twin.filterPath, *filter)))) {
                const Core::Property value = *codec;
                SetAt(*stream.node, twin.filterPath, value);
                reasons[JoinPath(stream.path, twin.filterPath)] =
                    "kept in step with " + JoinPath(stream.path, twin.codecPath);
            } else if (codec == nullptr && filter != nullptr) {
                const Core::Property value = *filter;
                SetAt(*stream.node, twin.codecPath, value);
                reasons[JoinPath(stream.path, twin.codecPath)] =
                    "missing; taken from " + JoinPath(stream.path, twin.filterPath);
            }
        }
        return "kept in step";
    });
}

JobEditor::Reasons JobEditor::ViolationReasons(const StreamRef& stream, const std::string& source) const {
    Reasons reasons;
    for (const Violation& violation : CheckStream(m_governance, stream)) {
        if (violation.source != source) {
            continue;
        }
        reasons.emplace(violation.path, violation.Reason());
        const std::string inStream = violation.path.substr(std::min(violation.path.size(), stream.path.size() + 1));
        if (const Twin* twin = TwinAt(stream.audio, inStream)) {
            reasons.emplace(JoinPath(stream.path, twin->codecPath), violation.Reason());
        }
    }
    return reasons;
}

void JobEditor::CorrectByCodec(const StreamRef& stream) {
    std::string label = m_governance.CodecLabel(stream);
    Reasons known = ViolationReasons(stream, label);
    RecordAt(*stream.node, stream.path, [&](Reasons& reasons) {
        reasons = known;
        const Core::Property original = stream.Codec();
        Core::Property codec = original;
        try {
            m_governance.Codec(stream)->CorrectFormatCodec(codec);
        } catch (const std::exception& e) {
            Note(JoinPath(stream.path, stream.CodecKey()) + ": " + label +
                 " cannot correct it: " + FirstLine(e.what()));
            return label;
        }
        // The correction creates the settings it looks for; one it found nothing to say about stays absent.
        for (const Twin& twin : Twins()) {
            const std::string name = Inside(twin.codecPath);
            const Core::Property* made = codec.FindChild(name);
            if (twin.audio == stream.audio && !original.ChildExists(name) && made != nullptr &&
                made->GetType() == TYPE_CONTAINER && made->Count() == 0) {
                codec.RemoveChild(name);
            }
        }
        stream.Codec().CopyDataFrom(codec);
        return "correction by " + label;
    });
}

void JobEditor::CorrectByFormat(const StreamRef& stream) {
    const Core::Property& codec = stream.Codec();
    if (!codec.ChildExists(Conf::IFormatCodec::TAG_CODEC_ID) ||
        !codec.ChildExists(Conf::IFormatCodecAudio::TAG_SAMPLE_RATE)) {
        return;
    }
    const std::string& label = m_governance.FormatLabel();
    Reasons known = ViolationReasons(stream, label);
    RecordAt(*stream.node, stream.path, [&](Reasons& reasons) {
        reasons = known;
        // The format corrects only a node named as the audio section of its own settings.
        Core::Property section = stream.Codec();
        section.SetName(Conf::IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO);
        try {
            m_governance.Format()->CorrectFormatCodec(section);
        } catch (const std::exception& e) {
            Note(JoinPath(stream.path, stream.CodecKey()) + ": " + label +
                 " cannot correct it: " + FirstLine(e.what()));
            return label;
        }
        stream.Codec().CopyDataFrom(section);
        return "correction by " + label;
    });
}

void JobEditor::FixSites(const StreamRef& stream) {
    std::vector<ConstraintSite> sites = m_governance.StreamSites(stream);
    const std::string prefix = stream.path + Core::Property::SEPARATOR;
    for (ConstraintSite& site : m_governance.FormatSites(m_job, true, &stream)) {
        if (site.path.compare(0, prefix.size(), prefix) == 0) {
            site.path.erase(0, prefix.size());
            sites.push_back(std::move(site));
        }
    }
    RecordAt(*stream.node, stream.path, [&](Reasons& reasons) {
        for (const ConstraintSite& site : sites) {
            const std::string target = RepairTarget(stream, site.path);
            Core::Property* value = stream.node->FindChildByPath(target);
            const std::string path = JoinPath(stream.path, target);
            if (value == nullptr || Admits(*site.constraint, *value, path)) {
                continue;
            }
            std::string reason = site.source + ": " + ConstraintText(*site.constraint, site.name);
            std::optional<Core::Property> fallback = target == site.path ? site.fallback : std::nullopt;
            if (!fallback) {
                // The format's defaults say nothing about a codec's or filter's own settings.
                fallback = m_governance.DefaultAt(stream, target);
            }
            if (Repair(*site.constraint, *value, fallback, reason)) {
                reasons[path] = reason;
            }
        }
        return "repaired";
    });
}

void JobEditor::FixRules(const StreamRef& stream) {
    const std::vector<RuleSite> rules = m_governance.StreamRules(stream);
    RecordAt(*stream.node, stream.path, [&](Reasons& reasons) {
        for (const RuleSite& site : rules) {
            const Conf::IValidationRule& rule = *site.rule;
            const Core::Property view = RuleView(*stream.node, stream.audio);
            if (!ConcernsStream(rule, view)) {
                continue;
            }
            const Conf::ValidationRuleCheck result = Conf::ValidationRuleCheck::EvaluateVerdict(rule, view);
            if (result.verdict != Conf::ValidationRuleCheck::BROKEN) {
                continue;
            }
            std::string target = RepairTarget(stream, result.path);
            if (stream.node->FindChildByPath(target) == nullptr) {
                const Twin* twin = TwinAt(stream.audio, target);
                if (twin == nullptr || stream.node->FindChildByPath(twin->codecPath) == nullptr) {
                    continue;
                }
                target = twin->codecPath;
            }
            Core::Property& value = *stream.node->FindChildByPath(target);
            const std::string condition = RuleCondition(rule);
            std::string reason = site.source + (condition.empty() ? "" : " (" + condition + ")") + ": " +
                                 ConstraintText(*rule.GetSecondConstraint(), Leaf(result.path));
            if (Repair(*rule.GetSecondConstraint(), value, m_governance.DefaultAt(stream, target), reason)) {
                reasons[JoinPath(stream.path, target)] = reason;
            }
        }
        return "repaired";
    });
}

void JobEditor::FixFormatSettings() {
    RecordAt(m_job.settings, "", [&](Reasons& reasons) {
        for (const auto& [path, expected] : m_governance.FixedSettings()) {
            const Core::Property* value = m_job.settings.FindChildByPath(path);
            if (value == nullptr || *value != expected) {
                SetAt(m_job.settings, path, expected);
                reasons[path] = m_governance.FormatLabel() + ": fixed by the format";
            }
        }
        for (const ConstraintSite& site : m_governance.FormatSites(m_job)) {
            Core::Property* value = m_job.settings.FindChildByPath(site.path);
            if (value == nullptr || Admits(*site.constraint, *value, site.path)) {
                continue;
            }
            const Core::Property before = *value;
            std::string reason = site.source + ": " + ConstraintText(*site.constraint, site.name);
            if (!Repair(*site.constraint, *value, site.fallback, reason)) {
                continue;
            }
            reasons[site.path] = reason;
            // A stream whose codec changed takes the new codec's settings.
            for (const StreamRef& stream : Streams(m_job)) {
                const std::string codecPath = JoinPath(stream.path, stream.CodecKey());
                if (site.path == JoinPath(codecPath, Conf::IFormatCodec::TAG_CODEC_ID)) {
                    const std::string codecId = stream.CodecId();
                    reasons[codecPath] =
                        "the defaults of " +
                        HelperLabel(stream.audio ? Catalogue::AUDIO_CODEC : Catalogue::VIDEO_CODEC, codecId) +
                        ", which replaced " + DisplayValue(before);
                    ReplaceCodecQuietly(stream, codecId);
                }
            }
        }
        return "repaired";
    });
}

void JobEditor::FixStream(const StreamRef& stream) {
    for (int round = 0; round < MAX_ROUNDS; ++round) {
        const Core::Property start = *stream.node;
        Complete(stream);
        KeepInStep(stream);
        CorrectByCodec(stream);
        if (stream.audio) {
            CorrectByFormat(stream);
        }
        FixSites(stream);
        KeepInStep(stream);
        FixRules(stream);
        KeepInStep(stream);
        if (*stream.node == start) {
            break;
        }
    }
}

void JobEditor::Fix() {
    FixFormatSettings();
    for (const StreamRef& stream : Streams(m_job)) {
        FixStream(stream);
    }
    DropRoundTrips(m_report.changes);
    m_report.remaining = CheckJob(m_job, false);
}

FixReport FixJob(Job& job) {
    {
        // What completion cannot supply is refused before anything changes.
        Job trial = job;
        JobEditor editor(trial);
        for (const StreamRef& stream : Streams(trial)) {
            editor.Complete(stream);
        }
        CheckJob(trial, true);
    }
    JobEditor editor(job);
    editor.Fix();
    return editor.Report();
}

}  // namespace Tervan::Job
