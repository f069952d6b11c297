#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// An animated GIF: keeps the source frame rate or runs at one of a few low rates.
class TERVAN_API DataHelperFormatGif : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatGif();
    ~DataHelperFormatGif() override;
};

}  // namespace Tervan::Conf
