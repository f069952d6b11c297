#include "Conf/DataHelpers/DataHelperFormatImage.h"

#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

// identifier key, identifier, flags, limits (video, audio, subtitle, other); the one codec
// comes from the argument, so it is set here, before anything asks for the default tree.
DataHelperFormatImage::DataHelperFormatImage(const std::string& container, const std::string& codec)
    : DataHelperFormatContainer({&IFormatFile::TAG_CONTAINER, &container, NO_FLAGS, {1, 0, 0, 0}, {}, {}}) {
    SetVideoCodecs({codec}, codec);
}

DataHelperFormatImage::~DataHelperFormatImage() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatImage::Create(const std::string& container,
                                                                      const std::string& codec) {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatImage(container, codec));
}

}  // namespace Tervan::Conf
