#pragma once

#include "Conf/Interfaces/IDataHelper.h"

#include <string>
#include <vector>

namespace Tervan::Job {

// The registry as the tool uses it: lookups that fail with an InputError naming the
// place and what exists, and the automatic-codec helpers for automatic jobs.
class Catalogue {
public:
    enum Kind { FORMAT, AUDIO_CODEC, VIDEO_CODEC, FILTER };

    explicit Catalogue(bool automatic) : m_automatic(automatic) {}

    bool Automatic() const { return m_automatic; }

    // where names the setting that holds the name, for the error.
    Conf::DataHelperPtr Get(Kind kind, const std::string& name, const std::string& where) const;
    Conf::DataHelperPtr Codec(bool audio, const std::string& id, const std::string& where) const {
        return Get(audio ? AUDIO_CODEC : VIDEO_CODEC, id, where);
    }

    // Registered names of a kind, in registry order.
    static std::vector<std::string> Names(Kind kind);
    // The filters a stream of that kind may carry, registered or not.
    static bool IsFilter(const std::string& name, bool audio);
    static std::vector<std::string> FilterNames(bool audio);
    // "format", "audio codec", ... for messages.
    static std::string KindName(Kind kind);
    // The registry's type key of a kind; a filter's is its name.
    static const std::string& TypeKey(Kind kind, const std::string& name);

private:
    bool m_automatic;
};

// "codec aac", "format mp4", "filter resize": who demands something.
std::string HelperLabel(Catalogue::Kind kind, const std::string& name);

}  // namespace Tervan::Job
