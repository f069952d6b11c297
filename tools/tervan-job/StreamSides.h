#pragma once

#include "Core/Property.h"

#include <string>
#include <string_view>
#include <vector>

namespace Tervan::Job {

// A quantity that a stream holds twice: in its codec node, where corrections act and
// encoders read it, and in a filter's settings, where the rules read it (the audio
// resampler's rate, format and layout; the resizer's frame size; the frame-rate
// filter's rate). Paths are relative to the stream node.
struct Twin {
    bool audio;
    std::string codecPath;
    std::string filterPath;
    PropertyTypes type;
    // False for values the codec node only needs as a starting point (the source
    // frame's aspect that resizing reads); those are never compared.
    bool keptInStep;
    // The filter value that means "as the source has it", or none.
    const Core::Property* automaticValue;

    const std::string& FilterName() const;
};

const std::vector<Twin>& Twins();
const Twin* TwinAt(bool audio, const std::string& path);

// Whether value is the filter's automatic value for the twin.
bool IsAutomatic(const Twin& twin, const Core::Property& value);

// Sets the node at path, creating containers on the way; returns it. The value is
// taken by copy, so it may be a node of the same tree.
Core::Property& SetAt(Core::Property& root, std::string_view path, Core::Property value);

// The stream as rules should read it: a value missing on one side is taken from the other.
Core::Property RuleView(const Core::Property& stream, bool audio);

}  // namespace Tervan::Job
