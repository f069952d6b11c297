#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// Uncompressed PCM, one instance per sample encoding. Its bitrate follows from the
// stream's shape rather than from a choice.
class TERVAN_API DataHelperAudioCodecPCM : public DataHelperAudioCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create(const std::string& codecId);
    explicit DataHelperAudioCodecPCM(const std::string& codecId);

    // The resampler values, then CBR at channels x sample rate x bits per sample.
    void CorrectFormatCodec(Core::Property& settings) const override;

protected:
    ~DataHelperAudioCodecPCM() override;
};

}  // namespace Tervan::Conf
