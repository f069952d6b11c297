#include "StreamSides.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IFilterResize.h"
#include "Proc/IResample.h"
#include "Proc/IResize.h"
#include "Proc/SettingsFilterFrameRate.h"

#include <utility>

namespace Tervan::Job {
namespace {

using A = Conf::IFormatCodecAudio;
using V = Conf::IFormatCodecVideo;

std::string Path(std::initializer_list<const std::string*> names) {
    std::string path;
    for (const std::string* name : names) {
        path += (path.empty() ? "" : Core::Property::SEPARATOR) + *name;
    }
    return path;
}

std::vector<Twin> BuildTwins() {
    static const Core::Property autoRate("", -1LL);
    static const Core::Property autoLayout("", A::TAG_CH_LAYOUT_UNKNOWN);
    static const Core::Property autoFrameRate("", Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE);
    const std::string& audioCodec = Conf::IPreset::KEY_FILTER_AUDIO_CODEC;
    const std::string& videoCodec = Conf::IPreset::KEY_FILTER_VIDEO_CODEC;
    const std::string& resample = Proc::IFilterResample::CLASS_ID;
    const std::string& resize = Proc::IFilterResize::CLASS_ID;
    // media is audio, codec side, filter side, type, kept in step, filter's automatic value
    return {
        {true, Path({&audioCodec, &A::TAG_SAMPLE_RATE}),
         Path({&resample, &Proc::IResample::CLASS_ID, &A::TAG_SAMPLE_RATE}), TYPE_INT64, true, &autoRate},
        {true, Path({&audioCodec, &A::TAG_SAMPLE_FORMAT}),
         Path({&resample, &Proc::IResample::CLASS_ID, &A::TAG_SAMPLE_FORMAT}), TYPE_STRING, true, nullptr},
        {true, Path({&audioCodec, &A::TAG_LAYOUT}), Path({&resample, &Proc::IResample::CLASS_ID, &A::TAG_LAYOUT}),
         TYPE_STRING, true, &autoLayout},
        {false, Path({&videoCodec, &V::TAG_WIDTH}), Path({&resize, &Proc::IResize::CLASS_ID, &V::TAG_WIDTH}),
         TYPE_INT64, true, nullptr},
        {false, Path({&videoCodec, &V::TAG_HEIGHT}), Path({&resize, &Proc::IResize::CLASS_ID, &V::TAG_HEIGHT}),
         TYPE_INT64, true, nullptr},
        {false, Path({&videoCodec, &V::TAG_FPS}), Path({&Proc::IFilterFrameRate::CLASS_ID, &V::TAG_FPS}), TYPE_RATIONAL,
         true, &autoFrameRate},
        {false, Path({&videoCodec, &V::TAG_ASPECTX}), Path({&resize, &Proc::IResize::CLASS_ID, &V::TAG_ASPECTX}),
         TYPE_INT64, false, nullptr},
        {false, Path({&videoCodec, &V::TAG_ASPECTY}), Path({&resize, &Proc::IResize::CLASS_ID, &V::TAG_ASPECTY}),
         TYPE_INT64, false, nullptr},
    };
}

}  // namespace

const std::string& Twin::FilterName() const {
    static const std::string* const names[] = {&Proc::IFilterResample::CLASS_ID, &Proc::IFilterResize::CLASS_ID,
                                               &Proc::IFilterFrameRate::CLASS_ID};
    for (const std::string* name : names) {
        if (filterPath.compare(0, name->size() + 1, *name + Core::Property::SEPARATOR) == 0) {
            return *name;
        }
    }
    return filterPath;
}

const std::vector<Twin>& Twins() {
    static const std::vector<Twin> twins = BuildTwins();
    return twins;
}

const Twin* TwinAt(bool audio, const std::string& path) {
    for (const Twin& twin : Twins()) {
        if (twin.audio == audio && (twin.codecPath == path || twin.filterPath == path)) {
            return &twin;
        }
    }
    return nullptr;
}

bool IsAutomatic(const Twin& twin, const Core::Property& value) {
    return twin.automaticValue != nullptr && value == *twin.automaticValue;
}

Core::Property& SetAt(Core::Property& root, std::string_view path, Core::Property value) {
    Core::Property* node = &root;
    for (;;) {
        const std::string_view::size_type end = path.find(Core::Property::SEPARATOR);
        const std::string_view name = path.substr(0, end);
        if (end == std::string_view::npos) {
            return node->SetChild(std::string(name), std::move(value));
        }
        Core::Property* child = node->FindChild(name);
        node = child != nullptr ? child : &node->SetChild(std::string(name));
        path.remove_prefix(end + Core::Property::SEPARATOR.size());
    }
}

Core::Property RuleView(const Core::Property& stream, bool audio) {
    Core::Property view(stream);
    for (const Twin& twin : Twins()) {
        if (twin.audio != audio || !twin.keptInStep) {
            continue;
        }
        const Core::Property* codec = stream.FindChildByPath(twin.codecPath);
        const Core::Property* filter = stream.FindChildByPath(twin.filterPath);
        if (codec != nullptr && filter == nullptr) {
            SetAt(view, twin.filterPath, *codec);
        } else if (codec == nullptr && filter != nullptr) {
            SetAt(view, twin.codecPath, *filter);
        }
    }
    return view;
}

}  // namespace Tervan::Job
