#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

#include <vector>

namespace Tervan::Conf {

// Vorbis: the encoder accepts a bitrate only within bounds set by the sample rate and
// the channel count, so correction moves a stream to the nearest shape it accepts.
class TERVAN_API DataHelperAudioCodecVorbis : public DataHelperAudioCodecBase {
public:
    // A shape the encoder accepts.
    struct OperatingPoint {
        long long channels;
        long long sampleRate;  // Hz
        long long bitrate;     // bit/s
    };

    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecVorbis();

    // Every accepted shape, ordered by channels, then sample rate, then bitrate.
    static const std::vector<OperatingPoint>& OperatingPoints();

    // The codec rules, then one rule per sample rate on the codec's bitrate.
    void GetValidationRules(ValidationRules& out) const override;
    // The base correction, then a snap to the nearest operating point: a channel
    // mismatch weighs three times, a sample-rate mismatch twice, a bitrate mismatch
    // once, each relative to the table's largest value.
    void CorrectFormatCodec(Core::Property& settings) const override;

protected:
    ~DataHelperAudioCodecVorbis() override;

private:
    // Built once with the helper.
    ValidationRules m_ownRules;
};

}  // namespace Tervan::Conf
