#include "Conf/DataHelpers/DataHelperVideoPreview.h"

#include "Proc/IFilterVideoPreview.h"

namespace Tervan::Conf {

boost::intrusive_ptr<const IDataHelper> DataHelperVideoPreview::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoPreview());
}

DataHelperVideoPreview::~DataHelperVideoPreview() = default;

Core::Property DataHelperVideoPreview::GetDefaults() const {
    Core::Property settings(Proc::IFilterVideoPreview::CLASS_ID);
    settings.SetChildT(Proc::IFilterVideoPreview::FRAMES_TO_SKIP_COUNT, 10LL);
    return settings;
}

}  // namespace Tervan::Conf
