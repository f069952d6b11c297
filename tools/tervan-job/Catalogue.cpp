#include "Catalogue.h"

#include "Conf/ConfException.h"
#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/Interfaces/IPreset.h"
#include "Job.h"
#include "JobJson.h"
#include "Media/MediaWrapper.h"
#include "Proc/IFilterAudioFormatter.h"
#include "Proc/IFilterAudioVolume.h"
#include "Proc/IFilterDeinterlace.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IFilterResize.h"
#include "Proc/IFilterVideoPreview.h"

#include <boost/algorithm/string/join.hpp>

#include <algorithm>
#include <iterator>

namespace Tervan::Job {
namespace {

struct FilterRow {
    const std::string* classId;
    bool audio;
};

// Filter class identifier, whether it runs on audio (else on video).
const FilterRow kFilters[] = {
    {&Proc::IFilterResample::CLASS_ID, true},       {&Proc::IFilterAudioVolume::CLASS_ID, true},
    {&Proc::IFilterAudioFormatter::CLASS_ID, true}, {&Proc::IFilterFrameRate::CLASS_ID, false},
    {&Proc::IFilterResize::CLASS_ID, false},        {&Proc::IFilterDeinterlace::CLASS_ID, false},
    {&Proc::IFilterVideoPreview::CLASS_ID, false},
};

bool IsKnownFilter(const std::string& name) {
    return std::any_of(std::begin(kFilters), std::end(kFilters),
                       [&name](const FilterRow& row) { return *row.classId == name; });
}

Conf::DataHelperPtr Lookup(const std::string& type, const std::string& name, bool automatic) {
    return automatic ? CreateDataHelperAuto(type, name) : CreateDataHelper(type, name);
}

}  // namespace

Conf::DataHelperPtr Catalogue::Get(Kind kind, const std::string& name, const std::string& where) const {
    if (kind != FILTER || IsKnownFilter(name)) {
        try {
            return Lookup(TypeKey(kind, name), name, m_automatic);
        } catch (const Conf::HelperException&) {
            // Reported below with the names that do exist.
        }
    }
    const std::string names = boost::algorithm::join(Names(kind), ", ");
    // A format may list a codec that libavcodec knows but no helper describes (dvvideo).
    if ((kind == AUDIO_CODEC || kind == VIDEO_CODEC) && Conf::CodecIDFromTextID(name) != 0) {
        throw InputError(where, KindName(kind) + " \"" + name +
                                    "\" has no helper, so its settings can be neither built nor judged; codecs "
                                    "with helpers: " +
                                    names);
    }
    throw InputError(where, "unknown " + KindName(kind) + " \"" + name + "\"; expected one of: " + names);
}

std::vector<std::string> Catalogue::Names(Kind kind) {
    std::vector<std::string> names;
    if (kind == FILTER) {
        for (const FilterRow& row : kFilters) {
            try {
                CreateDataHelper(*row.classId, std::string());
                names.push_back(*row.classId);
            } catch (const Conf::HelperException&) {
                // Not registered in this build.
            }
        }
        return names;
    }
    for (const auto& entry : GetAvailableDataHelpers(TypeKey(kind, std::string()))) {
        names.push_back(entry.first);
    }
    return names;
}

bool Catalogue::IsFilter(const std::string& name, bool audio) {
    for (const FilterRow& row : kFilters) {
        if (*row.classId == name) {
            return row.audio == audio;
        }
    }
    return false;
}

std::vector<std::string> Catalogue::FilterNames(bool audio) {
    std::vector<std::string> names;
    for (const FilterRow& row : kFilters) {
        if (row.audio == audio) {
            names.push_back(*row.classId);
        }
    }
    return names;
}

std::string Catalogue::KindName(Kind kind) {
    switch (kind) {
        case FORMAT:
            return "format";
        case AUDIO_CODEC:
            return "audio codec";
        case VIDEO_CODEC:
            return "video codec";
        case FILTER:
            break;
    }
    return "filter";
}

const std::string& Catalogue::TypeKey(Kind kind, const std::string& name) {
    switch (kind) {
        case FORMAT:
            return Conf::IPreset::KEY_FORMAT;
        case AUDIO_CODEC:
            return Conf::IPreset::KEY_FILTER_AUDIO_CODEC;
        case VIDEO_CODEC:
            return Conf::IPreset::KEY_FILTER_VIDEO_CODEC;
        case FILTER:
            break;
    }
    return name;
}

std::string HelperLabel(Catalogue::Kind kind, const std::string& name) {
    switch (kind) {
        case Catalogue::FORMAT:
            return "format " + name;
        case Catalogue::AUDIO_CODEC:
        case Catalogue::VIDEO_CODEC:
            return "codec " + name;
        case Catalogue::FILTER:
            break;
    }
    return "filter " + name;
}

}  // namespace Tervan::Job
