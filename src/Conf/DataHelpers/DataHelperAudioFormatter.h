#pragma once

#include "Conf/DataHelpers/DataHelperFilter.h"

namespace Tervan::Conf {

// The audio formatter filter, which cuts audio into packets of a fixed duration.
class TERVAN_API DataHelperAudioFormatter : public DataHelperFilter {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperAudioFormatter();
    ~DataHelperAudioFormatter() override;
};

}  // namespace Tervan::Conf
