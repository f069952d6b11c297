#pragma once

#include "Job.h"
#include "JobFix.h"

#include <optional>
#include <string>

namespace Tervan::Job {

struct NewJobRequest {
    std::string format;
    std::string videoCodec;  // empty: the format's default
    std::string audioCodec;
    bool automatic = false;
};

// Puts source's children into target; containers on both sides are merged, any
// other child replaces the one of its name.
void MergeInto(Core::Property& target, Core::Property source);

// The format's default tree with every stream's codec in full and the filters it
// requires, corrected.
Job NewJob(const NewJobRequest& request, FixReport& report);

// Applies a preset document (a job's shape: streams holding a codec node and filter
// settings) to every stream of the job, or to one, through the helpers, then
// corrects the job. A job stream takes the preset stream of its name when that has
// its type, else the first preset stream of its type.
FixReport ApplyPreset(Job& job, const Core::Property& preset, const std::string& presetFile,
                      const std::optional<std::string>& onlyStream);

// The settings of a preset document: {"format": {...}}; "format_name" and "auto" may be present and are ignored.
Core::Property ReadPreset(const std::string& file);

}  // namespace Tervan::Job
