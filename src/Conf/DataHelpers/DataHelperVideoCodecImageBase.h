#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// A still-image encoder, one instance per image codec. Its defaults name the encoder
// libavcodec found for the codec.
class TERVAN_API DataHelperVideoCodecImageBase : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create(const std::string& codecId);
    explicit DataHelperVideoCodecImageBase(const std::string& codecId);

protected:
    ~DataHelperVideoCodecImageBase() override;
};

}  // namespace Tervan::Conf
