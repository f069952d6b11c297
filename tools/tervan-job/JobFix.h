#pragma once

#include "Job.h"
#include "JobCheck.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace Tervan::Job {

struct Change {
    std::string path;    // from the settings root
    std::string before;  // as displayed; "(missing)" when the setting was absent
    std::string after;   // "(removed)" when the setting is gone
    std::string reason;  // what demanded it

    std::string Text() const;
};

struct FixReport {
    std::vector<Change> changes;
    std::vector<std::string> notes;    // corrections that a helper refused
    std::vector<Violation> remaining;  // what nothing could fix
};

// Edits a job through its helpers and records every change with what demanded it.
class JobEditor {
public:
    explicit JobEditor(Job& job);

    // The codec's defaults in place of the stream's codec node; the stream's frame
    // size, rate and audio format are kept.
    void ReplaceCodec(const StreamRef& stream, const std::string& codecId, const std::string& reason);
    // Adds the filters the codec requires and fills the values held on both sides:
    // from the other side, else from the filter's defaults, else the codec's first admitted value.
    void Complete(const StreamRef& stream);
    // The format's settings, then each stream until nothing changes: completion, the
    // codec's and the format's corrections, constraint repairs, rule repairs, keeping
    // both sides of each value in step after every step.
    void Fix();

    // Runs step on the stream and records what it changed under reason.
    void Record(const StreamRef& stream, const std::string& reason, const std::function<void()>& step);
    void Note(const std::string& note) { m_report.notes.push_back(note); }

    FixReport& Report() { return m_report; }
    const Governance& Helpers() const { return m_governance; }

private:
    using Reasons = std::map<std::string, std::string>;

    void RecordAt(Core::Property& node, const std::string& base, const std::function<std::string(Reasons&)>& step);
    void ReplaceCodecQuietly(const StreamRef& stream, const std::string& codecId);
    void FixFormatSettings();
    void FixStream(const StreamRef& stream);
    void KeepInStep(const StreamRef& stream);
    void CorrectByCodec(const StreamRef& stream);
    void CorrectByFormat(const StreamRef& stream);
    void FixSites(const StreamRef& stream);
    void FixRules(const StreamRef& stream);
    // Why a helper's correction changes what it changes: that helper's own violations.
    Reasons ViolationReasons(const StreamRef& stream, const std::string& source) const;

    Job& m_job;
    Governance m_governance;
    FixReport m_report;
};

// Repairs a job. A job that is not one, or that lacks a setting a rule needs and no
// side or default can supply, is an InputError and is left untouched.
FixReport FixJob(Job& job);

}  // namespace Tervan::Job
