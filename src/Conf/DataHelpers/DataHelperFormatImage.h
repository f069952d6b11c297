#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// A still image or image sequence: one video stream with the one codec the format is
// bound to. Both identifiers are copied.
class TERVAN_API DataHelperFormatImage : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create(const std::string& container, const std::string& codec);

protected:
    DataHelperFormatImage(const std::string& container, const std::string& codec);
    ~DataHelperFormatImage() override;
};

}  // namespace Tervan::Conf
