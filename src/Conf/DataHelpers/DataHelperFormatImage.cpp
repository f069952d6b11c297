#include "Conf/DataHelpers/DataHelperFormatImage.h"

#include "Conf/Interfaces/IFormatFile.h"

#include <array>

namespace Tervan::Conf {

// identifier key, identifier, flags, limits (video, audio, subtitle, other), the one video
// codec, no audio; the codec list is a temporary, which the base copies.
DataHelperFormatImage::DataHelperFormatImage(const std::string& container, const std::string& codec)
    : DataHelperFormatContainer({&IFormatFile::TAG_CONTAINER,
                                 &container,
                                 NO_FLAGS,
                                 {1, 0, 0, 0},
                                 {std::array<const std::string*, 1>{&codec}.data(), 1, &codec},
                                 {}}) {}

DataHelperFormatImage::~DataHelperFormatImage() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatImage::Create(const std::string& container,
                                                                      const std::string& codec) {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatImage(container, codec));
}

}  // namespace Tervan::Conf
