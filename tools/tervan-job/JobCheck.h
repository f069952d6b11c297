#pragma once

#include "Catalogue.h"
#include "Conf/Interfaces/IDataHelper.h"
#include "Job.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tervan::Job {

// One constraint at one place of a job.
struct ConstraintSite {
    std::string path;  // relative to the stream, or to the settings root for the format's own settings
    std::string name;  // the setting as the helper calls it
    Conf::ConstraintPtr constraint;
    std::string source;                      // the helper that demands it, e.g. "codec aac"
    std::optional<Core::Property> fallback;  // the helper's default for the setting
};

struct RuleSite {
    boost::intrusive_ptr<Conf::IValidationRule> rule;
    std::string source;
};

// Which helpers govern which parts of a job, and what they demand there.
//
// Constraint keys are relative to the helper's own node: a codec's to its codec node
// (a key that starts with a filter's name to the stream), a filter's to its
// settings, a format's to the settings root, where "streams/@<type>/rest" means rest
// in every stream of that type. Rules read a stream node.
class Governance {
public:
    explicit Governance(const Job& job);

    const Catalogue& Helpers() const { return m_catalogue; }
    const Conf::DataHelperPtr& Format() const { return m_format; }
    const std::string& FormatLabel() const { return m_formatLabel; }

    Conf::DataHelperPtr Codec(const StreamRef& stream) const;
    static std::string CodecLabel(const StreamRef& stream);

    // The settings the format fixes, from the settings root: its container identifier and
    // its stream limits, as its defaults hold them.
    std::vector<std::pair<std::string, Core::Property>> FixedSettings() const;
    // Paths from the settings root; given only, the sites of other streams are left out.
    // Fallbacks cost a copy of the helper's defaults; only repairs need them.
    std::vector<ConstraintSite> FormatSites(Job& job, bool withFallbacks = true, const StreamRef* only = nullptr) const;
    // Paths from the stream node: the codec's, then each present filter's.
    std::vector<ConstraintSite> StreamSites(const StreamRef& stream, bool withFallbacks = true) const;
    // The codec's, each present filter's, then the format's.
    std::vector<RuleSite> StreamRules(const StreamRef& stream) const;
    // What the codec or filter that owns path (from the stream node) holds there by default.
    std::optional<Core::Property> DefaultAt(const StreamRef& stream, const std::string& path) const;
    // Whether value, at path from the stream node, is a filter's automatic value in an
    // automatic job: the choice is left to the converter, so only the rules, which the
    // automatic helpers widen, judge it; a codec's own list of that setting does not.
    bool IsAutomaticChoice(const StreamRef& stream, const std::string& path, const Core::Property& value) const;

private:
    Catalogue m_catalogue;
    Conf::DataHelperPtr m_format;
    std::string m_formatLabel;
};

struct Violation {
    std::string path;         // from the settings root
    std::string value;        // as displayed; empty when the setting is missing
    std::string description;  // what is demanded
    std::string source;       // who demands it
    std::string condition;    // when a rule demands it: "when ... is ..."
    bool missing = false;     // a rule needs a setting that the job lacks

    std::string Text() const;
    // "source (condition): description", for the reason of a change.
    std::string Reason() const;
};

// "when video_codec/codec_id is mpeg2video", or empty for a rule tied to no other setting.
std::string RuleCondition(const Conf::IValidationRule& rule);
// Whether rule concerns the stream seen as view: one tied to a setting the stream lacks
// is about another kind of stream.
bool ConcernsStream(const Conf::IValidationRule& rule, const Core::Property& view);

// Judges one value; a value of the wrong type is an InputError naming path.
bool Admits(const Conf::IPropertyConstraint& constraint, const Core::Property& value, const std::string& path);

// Every violation, in document order. Strictly, a rule that needs a missing
// setting is an InputError; otherwise it is listed as a missing violation.
std::vector<Violation> CheckJob(Job& job, bool strict);
std::vector<Violation> CheckStream(const Governance& governance, const StreamRef& stream);

}  // namespace Tervan::Job
