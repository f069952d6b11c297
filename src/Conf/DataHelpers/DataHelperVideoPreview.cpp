#include "Conf/DataHelpers/DataHelperVideoPreview.h"

#include "Proc/IFilterVideoPreview.h"

namespace Tervan::Conf {

namespace {

Core::Property Defaults() {
    Core::Property settings(Proc::IFilterVideoPreview::CLASS_ID);
    settings.SetChildT(Proc::IFilterVideoPreview::FRAMES_TO_SKIP_COUNT, 10LL);
    return settings;
}

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoPreview::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoPreview());
}

DataHelperVideoPreview::DataHelperVideoPreview() : DataHelperFilter(Defaults()) {}

DataHelperVideoPreview::~DataHelperVideoPreview() = default;

}  // namespace Tervan::Conf
