#include "OptionsReport.h"

#include "Admitted.h"
#include "Conf/Interfaces/IPreset.h"
#include "Core/Localization.h"

#include <optional>
#include <set>
#include <vector>

namespace Tervan::Job {
namespace {

using Conf::IPreset;

// A constraint that neither lists values nor describes itself: only trying a value tells.
const char* const kUnlisted = "decided by a check that lists no values";

struct Setting {
    std::string key;
    std::optional<Core::Property> byDefault;
    Conf::ConstraintPtr constraint;
};

struct Rule {
    std::string firstPath;
    Conf::ConstraintPtr first;
    std::string secondPath;
    Conf::ConstraintPtr second;
};

void CollectLeaves(const Core::Property& node, const std::string& path, std::vector<Setting>& out) {
    for (const Core::Property& child : node) {
        const std::string childPath =
            path.empty() ? child.GetName() : path + Core::Property::SEPARATOR + child.GetName();
        if (child.GetType() == TYPE_CONTAINER) {
            CollectLeaves(child, childPath, out);
        } else {
            out.push_back({childPath, child, nullptr});
        }
    }
}

std::vector<Setting> Settings(const Conf::IDataHelper& helper) {
    std::vector<Setting> settings;
    Core::Property defaults = helper.GetDefaults();
    // A format's streams are the job's layout, not settings; what governs them is keyed by stream type.
    if (defaults.GetName() == IPreset::KEY_FORMAT) {
        defaults.RemoveChild(IPreset::KEY_STREAMS);
    }
    CollectLeaves(defaults, "", settings);
    Conf::IDataHelper::Constraints constraints;
    helper.GetConstraints(constraints);
    std::set<std::string> placed;
    for (Setting& setting : settings) {
        auto it = constraints.find(setting.key);
        if (it != constraints.end()) {
            setting.constraint = it->second;
            placed.insert(it->first);
        }
    }
    for (const auto& [key, constraint] : constraints) {
        if (placed.count(key) == 0) {
            settings.push_back({key, std::nullopt, constraint});
        }
    }
    return settings;
}

std::vector<Rule> Rules(const Conf::IDataHelper& helper) {
    Conf::IDataHelper::ValidationRules list;
    helper.GetValidationRules(list);
    std::vector<Rule> rules;
    for (const auto& entry : list) {
        if (entry.second) {
            rules.push_back({entry.second->GetFirstPath(), entry.second->GetFirstConstraint(),
                             entry.second->GetSecondPath(), entry.second->GetSecondConstraint()});
        }
    }
    return rules;
}

std::string Description(const Conf::IPropertyConstraint& constraint, const std::string& key) {
    std::string description;
    try {
        description = constraint.Description(key);
    } catch (const std::exception&) {
        return {};
    }
    return description.empty() ? description : Core::GetLocalizationManagerForDomain("core").Translate(description);
}

// What a person is shown: "must be" and the admitted values or range, else the constraint's words.
std::string Demand(const Conf::ConstraintPtr& constraint, const std::string& key) {
    if (!constraint) {
        return "may be any value";
    }
    const std::string admitted = AdmittedText(Probe(*constraint));
    if (!admitted.empty()) {
        return "must be " + admitted;
    }
    return Description(*constraint, key).empty() ? kUnlisted : ConstraintText(*constraint, key);
}

std::string Condition(const Conf::ConstraintPtr& constraint) {
    const std::string admitted = constraint ? AdmittedText(Probe(*constraint)) : std::string();
    return admitted.empty() ? "holds" : "is " + admitted;
}

std::string Scope(Catalogue::Kind kind) {
    switch (kind) {
        case Catalogue::FORMAT:
            return "paths from the format node; " + IPreset::KEY_STREAMS + IPreset::INDEX +
                   "TYPE/... means that path in every stream of that type";
        case Catalogue::AUDIO_CODEC:
            return "paths from the stream's " + IPreset::KEY_FILTER_AUDIO_CODEC + " node";
        case Catalogue::VIDEO_CODEC:
            return "paths from the stream's " + IPreset::KEY_FILTER_VIDEO_CODEC + " node";
        case Catalogue::FILTER:
            break;
    }
    return "paths from the filter's node";
}

const char* JsonTypeName(PropertyTypes type) {
    return type == TYPE_CONTAINER ? "object" : PropertyTypeName(type);
}

std::optional<PropertyTypes> SettingType(const Setting& setting, const Admitted& admitted) {
    if (setting.byDefault) {
        return setting.byDefault->GetType();
    }
    if (!admitted.values.empty()) {
        return admitted.values.front().second.GetType();
    }
    if (admitted.minimum) {
        return admitted.minimum->GetType();
    }
    return std::nullopt;
}

// The admitted values, range and words of a constraint, as members of object.
void DescribeInto(Json& object, const Conf::ConstraintPtr& constraint, const std::string& key) {
    if (!constraint) {
        return;
    }
    const Admitted admitted = Probe(*constraint);
    if (!admitted.values.empty()) {
        Json values = Json::array();
        for (const auto& [label, value] : admitted.values) {
            values.push_back(Json{{"label", label}, {"value", JsonFromProperty(value)}});
        }
        object["values"] = std::move(values);
    }
    if (admitted.IsRange()) {
        Json range = Json::object();
        if (admitted.minimum) {
            range["min"] = JsonFromProperty(*admitted.minimum);
        }
        if (admitted.maximum) {
            range["max"] = JsonFromProperty(*admitted.maximum);
        }
        if (admitted.step) {
            range["step"] = JsonFromProperty(*admitted.step);
        }
        object["range"] = std::move(range);
    }
    const std::string description = Description(*constraint, key);
    if (!description.empty()) {
        object["description"] = description;
    } else if (admitted.values.empty() && !admitted.IsRange()) {
        object["unlisted"] = true;
    }
}

}  // namespace

std::string OptionsText(const Catalogue& catalogue, Catalogue::Kind kind, const std::string& name) {
    const auto helper = catalogue.Get(kind, name, "NAME");
    std::string text = Catalogue::KindName(kind) + " " + name + (catalogue.Automatic() ? " (automatic)" : "") + "\n";
    text += "settings (" + Scope(kind) + "):\n";
    for (const Setting& setting : Settings(*helper)) {
        text += "  " + setting.key;
        if (setting.byDefault) {
            text += " = " + DisplayValue(*setting.byDefault);
        }
        if (setting.constraint) {
            text += ": " + Demand(setting.constraint, setting.key);
        }
        text += "\n";
    }
    const std::vector<Rule> rules = Rules(*helper);
    if (!rules.empty()) {
        text += "rules (paths from the stream node):\n";
    }
    for (const Rule& rule : rules) {
        text += "  ";
        if (rule.first && !rule.firstPath.empty()) {
            text += "when " + rule.firstPath + " " + Condition(rule.first) + ": ";
        }
        const std::string demand = Demand(rule.second, rule.secondPath);
        const bool worded = demand.rfind("must be ", 0) != 0 && demand.rfind("may be ", 0) != 0;
        text += rule.secondPath + (worded ? ": " : " ") + demand + "\n";
    }
    return text;
}

Json OptionsJson(const Catalogue& catalogue, Catalogue::Kind kind, const std::string& name) {
    const auto helper = catalogue.Get(kind, name, "NAME");
    const std::string everyStream = IPreset::KEY_STREAMS + IPreset::INDEX;
    Json settings = Json::array();
    for (const Setting& setting : Settings(*helper)) {
        Json entry = Json::object();
        entry["path"] = setting.key;
        if (setting.key.compare(0, everyStream.size(), everyStream) == 0) {
            const std::string rest = setting.key.substr(everyStream.size());
            const std::string::size_type slash = rest.find(Core::Property::SEPARATOR);
            entry["in_every_stream"] = rest.substr(0, slash);
            entry["stream_path"] = slash == std::string::npos ? std::string() : rest.substr(slash + 1);
        }
        const Admitted admitted = setting.constraint ? Probe(*setting.constraint) : Admitted();
        if (const auto type = SettingType(setting, admitted)) {
            entry["type"] = JsonTypeName(*type);
        }
        if (setting.byDefault) {
            entry["default"] = JsonFromProperty(*setting.byDefault);
        }
        DescribeInto(entry, setting.constraint, setting.key);
        settings.push_back(std::move(entry));
    }
    Json rules = Json::array();
    for (const Rule& rule : Rules(*helper)) {
        Json entry = Json::object();
        if (rule.first && !rule.firstPath.empty()) {
            Json when = Json{{"path", rule.firstPath}};
            DescribeInto(when, rule.first, rule.firstPath);
            entry["when"] = std::move(when);
        }
        Json then = Json{{"path", rule.secondPath}};
        DescribeInto(then, rule.second, rule.secondPath);
        entry["then"] = std::move(then);
        rules.push_back(std::move(entry));
    }
    Json document = Json::object();
    document["kind"] = Catalogue::KindName(kind);
    document["name"] = name;
    document["automatic"] = catalogue.Automatic();
    document["settings"] = std::move(settings);
    document["rules"] = std::move(rules);
    return document;
}

}  // namespace Tervan::Job
