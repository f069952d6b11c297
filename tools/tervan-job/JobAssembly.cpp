#include "JobAssembly.h"

#include "Admitted.h"
#include "Catalogue.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IPreset.h"

#include <boost/algorithm/string/join.hpp>

namespace Tervan::Job {
namespace {

using Conf::IPreset;

std::string FirstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

void ChooseCodec(JobEditor& editor, Job& job, bool audio, const std::string& codecId, const std::string& option) {
    if (codecId.empty()) {
        return;
    }
    bool found = false;
    const std::vector<ConstraintSite> sites = editor.Helpers().FormatSites(job);
    for (const StreamRef& stream : Streams(job)) {
        if (stream.audio != audio) {
            continue;
        }
        found = true;
        const std::string codecIdPath =
            JoinPath(JoinPath(stream.path, stream.CodecKey()), Conf::IFormatCodec::TAG_CODEC_ID);
        editor.Helpers().Helpers().Codec(audio, codecId, option);
        for (const ConstraintSite& site : sites) {
            if (site.path == codecIdPath && !Admits(*site.constraint, Core::Property("", codecId), option)) {
                throw InputError(option, editor.Helpers().FormatLabel() + " does not carry " + codecId +
                                             "; it carries " + AdmittedText(Probe(*site.constraint)));
            }
        }
        editor.ReplaceCodec(stream, codecId, "chosen");
    }
    if (!found) {
        throw InputError(option, editor.Helpers().FormatLabel() + " has no " +
                                     (audio ? IPreset::STREAM_TYPE_AUDIO : IPreset::STREAM_TYPE_VIDEO) + " stream");
    }
}

void ValidatePresetStream(const Core::Property& stream, const std::string& path) {
    const Core::Property* type = stream.FindChild(IPreset::KEY_TYPE_ID);
    if (stream.GetType() != TYPE_CONTAINER || type == nullptr || type->GetType() != TYPE_STRING ||
        (type->GetString() != IPreset::STREAM_TYPE_AUDIO && type->GetString() != IPreset::STREAM_TYPE_VIDEO)) {
        throw InputError(path, "expected a stream with \"" + IPreset::KEY_TYPE_ID + "\" \"" +
                                   IPreset::STREAM_TYPE_AUDIO + "\" or \"" + IPreset::STREAM_TYPE_VIDEO + "\"");
    }
    const bool audio = type->GetString() == IPreset::STREAM_TYPE_AUDIO;
    const std::string& codecKey = audio ? IPreset::KEY_FILTER_AUDIO_CODEC : IPreset::KEY_FILTER_VIDEO_CODEC;
    for (const Core::Property& child : stream) {
        const std::string& name = child.GetName();
        const std::string childPath = JoinPath(path, name);
        if (name == IPreset::KEY_TYPE_ID) {
            continue;
        }
        if (name == codecKey) {
            const Core::Property* id = child.FindChild(Conf::IFormatCodec::TAG_CODEC_ID);
            if (id == nullptr || id->GetType() != TYPE_STRING) {
                throw InputError(JoinPath(childPath, Conf::IFormatCodec::TAG_CODEC_ID),
                                 "expected the codec id, a string");
            }
        } else if (!Catalogue::IsFilter(name, audio)) {
            throw InputError(childPath, "unknown filter; " + type->GetString() + " streams of a preset hold " +
                                            codecKey + " and the filters " +
                                            boost::algorithm::join(Catalogue::FilterNames(audio), ", "));
        } else if (child.GetType() != TYPE_CONTAINER) {
            throw InputError(childPath, "expected an object holding the filter's settings");
        }
    }
}

const Core::Property* PresetStreamFor(const Core::Property& streams, const StreamRef& stream) {
    const std::string& type = stream.audio ? IPreset::STREAM_TYPE_AUDIO : IPreset::STREAM_TYPE_VIDEO;
    const Core::Property* named = streams.FindChild(stream.name);
    if (named != nullptr && named->ChildByPath(IPreset::KEY_TYPE_ID).GetString() == type) {
        return named;
    }
    for (const Core::Property& candidate : streams) {
        if (candidate.ChildByPath(IPreset::KEY_TYPE_ID).GetString() == type) {
            return &candidate;
        }
    }
    return nullptr;
}

void ApplyToStream(JobEditor& editor, const StreamRef& stream, const Core::Property& preset, const std::string& where,
                   const std::string& reason) {
    const std::string& codecKey = stream.CodecKey();
    const Core::Property* codec = preset.FindChild(codecKey);
    if (codec != nullptr) {
        const std::string& codecId = codec->ChildByPath(Conf::IFormatCodec::TAG_CODEC_ID).GetString();
        if (codecId != stream.CodecId()) {
            editor.Helpers().Helpers().Codec(stream.audio, codecId,
                                             JoinPath(JoinPath(where, codecKey), Conf::IFormatCodec::TAG_CODEC_ID));
            editor.ReplaceCodec(stream, codecId, reason);
        }
    }
    editor.Complete(stream);
    editor.Record(stream, reason, [&] {
        // Filters first: they carry the frame and the audio format into the codec node,
        // from which a codec's preset computes its bitrate.
        for (const Core::Property& child : preset) {
            if (Catalogue::IsFilter(child.GetName(), stream.audio)) {
                const std::string& name = child.GetName();
                const auto filter = editor.Helpers().Helpers().Get(Catalogue::FILTER, name, JoinPath(where, name));
                ExpectShape(child, filter->GetDefaults(), JoinPath(where, name));
                // A preset may name only some of the filter's settings; the job has the rest.
                Core::Property settings = (*stream.node)[name];
                MergeInto(settings, child);
                filter->ApplyPresetSettings(settings, stream.Codec());
                (*stream.node)[name] = std::move(settings);
            }
        }
        if (codec != nullptr) {
            const auto helper = editor.Helpers().Codec(stream);
            ExpectShape(*codec, helper->GetDefaults(), JoinPath(where, codecKey));
            helper->ApplyPresetSettings(*codec, stream.Codec());
        }
    });
}

}  // namespace

void MergeInto(Core::Property& target, Core::Property source) {
    // source is ours: its children move instead of being copied a second time.
    for (unsigned long i = 0; i < source.Count(); ++i) {
        Core::Property& child = source[i];
        Core::Property* existing = target.FindChild(child.GetName());
        if (existing == nullptr) {
            target.SetChild(child.GetName(), std::move(child));
        } else if (existing->GetType() == TYPE_CONTAINER && child.GetType() == TYPE_CONTAINER) {
            MergeInto(*existing, std::move(child));
        } else {
            // Found by its name, so the name it takes over is the one it has.
            *existing = std::move(child);
        }
    }
}

Job NewJob(const NewJobRequest& request, FixReport& report) {
    const Catalogue catalogue(request.automatic);
    Job job;
    job.formatName = request.format;
    job.automatic = request.automatic;
    job.settings = catalogue.Get(Catalogue::FORMAT, request.format, "FORMAT")->GetDefaults();
    ValidateJob(job);
    JobEditor editor(job);
    ChooseCodec(editor, job, false, request.videoCodec, "--video");
    ChooseCodec(editor, job, true, request.audioCodec, "--audio");
    for (const StreamRef& stream : Streams(job)) {
        editor.ReplaceCodec(stream, stream.CodecId(), "defaults");
    }
    editor.Fix();
    report = editor.Report();
    return job;
}

Core::Property ReadPreset(const std::string& file) {
    try {
        const Json document = ParseJson(ReadTextFile(file), IPreset::KEY_FORMAT);
        if (!document.is_object() || !document.contains(IPreset::KEY_FORMAT)) {
            throw InputError("", "not a preset: expected an object with \"" + IPreset::KEY_FORMAT + "\"");
        }
        Core::Property preset = PropertyFromJson(document.at(IPreset::KEY_FORMAT), IPreset::KEY_FORMAT, "");
        const Core::Property* streams = preset.FindChild(IPreset::KEY_STREAMS);
        if (preset.GetType() != TYPE_CONTAINER || streams == nullptr || streams->GetType() != TYPE_CONTAINER) {
            throw InputError(IPreset::KEY_STREAMS, "missing; expected the preset's streams");
        }
        for (const Core::Property& stream : *streams) {
            ValidatePresetStream(stream, JoinPath(IPreset::KEY_STREAMS, stream.GetName()));
        }
        return preset;
    } catch (const InputError& e) {
        const std::string message = e.what();
        throw InputError(message.rfind(file + ": ", 0) == 0 ? "" : file, message);
    }
}

FixReport ApplyPreset(Job& job, const Core::Property& preset, const std::string& presetFile,
                      const std::optional<std::string>& onlyStream) {
    JobEditor editor(job);
    const Core::Property& presetStreams = preset.ChildByPath(IPreset::KEY_STREAMS);
    bool found = false;
    for (const StreamRef& stream : Streams(job)) {
        if (onlyStream && stream.name != *onlyStream) {
            continue;
        }
        found = true;
        const Core::Property* source = PresetStreamFor(presetStreams, stream);
        if (source == nullptr) {
            if (onlyStream) {
                throw InputError(presetFile, "no " + std::string(stream.audio ? "audio" : "video") +
                                                 " stream for stream " + stream.name);
            }
            continue;
        }
        const std::string where = presetFile + ": " + JoinPath(IPreset::KEY_STREAMS, source->GetName());
        try {
            ApplyToStream(editor, stream, *source, where, "preset " + presetFile);
        } catch (const InputError&) {
            throw;
        } catch (const std::exception& e) {
            throw InputError(where, FirstLine(e.what()));
        }
    }
    if (onlyStream && !found) {
        throw InputError("--stream", "the job has no stream " + *onlyStream);
    }
    editor.Fix();
    return editor.Report();
}

}  // namespace Tervan::Job
