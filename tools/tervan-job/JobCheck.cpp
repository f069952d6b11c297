#include "JobCheck.h"

#include "Admitted.h"
#include "Conf/ConfException.h"
#include "Conf/DataHelpers/ValidationRuleCheck.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"
#include "StreamSides.h"

#include <algorithm>
#include <functional>
#include <map>

namespace Tervan::Job {
namespace {

using Conf::IPreset;

const std::string& StreamType(const StreamRef& stream) {
    return stream.audio ? IPreset::STREAM_TYPE_AUDIO : IPreset::STREAM_TYPE_VIDEO;
}

std::string Leaf(const std::string& path) {
    const std::string::size_type slash = path.rfind(Core::Property::SEPARATOR);
    return slash == std::string::npos ? path : path.substr(slash + Core::Property::SEPARATOR.size());
}

std::string FirstSegment(const std::string& path) {
    return path.substr(0, path.find(Core::Property::SEPARATOR));
}

std::optional<Core::Property> ValueAt(const Core::Property& root, const std::string& path) {
    if (const Core::Property* value = root.FindChildByPath(path)) {
        return *value;
    }
    return std::nullopt;
}

}  // namespace

bool ConcernsStream(const Conf::IValidationRule& rule, const Core::Property& view) {
    return !rule.GetFirstConstraint() || view.FindChildByPath(rule.GetFirstPath()) != nullptr;
}

std::string RuleCondition(const Conf::IValidationRule& rule) {
    const auto first = rule.GetFirstConstraint();
    const std::string path = rule.GetFirstPath();
    if (!first || path.empty()) {
        return {};
    }
    const Admitted admitted = Probe(*first);
    const std::string text = AdmittedText(admitted);
    if (text.empty()) {
        return "when " + path + " holds";
    }
    return "when " + path + " is " + text;
}

namespace {

void AddSites(std::vector<ConstraintSite>& sites, const Conf::IDataHelper& helper, const std::string& source,
              bool withFallbacks, const std::function<std::string(const std::string&)>& place) {
    Conf::IDataHelper::Constraints constraints;
    helper.GetConstraints(constraints);
    const Core::Property defaults = withFallbacks ? helper.GetDefaults() : Core::Property();
    for (const auto& [key, constraint] : constraints) {
        if (constraint) {
            sites.push_back(
                {place(key), Leaf(key), constraint, source, withFallbacks ? ValueAt(defaults, key) : std::nullopt});
        }
    }
}

void AddRules(std::vector<RuleSite>& rules, const Conf::IDataHelper& helper, const std::string& source) {
    Conf::IDataHelper::ValidationRules list;
    helper.GetValidationRules(list);
    for (const auto& entry : list) {
        if (entry.second) {
            rules.push_back({entry.second, source});
        }
    }
}

// Required filters the stream lacks.
std::vector<std::string> MissingFilters(const Governance& governance, const StreamRef& stream) {
    Conf::IDataHelper::RequiredObjects required;
    governance.Codec(stream)->GetRequiredObjects(required);
    std::vector<std::string> missing;
    for (const auto& object : required) {
        if (!stream.node->ChildExists(object.first)) {
            missing.push_back(object.first);
        }
    }
    return missing;
}

}  // namespace

Governance::Governance(const Job& job)
    : m_catalogue(job.automatic),
      m_format(m_catalogue.Get(Catalogue::FORMAT, job.formatName, JobKeys::FORMAT_NAME)),
      m_formatLabel(HelperLabel(Catalogue::FORMAT, job.formatName)) {}

std::vector<std::pair<std::string, Core::Property>> Governance::FixedSettings() const {
    const Core::Property defaults = m_format->GetDefaults();
    std::vector<std::pair<std::string, Core::Property>> fixed;
    if (const Core::Property* container = defaults.FindChild(Conf::IFormatFile::TAG_CONTAINER)) {
        fixed.emplace_back(Conf::IFormatFile::TAG_CONTAINER, *container);
    }
    if (const Core::Property* limits = defaults.FindChild(Conf::IFormatFile::TAG_LIMITS)) {
        for (const Core::Property& limit : *limits) {
            fixed.emplace_back(JoinPath(Conf::IFormatFile::TAG_LIMITS, limit.GetName()), limit);
        }
    }
    return fixed;
}

Conf::DataHelperPtr Governance::Codec(const StreamRef& stream) const {
    return m_catalogue.Codec(stream.audio, stream.CodecId(),
                             JoinPath(JoinPath(stream.path, stream.CodecKey()), Conf::IFormatCodec::TAG_CODEC_ID));
}

std::string Governance::CodecLabel(const StreamRef& stream) {
    return HelperLabel(stream.audio ? Catalogue::AUDIO_CODEC : Catalogue::VIDEO_CODEC, stream.CodecId());
}

std::vector<ConstraintSite> Governance::FormatSites(Job& job, bool withFallbacks, const StreamRef* only) const {
    Conf::IDataHelper::Constraints constraints;
    m_format->GetConstraints(constraints);
    const Core::Property defaults = withFallbacks ? m_format->GetDefaults() : Core::Property();
    const std::string everyStream = IPreset::KEY_STREAMS + IPreset::INDEX;
    std::vector<ConstraintSite> sites;
    for (const auto& [key, constraint] : constraints) {
        if (!constraint) {
            continue;
        }
        if (key.compare(0, everyStream.size(), everyStream) != 0) {
            sites.push_back({key, Leaf(key), constraint, m_formatLabel, ValueAt(defaults, key)});
            continue;
        }
        const std::string rest = key.substr(everyStream.size());
        const std::string type = FirstSegment(rest);
        const std::string inner = rest.substr(std::min(rest.size(), type.size() + Core::Property::SEPARATOR.size()));
        std::optional<Core::Property> fallback;
        if (const Core::Property* streams = defaults.FindChild(IPreset::KEY_STREAMS)) {
            for (const Core::Property& stream : *streams) {
                const Core::Property* kind = stream.FindChild(IPreset::KEY_TYPE_ID);
                if (!fallback && kind != nullptr && *kind == Core::Property("", type)) {
                    fallback = ValueAt(stream, inner);
                }
            }
        }
        for (const StreamRef& stream : only != nullptr ? std::vector<StreamRef>{*only} : Streams(job)) {
            if (StreamType(stream) == type) {
                sites.push_back({JoinPath(stream.path, inner), Leaf(inner), constraint, m_formatLabel, fallback});
            }
        }
    }
    return sites;
}

std::vector<ConstraintSite> Governance::StreamSites(const StreamRef& stream, bool withFallbacks) const {
    std::vector<ConstraintSite> sites;
    const bool audio = stream.audio;
    const std::string codecKey = stream.CodecKey();
    AddSites(sites, *Codec(stream), CodecLabel(stream), withFallbacks, [audio, &codecKey](const std::string& key) {
        return Catalogue::IsFilter(FirstSegment(key), audio) ? key : JoinPath(codecKey, key);
    });
    for (const Core::Property& child : *stream.node) {
        if (Catalogue::IsFilter(child.GetName(), audio)) {
            const std::string& name = child.GetName();
            AddSites(sites, *m_catalogue.Get(Catalogue::FILTER, name, JoinPath(stream.path, name)),
                     HelperLabel(Catalogue::FILTER, name), withFallbacks,
                     [&name](const std::string& key) { return JoinPath(name, key); });
        }
    }
    return sites;
}

std::vector<RuleSite> Governance::StreamRules(const StreamRef& stream) const {
    std::vector<RuleSite> rules;
    AddRules(rules, *Codec(stream), CodecLabel(stream));
    for (const Core::Property& child : *stream.node) {
        if (Catalogue::IsFilter(child.GetName(), stream.audio)) {
            AddRules(rules, *m_catalogue.Get(Catalogue::FILTER, child.GetName(), stream.path),
                     HelperLabel(Catalogue::FILTER, child.GetName()));
        }
    }
    AddRules(rules, *m_format, m_formatLabel);
    return rules;
}

std::optional<Core::Property> Governance::DefaultAt(const StreamRef& stream, const std::string& path) const {
    const std::string owner = FirstSegment(path);
    const std::string inner = path.substr(std::min(path.size(), owner.size() + Core::Property::SEPARATOR.size()));
    std::optional<Core::Property> value;
    if (owner == stream.CodecKey()) {
        value = ValueAt(Codec(stream)->GetDefaults(), inner);
    } else if (Catalogue::IsFilter(owner, stream.audio)) {
        value = ValueAt(m_catalogue.Get(Catalogue::FILTER, owner, JoinPath(stream.path, owner))->GetDefaults(), inner);
    }
    // A value held on both sides may have its default on the other side only.
    const Twin* twin = TwinAt(stream.audio, path);
    if (!value && twin != nullptr && twin->codecPath == path) {
        return DefaultAt(stream, twin->filterPath);
    }
    return value;
}

bool Governance::IsAutomaticChoice(const StreamRef& stream, const std::string& path,
                                   const Core::Property& value) const {
    if (!m_catalogue.Automatic()) {
        return false;
    }
    const Twin* twin = TwinAt(stream.audio, path);
    return twin != nullptr && twin->filterPath == path && IsAutomatic(*twin, value);
}

std::string Violation::Text() const {
    const std::string text = path + (value.empty() ? "" : " = " + value) + ": " + description + " [" + source;
    return OneLine(text + (condition.empty() ? "" : ", " + condition) + "]");
}

std::string Violation::Reason() const {
    return source + (condition.empty() ? "" : " (" + condition + ")") + ": " + description;
}

bool Admits(const Conf::IPropertyConstraint& constraint, const Core::Property& value, const std::string& path) {
    try {
        return constraint.IsValid(value);
    } catch (const Conf::ConstraintException& e) {
        const PropertyTypes* expected = boost::get_error_info<Conf::ConstraintException::TagValueType>(e);
        throw InputError(path, "expected " + (expected != nullptr ? TypeName(*expected) : "another type") + ", found " +
                                   TypeName(value.GetType()));
    } catch (const Core::PropertyException&) {
        throw InputError(path, "a value of another type is expected here, found " + TypeName(value.GetType()));
    }
}

std::vector<Violation> CheckStream(const Governance& governance, const StreamRef& stream) {
    const std::vector<std::string> missingFilters = MissingFilters(governance, stream);
    std::vector<Violation> violations;
    violations.reserve(missingFilters.size());
    for (const std::string& filter : missingFilters) {
        violations.push_back({JoinPath(stream.path, filter), "", "missing; the codec requires this filter",
                              governance.CodecLabel(stream), "", false});
    }
    // Where the two sides disagree, fix takes the codec's value: the rules judge it too, below.
    std::vector<const Twin*> disagreeing;
    for (const Twin& twin : Twins()) {
        if (twin.audio != stream.audio || !twin.keptInStep) {
            continue;
        }
        const Core::Property* codec = stream.node->FindChildByPath(twin.codecPath);
        const Core::Property* filter = stream.node->FindChildByPath(twin.filterPath);
        if (codec != nullptr && filter != nullptr && *codec != *filter &&
            !governance.IsAutomaticChoice(stream, twin.filterPath, *filter)) {
            disagreeing.push_back(&twin);
            violations.push_back({JoinPath(stream.path, twin.filterPath), DisplayValue(*filter),
                                  "must equal " + JoinPath(stream.path, twin.codecPath) + " = " + DisplayValue(*codec) +
                                      "; both hold the same quantity",
                                  "job", "", false});
        }
    }
    for (const ConstraintSite& site : governance.StreamSites(stream, false)) {
        const Core::Property* value = stream.node->FindChildByPath(site.path);
        const std::string path = JoinPath(stream.path, site.path);
        if (value != nullptr && !governance.IsAutomaticChoice(stream, site.path, *value) &&
            !Admits(*site.constraint, *value, path)) {
            violations.push_back(
                {path, DisplayValue(*value), ConstraintText(*site.constraint, site.name), site.source, "", false});
        }
    }
    const Core::Property view = RuleView(*stream.node, stream.audio);
    const std::vector<RuleSite> rules = governance.StreamRules(stream);
    for (const RuleSite& site : rules) {
        const Conf::IValidationRule& rule = *site.rule;
        if (!ConcernsStream(rule, view)) {
            continue;
        }
        const Conf::ValidationRuleCheck result = Conf::ValidationRuleCheck::EvaluateVerdict(rule, view);
        // Report where the job holds the value: a side filled only for the rules is the codec's.
        std::string where = result.path;
        if (stream.node->FindChildByPath(where) == nullptr) {
            if (const Twin* twin = TwinAt(stream.audio, where)) {
                where = twin->codecPath;
            }
        }
        const std::string path = JoinPath(stream.path, where);
        switch (result.verdict) {
            case Conf::ValidationRuleCheck::HOLDS:
                break;
            case Conf::ValidationRuleCheck::BROKEN:
                violations.push_back({path, DisplayValue(view.ChildByPath(result.path)),
                                      ConstraintText(*rule.GetSecondConstraint(), Leaf(result.path)), site.source,
                                      RuleCondition(rule), false});
                break;
            case Conf::ValidationRuleCheck::MISSING_SETTING:
                if (std::find(missingFilters.begin(), missingFilters.end(), FirstSegment(result.path)) ==
                    missingFilters.end()) {
                    violations.push_back(
                        {path, "", "missing; a rule reads it", site.source, RuleCondition(rule), true});
                }
                break;
            case Conf::ValidationRuleCheck::WRONG_TYPE:
                throw InputError(path, "a value of another type is expected by a rule of " + site.source + " (" +
                                           result.detail + ")");
        }
    }
    if (disagreeing.empty()) {
        return violations;
    }
    Core::Property codecView = view;
    for (const Twin* twin : disagreeing) {
        SetAt(codecView, twin->filterPath, stream.node->ChildByPath(twin->codecPath));
    }
    for (const RuleSite& site : rules) {
        const Conf::IValidationRule& rule = *site.rule;
        if (!ConcernsStream(rule, codecView)) {
            continue;
        }
        const Conf::ValidationRuleCheck result = Conf::ValidationRuleCheck::EvaluateVerdict(rule, codecView);
        const auto twin = std::find_if(disagreeing.begin(), disagreeing.end(), [&result](const Twin* candidate) {
            return candidate->filterPath == result.path;
        });
        if (result.verdict == Conf::ValidationRuleCheck::BROKEN && twin != disagreeing.end()) {
            violations.push_back({JoinPath(stream.path, (*twin)->codecPath),
                                  DisplayValue(codecView.ChildByPath(result.path)),
                                  ConstraintText(*rule.GetSecondConstraint(), Leaf(result.path)), site.source,
                                  RuleCondition(rule), false});
        }
    }
    return violations;
}

std::vector<Violation> CheckJob(Job& job, bool strict) {
    const Governance governance(job);
    std::vector<Violation> violations;
    for (const ConstraintSite& site : governance.FormatSites(job, false)) {
        const Core::Property* value = job.settings.FindChildByPath(site.path);
        if (value != nullptr && !Admits(*site.constraint, *value, site.path)) {
            violations.push_back(
                {site.path, DisplayValue(*value), ConstraintText(*site.constraint, site.name), site.source, "", false});
        }
    }
    const auto fixed = governance.FixedSettings();
    for (const auto& [path, expected] : fixed) {
        const Core::Property* value = job.settings.FindChildByPath(path);
        if (value == nullptr || *value != expected) {
            violations.push_back({path, value != nullptr ? DisplayValue(*value) : "",
                                  "must be " + DisplayValue(expected) + ", as the format has it",
                                  governance.FormatLabel(), "", false});
        }
    }
    std::map<std::string, long long> counts;
    for (const StreamRef& stream : Streams(job)) {
        ++counts[stream.audio ? Conf::IFormatFile::TAG_LIMITS_AUDIO : Conf::IFormatFile::TAG_LIMITS_VIDEO];
    }
    for (const auto& [kind, count] : counts) {
        const std::string path = JoinPath(Conf::IFormatFile::TAG_LIMITS, kind);
        const auto entry =
            std::find_if(fixed.begin(), fixed.end(), [&path](const auto& setting) { return setting.first == path; });
        const Core::Property* limit = entry != fixed.end() ? &entry->second : nullptr;
        if (limit != nullptr && limit->GetType() == TYPE_INT64 && count > limit->GetInt64()) {
            violations.push_back(
                {IPreset::KEY_STREAMS, std::to_string(count) + " " + kind + " streams",
                 "the container carries at most " + std::to_string(limit->GetInt64()) + " " + kind + " streams",
                 governance.FormatLabel(), "", false});
        }
    }
    for (const StreamRef& stream : Streams(job)) {
        for (Violation& violation : CheckStream(governance, stream)) {
            if (strict && violation.missing) {
                throw InputError(violation.path, "missing; a rule of " + violation.source + " reads it" +
                                                     (violation.condition.empty() ? "" : " " + violation.condition));
            }
            violations.push_back(std::move(violation));
        }
    }
    return violations;
}

}  // namespace Tervan::Job
