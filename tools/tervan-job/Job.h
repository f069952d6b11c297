#pragma once

#include "Core/Property.h"
#include "JobJson.h"

#include <string>
#include <vector>

namespace Tervan::Job {

// A conversion job: the settings tree rooted at the format node, and the registry
// name of the format that governs it (the tree alone does not tell MP4 from iPod or
// WebM from Matroska). Automatic jobs are governed by the automatic-codec helpers.
struct Job {
    std::string formatName;
    bool automatic = false;
    Core::Property settings;
};

// The document members.
struct JobKeys {
    static const char* const FORMAT_NAME;
    static const char* const AUTOMATIC;
};

// The envelope and the JSON mapping only; see ValidateJob for the shape of the tree.
Job JobFromJson(const Json& document);
Json JobToJson(const Job& job);
// Reads, parses and validates; errors name the file.
Job ReadJob(const std::string& file);

// One stream of a job, as the helpers see it.
struct StreamRef {
    std::string name;
    std::string path;  // from the settings root, e.g. streams/1
    bool audio = false;
    Core::Property* node = nullptr;

    const std::string& CodecKey() const;
    Core::Property& Codec() const { return (*node)[CodecKey()]; }
    const std::string& CodecId() const;
};

std::string JoinPath(const std::string& path, const std::string& name);

// Refuses a tree that is not a job: no streams, a stream of unknown type, a stream
// without its codec node or codec id, a stream child that is neither its codec node
// nor a filter's settings.
void ValidateJob(const Job& job);
// Refuses a node whose settings differ in type from a helper's defaults for them; path
// names the node in the refusal.
void ExpectShape(const Core::Property& node, const Core::Property& defaults, const std::string& path);
std::vector<StreamRef> Streams(Job& job);

}  // namespace Tervan::Job
