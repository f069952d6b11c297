#include "Job.h"

#include "Catalogue.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IPreset.h"
#include "StreamSides.h"

#include <boost/algorithm/string/join.hpp>

namespace Tervan::Job {

const char* const JobKeys::FORMAT_NAME = "format_name";
const char* const JobKeys::AUTOMATIC = "auto";

namespace {

using Conf::IPreset;

std::string Found(const Core::Property& value) {
    return value.GetType() == TYPE_CONTAINER ? "an object" : TypeName(value.GetType()) + " " + DisplayValue(value);
}

void ExpectType(const Core::Property& value, PropertyTypes type, const std::string& path) {
    if (value.GetType() != type) {
        throw InputError(path, "expected " + TypeName(type) + ", found " + Found(value));
    }
}

const Core::Property& RequiredChild(const Core::Property& node, const std::string& name, PropertyTypes type,
                                    const std::string& path, const std::string& what) {
    const Core::Property* child = node.FindChild(name);
    if (child == nullptr) {
        throw InputError(JoinPath(path, name), "missing; expected " + what);
    }
    ExpectType(*child, type, JoinPath(path, name));
    return *child;
}

void ValidateStream(const Core::Property& stream, const std::string& path, const Catalogue& catalogue) {
    ExpectType(stream, TYPE_CONTAINER, path);
    const std::string& type =
        RequiredChild(stream, IPreset::KEY_TYPE_ID, TYPE_STRING, path, "the stream type").GetString();
    if (type != IPreset::STREAM_TYPE_AUDIO && type != IPreset::STREAM_TYPE_VIDEO) {
        throw InputError(JoinPath(path, IPreset::KEY_TYPE_ID), "expected \"" + IPreset::STREAM_TYPE_AUDIO + "\" or \"" +
                                                                   IPreset::STREAM_TYPE_VIDEO + "\", found " +
                                                                   DisplayValue(stream[IPreset::KEY_TYPE_ID]));
    }
    const bool audio = type == IPreset::STREAM_TYPE_AUDIO;
    const std::string& codecKey = audio ? IPreset::KEY_FILTER_AUDIO_CODEC : IPreset::KEY_FILTER_VIDEO_CODEC;
    const std::string codecPath = JoinPath(path, codecKey);
    const Core::Property& codec = RequiredChild(stream, codecKey, TYPE_CONTAINER, path, "the codec's settings");
    const std::string& codecId =
        RequiredChild(codec, Conf::IFormatCodec::TAG_CODEC_ID, TYPE_STRING, codecPath, "the codec id").GetString();
    const auto helper = catalogue.Codec(audio, codecId, JoinPath(codecPath, Conf::IFormatCodec::TAG_CODEC_ID));
    ExpectShape(codec, helper->GetDefaults(), codecPath);

    for (const Core::Property& child : stream) {
        const std::string& name = child.GetName();
        if (name == IPreset::KEY_TYPE_ID || name == codecKey) {
            continue;
        }
        if (!Catalogue::IsFilter(name, audio)) {
            std::string message = "unknown filter; " + type + " streams hold ";
            message.append(IPreset::KEY_TYPE_ID).append(", ").append(codecKey).append(" and the filters ");
            message += boost::algorithm::join(Catalogue::FilterNames(audio), ", ");
            throw InputError(JoinPath(path, name), message);
        }
        ExpectShape(child, catalogue.Get(Catalogue::FILTER, name, JoinPath(path, name))->GetDefaults(),
                    JoinPath(path, name));
    }
    for (const Twin& twin : Twins()) {
        if (twin.audio != audio) {
            continue;
        }
        for (const std::string* side : {&twin.codecPath, &twin.filterPath}) {
            if (const Core::Property* value = stream.FindChildByPath(*side)) {
                ExpectType(*value, twin.type, JoinPath(path, *side));
            }
        }
    }
}

}  // namespace

std::string JoinPath(const std::string& path, const std::string& name) {
    if (path.empty()) {
        return name;
    }
    // One allocation: checks join a path for every setting they look at.
    std::string joined;
    joined.reserve(path.size() + Core::Property::SEPARATOR.size() + name.size());
    return joined.append(path).append(Core::Property::SEPARATOR).append(name);
}

const std::string& StreamRef::CodecKey() const {
    return audio ? IPreset::KEY_FILTER_AUDIO_CODEC : IPreset::KEY_FILTER_VIDEO_CODEC;
}

const std::string& StreamRef::CodecId() const {
    return (*node)[CodecKey()][Conf::IFormatCodec::TAG_CODEC_ID].GetString();
}

Job JobFromJson(const Json& document) {
    if (!document.is_object()) {
        throw InputError("", std::string("not a job: expected an object with \"") + JobKeys::FORMAT_NAME + "\" and \"" +
                                 IPreset::KEY_FORMAT + "\"");
    }
    Job job;
    bool haveName = false;
    bool haveSettings = false;
    for (const auto& member : document.items()) {
        const std::string& key = member.key();
        if (key == JobKeys::FORMAT_NAME && member.value().is_string()) {
            job.formatName = member.value().get<std::string>();
            haveName = true;
        } else if (key == JobKeys::AUTOMATIC && member.value().is_boolean()) {
            job.automatic = member.value().get<bool>();
        } else if (key == IPreset::KEY_FORMAT && member.value().is_object()) {
            job.settings = PropertyFromJson(member.value(), IPreset::KEY_FORMAT, "");
            haveSettings = true;
        } else if (key == JobKeys::FORMAT_NAME || key == JobKeys::AUTOMATIC || key == IPreset::KEY_FORMAT) {
            throw InputError(key, key == JobKeys::FORMAT_NAME ? "expected a string naming a registered format"
                                  : key == JobKeys::AUTOMATIC ? "expected a boolean"
                                                              : "expected an object holding the settings");
        } else {
            throw InputError(key, std::string("unknown member; a job has \"") + JobKeys::FORMAT_NAME + "\", \"" +
                                      JobKeys::AUTOMATIC + "\" and \"" + IPreset::KEY_FORMAT + "\"");
        }
    }
    if (!haveName) {
        throw InputError(JobKeys::FORMAT_NAME, "missing; expected the name of a registered format");
    }
    if (!haveSettings) {
        throw InputError(IPreset::KEY_FORMAT, "missing; expected an object holding the settings");
    }
    return job;
}

Json JobToJson(const Job& job) {
    Json document = Json::object();
    document[JobKeys::FORMAT_NAME] = job.formatName;
    if (job.automatic) {
        document[JobKeys::AUTOMATIC] = true;
    }
    document[IPreset::KEY_FORMAT] = JsonFromProperty(job.settings);
    return document;
}

Job ReadJob(const std::string& file) {
    try {
        Job job = JobFromJson(ParseJson(ReadTextFile(file), IPreset::KEY_FORMAT));
        ValidateJob(job);
        return job;
    } catch (const InputError& e) {
        const std::string message = e.what();
        throw InputError(message.rfind(file + ": ", 0) == 0 ? "" : file, message);
    }
}

void ValidateJob(const Job& job) {
    const Catalogue catalogue(job.automatic);
    const auto format = catalogue.Get(Catalogue::FORMAT, job.formatName, JobKeys::FORMAT_NAME);
    Core::Property defaults = format->GetDefaults();
    defaults.RemoveChild(IPreset::KEY_STREAMS);
    ExpectShape(job.settings, defaults, "");

    const Core::Property& streams =
        RequiredChild(job.settings, IPreset::KEY_STREAMS, TYPE_CONTAINER, "", "the streams of the job");
    if (streams.Count() == 0) {
        throw InputError(IPreset::KEY_STREAMS, "empty; expected at least one stream");
    }
    for (const Core::Property& stream : streams) {
        ValidateStream(stream, JoinPath(IPreset::KEY_STREAMS, stream.GetName()), catalogue);
    }
}

// Every setting that the helper's defaults have must keep the defaults' type.
void ExpectShape(const Core::Property& node, const Core::Property& defaults, const std::string& path) {
    ExpectType(node, defaults.GetType(), path);
    for (const Core::Property& expected : defaults) {
        if (const Core::Property* child = node.FindChild(expected.GetName())) {
            ExpectShape(*child, expected, JoinPath(path, expected.GetName()));
        }
    }
}

std::vector<StreamRef> Streams(Job& job) {
    std::vector<StreamRef> streams;
    Core::Property& list = job.settings[IPreset::KEY_STREAMS];
    for (unsigned long i = 0; i < list.Count(); ++i) {
        Core::Property& stream = list[i];
        StreamRef ref;
        ref.name = stream.GetName();
        ref.path = JoinPath(IPreset::KEY_STREAMS, ref.name);
        ref.audio = stream[IPreset::KEY_TYPE_ID].GetString() == IPreset::STREAM_TYPE_AUDIO;
        ref.node = &stream;
        streams.push_back(ref);
    }
    return streams;
}

}  // namespace Tervan::Job
