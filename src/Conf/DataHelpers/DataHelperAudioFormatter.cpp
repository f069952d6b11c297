#include "Conf/DataHelpers/DataHelperAudioFormatter.h"

#include "Conf/Interfaces/IPreset.h"
#include "Proc/IAudioFormatter.h"
#include "Proc/IFilterAudioFormatter.h"
#include "Proc/ImplNames.h"

namespace Tervan::Conf {

namespace {

Core::Property Defaults() {
    Core::Property settings(Proc::IFilterAudioFormatter::CLASS_ID);
    settings.SetChild(Proc::IAudioFormatter::CLASS_ID);
    settings.SetChildT(Proc::IFilterAudioFormatter::PACKET_DURATION, 100000LL);
    settings[Proc::IAudioFormatter::CLASS_ID].SetChildT(IPreset::KEY_TYPE_ID, Proc::ImplNames::DEFAULT);
    return settings;
}

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioFormatter::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioFormatter());
}

DataHelperAudioFormatter::DataHelperAudioFormatter() : DataHelperFilter(Defaults()) {}

DataHelperAudioFormatter::~DataHelperAudioFormatter() = default;

}  // namespace Tervan::Conf
