#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// FLAC: lossless, so the bitrate is not chosen but estimated from the stream's shape.
class TERVAN_API DataHelperAudioCodecFlac : public DataHelperAudioCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecFlac();

    // The expected bitrate of a lossless stream with the node's sample rate, layout and
    // sample format, from measured compression ratios at the nearest tabulated shape.
    static long long CalculateBitrate(const Core::Property& settings);

    // Only selects the codec: a lossless preset has nothing to carry over.
    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;
    // The resampler values, then VBR at the estimated bitrate.
    void CorrectFormatCodec(Core::Property& settings) const override;

protected:
    // For another lossless codec that shares the estimate; rules follow the encoder's.
    DataHelperAudioCodecFlac(const std::string& codecId, AudioCodecTable::Rows<AudioCodecTable::Setting> rules);
    ~DataHelperAudioCodecFlac() override;
};

}  // namespace Tervan::Conf
