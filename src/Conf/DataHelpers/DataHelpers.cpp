#include "Conf/DataHelpers/DataHelpers.h"

#include "Conf/ConfException.h"
#include "Conf/DataHelpers/DataHelperAudioFormatter.h"
#include "Conf/DataHelpers/DataHelperAudioResample.h"
#include "Conf/DataHelpers/DataHelperAudioVolume.h"
#include "Conf/DataHelpers/DataHelperDeinterlace.h"
#include "Conf/DataHelpers/DataHelperVideoPreview.h"
#include "Conf/DataHelpers/DataHelperVideoResample.h"
#include "Conf/DataHelpers/DataHelperVideoResize.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IFilterAudioFormatter.h"
#include "Proc/IFilterAudioVolume.h"
#include "Proc/IFilterDeinterlace.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IFilterResize.h"
#include "Proc/IFilterVideoPreview.h"

#include <map>
#include <utility>
#include <vector>

// The tables are built while this library loads. Their keys and the helpers'
// constructors read only vocabulary constants, which live in the vocabulary and
// processing libraries this one links: the loader initialises those first, so the
// order is right whichever way this library is linked or opened.

using namespace Tervan;
using namespace Tervan::Conf;

namespace {

using Entries = std::vector<std::pair<std::string, DataHelperPtr>>;

// Where two entries share a key the first wins.
IDataHelper::DataHelperMap FillTable(const Entries& entries) {
    IDataHelper::DataHelperMap table;
    for (const auto& entry : entries) {
        table.emplace(entry.first, entry.second);
    }
    return table;
}

IDataHelper::DataHelperMap BuildFormatHelpers() {
    return FillTable({
    });
}

IDataHelper::DataHelperMap BuildAudioCodecHelpers() {
    return FillTable({
    });
}

IDataHelper::DataHelperMap BuildVideoCodecHelpers() {
    return FillTable({
    });
}

IDataHelper::DataHelperMap BuildFilterHelpers() {
    return FillTable({
        {Proc::IFilterResample::CLASS_ID, DataHelperAudioResample::Create()},
        {Proc::IFilterAudioVolume::CLASS_ID, DataHelperAudioVolume::Create()},
        {Proc::IFilterAudioFormatter::CLASS_ID, DataHelperAudioFormatter::Create()},
        {Proc::IFilterFrameRate::CLASS_ID, DataHelperVideoResample::Create()},
        {Proc::IFilterResize::CLASS_ID, DataHelperVideoResize::Create()},
        {Proc::IFilterDeinterlace::CLASS_ID, DataHelperDeinterlace::Create()},
        {Proc::IFilterVideoPreview::CLASS_ID, DataHelperVideoPreview::Create()},
    });
}

const IDataHelper::DataHelperMap formatHelpers = BuildFormatHelpers();
const IDataHelper::DataHelperMap audioCodecHelpers = BuildAudioCodecHelpers();
const IDataHelper::DataHelperMap videoCodecHelpers = BuildVideoCodecHelpers();
const IDataHelper::DataHelperMap filterHelpers = BuildFilterHelpers();
const std::map<std::string, std::string> formatFilterMap = {
    {IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO, IPreset::KEY_FILTER_AUDIO_CODEC},
    {IFormatCodecVideo::TAG_FORMAT_CODEC_VIDEO, IPreset::KEY_FILTER_VIDEO_CODEC},
};

const IDataHelper::DataHelperMap* FindTable(const std::string& type) {
    if (type == IPreset::KEY_FORMAT) {
        return &formatHelpers;
    }
    if (type == IPreset::KEY_FILTER_AUDIO_CODEC) {
        return &audioCodecHelpers;
    }
    if (type == IPreset::KEY_FILTER_VIDEO_CODEC) {
        return &videoCodecHelpers;
    }
    return nullptr;
}

}  // namespace

const IDataHelper::DataHelperMap& GetAvailableDataHelpers(const std::string& type) {
    if (const IDataHelper::DataHelperMap* table = FindTable(type)) {
        return *table;
    }
    BOOST_THROW_EXCEPTION(HelperException() << HelperException::TagClassIsNotFound(type));
}

const boost::intrusive_ptr<const IDataHelper> CreateDataHelper(const std::string& type, const std::string& name) {
    if (const IDataHelper::DataHelperMap* table = FindTable(type)) {
        auto it = table->find(name);
        if (it != table->end()) {
            return it->second;
        }
        // Paired as the contract states: the known type under TagClassIsFound, the missing name under TagTypeIsNotFound.
        BOOST_THROW_EXCEPTION(Core::AddStack(HelperException() << HelperException::TagClassIsFound(type)
                                                               << HelperException::TagTypeIsNotFound(name)));
    }
    auto alias = formatFilterMap.find(type);
    if (alias != formatFilterMap.end()) {
        return CreateDataHelper(alias->second, name);
    }
    auto filter = filterHelpers.find(type);
    if (filter != filterHelpers.end()) {
        return filter->second;
    }
    BOOST_THROW_EXCEPTION(Core::AddStack(HelperException() << HelperException::TagClassIsNotFound(type)));
}

void DataHelpersTest(const std::string& type) {
    for (const auto& entry : GetAvailableDataHelpers(type)) {
        // Only an exception is observable; the constraints themselves are discarded.
        IDataHelper::Constraints constraints;
        entry.second->GetConstraints(constraints);
    }
}
