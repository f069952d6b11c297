#include "Conf/DataHelpers/DataHelpers.h"

#include "Conf/ConfException.h"
#include "Conf/DataHelpers/ConstraintRange.h"
#include "Conf/DataHelpers/DataHelperAudioCodecAac.h"
#include "Conf/DataHelpers/DataHelperAudioCodecAc3.h"
#include "Conf/DataHelpers/DataHelperAudioCodecAlac.h"
#include "Conf/DataHelpers/DataHelperAudioCodecAmrNB.h"
#include "Conf/DataHelpers/DataHelperAudioCodecDTS.h"
#include "Conf/DataHelpers/DataHelperAudioCodecEmpty.h"
#include "Conf/DataHelpers/DataHelperAudioCodecFlac.h"
#include "Conf/DataHelpers/DataHelperAudioCodecMp2.h"
#include "Conf/DataHelpers/DataHelperAudioCodecMp3.h"
#include "Conf/DataHelpers/DataHelperAudioCodecPCM.h"
#include "Conf/DataHelpers/DataHelperAudioCodecVorbis.h"
#include "Conf/DataHelpers/DataHelperAudioCodecWmav2.h"
#include "Conf/DataHelpers/DataHelperAudioFormatter.h"
#include "Conf/DataHelpers/DataHelperAudioResample.h"
#include "Conf/DataHelpers/DataHelperAudioVolume.h"
#include "Conf/DataHelpers/DataHelperDeinterlace.h"
#include "Conf/DataHelpers/DataHelperFormat3gp.h"
#include "Conf/DataHelpers/DataHelperFormatAAC.h"
#include "Conf/DataHelpers/DataHelperFormatAvi.h"
#include "Conf/DataHelpers/DataHelperFormatDVD.h"
#include "Conf/DataHelpers/DataHelperFormatFlac.h"
#include "Conf/DataHelpers/DataHelperFormatFlv.h"
#include "Conf/DataHelpers/DataHelperFormatGif.h"
#include "Conf/DataHelpers/DataHelperFormatImage.h"
#include "Conf/DataHelpers/DataHelperFormatM4a.h"
#include "Conf/DataHelpers/DataHelperFormatMkv.h"
#include "Conf/DataHelpers/DataHelperFormatMov.h"
#include "Conf/DataHelpers/DataHelperFormatMp3.h"
#include "Conf/DataHelpers/DataHelperFormatMp4.h"
#include "Conf/DataHelpers/DataHelperFormatMpeg1.h"
#include "Conf/DataHelpers/DataHelperFormatMpeg2TS.h"
#include "Conf/DataHelpers/DataHelperFormatMpegTS.h"
#include "Conf/DataHelpers/DataHelperFormatOgg.h"
#include "Conf/DataHelpers/DataHelperFormatOgv.h"
#include "Conf/DataHelpers/DataHelperFormatSwf.h"
#include "Conf/DataHelpers/DataHelperFormatVOB.h"
#include "Conf/DataHelpers/DataHelperFormatWav.h"
#include "Conf/DataHelpers/DataHelperFormatWebm.h"
#include "Conf/DataHelpers/DataHelperFormatWma.h"
#include "Conf/DataHelpers/DataHelperFormatWmv.h"
#include "Conf/DataHelpers/DataHelperProxyAuto.h"
#include "Conf/DataHelpers/DataHelperVideoCodecFlv1.h"
#include "Conf/DataHelpers/DataHelperVideoCodecH263.h"
#include "Conf/DataHelpers/DataHelperVideoCodecImageBase.h"
#include "Conf/DataHelpers/DataHelperVideoCodecMjpeg.h"
#include "Conf/DataHelpers/DataHelperVideoCodecMpeg1.h"
#include "Conf/DataHelpers/DataHelperVideoCodecMpeg2.h"
#include "Conf/DataHelpers/DataHelperVideoCodecMpeg4.h"
#include "Conf/DataHelpers/DataHelperVideoCodecProres.h"
#include "Conf/DataHelpers/DataHelperVideoCodecRLE.h"
#include "Conf/DataHelpers/DataHelperVideoCodecTheora.h"
#include "Conf/DataHelpers/DataHelperVideoCodecVP8.h"
#include "Conf/DataHelpers/DataHelperVideoCodecVP9.h"
#include "Conf/DataHelpers/DataHelperVideoCodecWmv2.h"
#include "Conf/DataHelpers/DataHelperVideoCodecX264.h"
#include "Conf/DataHelpers/DataHelperVideoPreview.h"
#include "Conf/DataHelpers/DataHelperVideoResample.h"
#include "Conf/DataHelpers/DataHelperVideoResize.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"
#include "Proc/IFilterAudioFormatter.h"
#include "Proc/IFilterAudioVolume.h"
#include "Proc/IFilterDeinterlace.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IFilterResize.h"
#include "Proc/IFilterVideoPreview.h"

#include <map>
#include <utility>
#include <vector>

// The tables are built while this library loads. Their keys and the helpers'
// constructors read vocabulary constants, which are marked TERVAN_CONSTANT (built before
// every unmarked initialiser), and the codec helpers' class-wide constraints, defined in
// this file ahead of the tables: so the order is right whichever order the objects are
// linked in and whether the library is linked or opened.

using namespace Tervan;
using namespace Tervan::Conf;

namespace {

using Entries = std::vector<std::pair<std::string, DataHelperPtr>>;

// Everything built from here to the end of the tables is shared by every thread
// until the library unloads. Frozen, each thread counts its references to it
// apart, so threads asking the same helpers do not contend for the counts.
FrozenObjects loadTimeObjects;
const bool collecting = (loadTimeObjects.Collect(), true);

}  // namespace

// The codec helpers build their constraints from these when they are constructed, so
// they are defined here, ahead of the tables in this file.
const ConstraintPtr DataHelperCodecFFMPEG::s_defaultVideoBitrateConstraint =
    ConstraintRange::Create(100000LL, IFormatCodecVideo::MAX_VIDEO_BITRATE, 0LL);
const ConstraintPtr DataHelperCodecFFMPEG::s_defaultQualityConstraint =
    ConstraintRange::Create(1LL, IFormatCodec::MAX_QUALITY, 0LL);

namespace {

// Where two entries share a key the first wins.
IDataHelper::DataHelperMap FillTable(const Entries& entries) {
    IDataHelper::DataHelperMap table;
    for (const auto& entry : entries) {
        table.emplace(entry.first, entry.second);
    }
    return table;
}

IDataHelper::DataHelperMap BuildFormatHelpers() {
    // Create makes a separate instance for every entry, aliases included.
    return FillTable({
        {IFormatFile::FORMAT_MP4, DataHelperFormatMp4::Create()},
        {IFormatFile::FORMAT_M4A, DataHelperFormatM4a::Create()},
        {IFormatFile::FORMAT_IPOD, DataHelperFormatMp4::Create()},
        {IFormatFile::FORMAT_MOV, DataHelperFormatMov::Create()},
        {IFormatFile::FORMAT_MATROSKA, DataHelperFormatMkv::Create()},
        {IFormatFile::FORMAT_MPEG, DataHelperFormatMpeg1::Create()},
        {IFormatFile::FORMAT_VOB, DataHelperFormatVOB::Create()},
        {IFormatFile::FORMAT_MPEG1VIDEO, DataHelperFormatMpeg1::Create()},
        {IFormatFile::FORMAT_MPEG2VIDEO, DataHelperFormatVOB::Create()},
        {IFormatFile::FORMAT_AVI, DataHelperFormatAvi::Create()},
        {IFormatFile::FORMAT_DVD, DataHelperFormatDVD::Create()},
        {IFormatFile::FORMAT_FLV, DataHelperFormatFlv::Create()},
        {IFormatFile::FORMAT_3GP, DataHelperFormat3gp::Create()},
        {IFormatFile::FORMAT_3G2, DataHelperFormat3gp::Create()},
        {IFormatFile::FORMAT_MP3, DataHelperFormatMp3::Create()},
        {IFormatFile::FORMAT_AAC, DataHelperFormatAAC::Create()},
        {IFormatFile::FORMAT_OGG, DataHelperFormatOgg::Create()},
        {IFormatFile::FORMAT_FLAC, DataHelperFormatFlac::Create()},
        {IFormatFile::FORMAT_WAV, DataHelperFormatWav::Create()},
        {IFormatFile::FORMAT_MPEGTS, DataHelperFormatMpegTS::Create()},
        {IFormatFile::FORMAT_MPEG2TS, DataHelperFormatMpeg2TS::Create()},
        {IFormatFile::FORMAT_WEBM, DataHelperFormatWebm::Create()},
        {IFormatFile::FORMAT_WMA, DataHelperFormatWma::Create()},
        {IFormatFile::FORMAT_WMV, DataHelperFormatWmv::Create()},
        {IFormatFile::FORMAT_SWF, DataHelperFormatSwf::Create()},
        {IFormatFile::FORMAT_OGV, DataHelperFormatOgv::Create()},
        // The generic image sequence is Motion JPEG.
        {IFormatFile::FORMAT_IMAGE2,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_IMAGE2, IFormatCodecVideo::CODEC_ID_MJPEG)},
        {IFormatFile::FORMAT_BMP,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_BMP, IFormatCodecVideo::CODEC_ID_BMP)},
        {IFormatFile::FORMAT_PNG,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_PNG, IFormatCodecVideo::CODEC_ID_PNG)},
        {IFormatFile::FORMAT_TIFF,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_TIFF, IFormatCodecVideo::CODEC_ID_TIFF)},
        {IFormatFile::FORMAT_DPX,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_DPX, IFormatCodecVideo::CODEC_ID_DPX)},
        {IFormatFile::FORMAT_JPEG2000,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_JPEG2000, IFormatCodecVideo::CODEC_ID_JPEG2000)},
        {IFormatFile::FORMAT_PBM,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_PBM, IFormatCodecVideo::CODEC_ID_PBM)},
        {IFormatFile::FORMAT_PCX,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_PCX, IFormatCodecVideo::CODEC_ID_PCX)},
        {IFormatFile::FORMAT_PGM,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_PGM, IFormatCodecVideo::CODEC_ID_PGM)},
        {IFormatFile::FORMAT_PPM,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_PPM, IFormatCodecVideo::CODEC_ID_PPM)},
        {IFormatFile::FORMAT_TARGA,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_TARGA, IFormatCodecVideo::CODEC_ID_TARGA)},
        {IFormatFile::FORMAT_XBM,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_XBM, IFormatCodecVideo::CODEC_ID_XBM)},
        {IFormatFile::FORMAT_JPEGLS,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_JPEGLS, IFormatCodecVideo::CODEC_ID_JPEGLS)},
        {IFormatFile::FORMAT_PAM,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_PAM, IFormatCodecVideo::CODEC_ID_PAM)},
        {IFormatFile::FORMAT_PGMYUV,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_PGMYUV, IFormatCodecVideo::CODEC_ID_PGMYUV)},
        {IFormatFile::FORMAT_SGI,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_SGI, IFormatCodecVideo::CODEC_ID_SGI)},
        {IFormatFile::FORMAT_XWD,
         DataHelperFormatImage::Create(IFormatFile::FORMAT_XWD, IFormatCodecVideo::CODEC_ID_XWD)},
        {IFormatFile::FORMAT_GIF, DataHelperFormatGif::Create()},
    });
}

IDataHelper::DataHelperMap BuildAudioCodecHelpers() {
    return FillTable({
        {IFormatCodec::CODEC_ID_AUTO, DataHelperAudioCodecEmpty::Create(IFormatCodec::CODEC_ID_AUTO)},
        {IFormatCodecAudio::CODEC_ID_AAC, DataHelperAudioCodecAac::Create()},
        {IFormatCodecAudio::CODEC_ID_AC3, DataHelperAudioCodecAc3::Create()},
        {IFormatCodecAudio::CODEC_ID_DTS, DataHelperAudioCodecDTS::Create()},
        {IFormatCodecAudio::CODEC_ID_MP3, DataHelperAudioCodecMp3::Create()},
        {IFormatCodecAudio::CODEC_ID_FLAC, DataHelperAudioCodecFlac::Create()},
        {IFormatCodecAudio::CODEC_ID_ALAC, DataHelperAudioCodecAlac::Create()},
        {IFormatCodecAudio::CODEC_ID_AMR_NB, DataHelperAudioCodecAmrNB::Create()},
        {IFormatCodecAudio::CODEC_ID_WMAV2, DataHelperAudioCodecWmav2::Create()},
        {IFormatCodecAudio::CODEC_ID_MP2, DataHelperAudioCodecMp2::Create()},
        {IFormatCodecAudio::CODEC_ID_VORBIS, DataHelperAudioCodecVorbis::Create()},
        {IFormatCodecAudio::CODEC_ID_PCM_U16BE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_U16BE)},
        {IFormatCodecAudio::CODEC_ID_PCM_U16LE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_U16LE)},
        {IFormatCodecAudio::CODEC_ID_PCM_U24BE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_U24BE)},
        {IFormatCodecAudio::CODEC_ID_PCM_U24LE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_U24LE)},
        {IFormatCodecAudio::CODEC_ID_PCM_U8, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_U8)},
        {IFormatCodecAudio::CODEC_ID_PCM_U32BE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_U32BE)},
        {IFormatCodecAudio::CODEC_ID_PCM_U32LE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_U32LE)},
        {IFormatCodecAudio::CODEC_ID_PCM_S16BE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_S16BE)},
        {IFormatCodecAudio::CODEC_ID_PCM_S16LE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_S16LE)},
        {IFormatCodecAudio::CODEC_ID_PCM_S24BE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_S24BE)},
        {IFormatCodecAudio::CODEC_ID_PCM_S24LE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_S24LE)},
        {IFormatCodecAudio::CODEC_ID_PCM_S8, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_S8)},
        {IFormatCodecAudio::CODEC_ID_PCM_S32BE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_S32BE)},
        {IFormatCodecAudio::CODEC_ID_PCM_S32LE, DataHelperAudioCodecPCM::Create(IFormatCodecAudio::CODEC_ID_PCM_S32LE)},
    });
}

// H.265 and WMV3 have helpers but are deliberately not offered.
IDataHelper::DataHelperMap BuildVideoCodecHelpers() {
    return FillTable({
        {IFormatCodecVideo::CODEC_ID_H264, DataHelperVideoCodecX264::Create()},
        {IFormatCodecVideo::CODEC_ID_MPEG4, DataHelperVideoCodecMpeg4::Create()},
        {IFormatCodecVideo::CODEC_ID_MPEG1VIDEO, DataHelperVideoCodecMpeg1::Create()},
        {IFormatCodecVideo::CODEC_ID_MPEG2VIDEO, DataHelperVideoCodecMpeg2::Create()},
        {IFormatCodecVideo::CODEC_ID_THEORA, DataHelperVideoCodecTheora::Create()},
        {IFormatCodecVideo::CODEC_ID_VP8, DataHelperVideoCodecVP8::Create()},
        {IFormatCodecVideo::CODEC_ID_H263, DataHelperVideoCodecH263::Create()},
        {IFormatCodecVideo::CODEC_ID_PRORES, DataHelperVideoCodecProres::Create()},
        {IFormatCodecVideo::CODEC_ID_QTRLE, DataHelperVideoCodecRLE::Create()},
        {IFormatCodecVideo::CODEC_ID_WMV2, DataHelperVideoCodecWmv2::Create()},
        {IFormatCodecVideo::CODEC_ID_FLV1, DataHelperVideoCodecFlv1::Create()},
        {IFormatCodecVideo::CODEC_ID_MJPEG, DataHelperVideoCodecMjpeg::Create()},
        {IFormatCodecVideo::CODEC_ID_BMP, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_BMP)},
        {IFormatCodecVideo::CODEC_ID_GIF, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_GIF)},
        {IFormatCodecVideo::CODEC_ID_PNG, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_PNG)},
        {IFormatCodecVideo::CODEC_ID_TIFF, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_TIFF)},
        {IFormatCodecVideo::CODEC_ID_DPX, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_DPX)},
        {IFormatCodecVideo::CODEC_ID_JPEG2000,
         DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_JPEG2000)},
        {IFormatCodecVideo::CODEC_ID_PBM, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_PBM)},
        {IFormatCodecVideo::CODEC_ID_PCX, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_PCX)},
        {IFormatCodecVideo::CODEC_ID_PGM, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_PGM)},
        {IFormatCodecVideo::CODEC_ID_PPM, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_PPM)},
        {IFormatCodecVideo::CODEC_ID_TARGA, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_TARGA)},
        {IFormatCodecVideo::CODEC_ID_XBM, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_XBM)},
        {IFormatCodecVideo::CODEC_ID_JPEGLS, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_JPEGLS)},
        {IFormatCodecVideo::CODEC_ID_PAM, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_PAM)},
        {IFormatCodecVideo::CODEC_ID_PGMYUV, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_PGMYUV)},
        {IFormatCodecVideo::CODEC_ID_SGI, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_SGI)},
        {IFormatCodecVideo::CODEC_ID_XWD, DataHelperVideoCodecImageBase::Create(IFormatCodecVideo::CODEC_ID_XWD)},
        {IFormatCodecVideo::CODEC_ID_VP9, DataHelperVideoCodecVP9::Create()},
    });
}

IDataHelper::DataHelperMap BuildFilterHelpers() {
    return FillTable({
        {Proc::IFilterResample::CLASS_ID, DataHelperAudioResample::Create()},
        {Proc::IFilterAudioVolume::CLASS_ID, DataHelperAudioVolume::Create()},
        {Proc::IFilterAudioFormatter::CLASS_ID, DataHelperAudioFormatter::Create()},
        {Proc::IFilterFrameRate::CLASS_ID, DataHelperVideoResample::Create()},
        {Proc::IFilterResize::CLASS_ID, DataHelperVideoResize::Create()},
        {Proc::IFilterDeinterlace::CLASS_ID, DataHelperDeinterlace::Create()},
        {Proc::IFilterVideoPreview::CLASS_ID, DataHelperVideoPreview::Create()},
    });
}

const IDataHelper::DataHelperMap formatHelpers = BuildFormatHelpers();
const IDataHelper::DataHelperMap audioCodecHelpers = BuildAudioCodecHelpers();
const IDataHelper::DataHelperMap videoCodecHelpers = BuildVideoCodecHelpers();
const IDataHelper::DataHelperMap filterHelpers = BuildFilterHelpers();
const std::map<std::string, std::string> formatFilterMap = {
    {IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO, IPreset::KEY_FILTER_AUDIO_CODEC},
    {IFormatCodecVideo::TAG_FORMAT_CODEC_VIDEO, IPreset::KEY_FILTER_VIDEO_CODEC},
};

// Defined after the tables: frozen once they are complete, thawed before they are
// destroyed, so that the tables' release deletes the helpers as usual.
struct Freezer {
    Freezer() { loadTimeObjects.Freeze(); }
    ~Freezer() { loadTimeObjects.Thaw(); }
    Freezer(const Freezer&) = delete;
    Freezer& operator=(const Freezer&) = delete;
} freezer;

const IDataHelper::DataHelperMap* FindTable(const std::string& type) {
    if (type == IPreset::KEY_FORMAT) {
        return &formatHelpers;
    }
    if (type == IPreset::KEY_FILTER_AUDIO_CODEC) {
        return &audioCodecHelpers;
    }
    if (type == IPreset::KEY_FILTER_VIDEO_CODEC) {
        return &videoCodecHelpers;
    }
    return nullptr;
}

}  // namespace

const IDataHelper::DataHelperMap& GetAvailableDataHelpers(const std::string& type) {
    if (const IDataHelper::DataHelperMap* table = FindTable(type)) {
        return *table;
    }
    BOOST_THROW_EXCEPTION(HelperException() << HelperException::TagClassIsNotFound(type)
                                            << Exception::TagDescription("No helper table for type \"" + type + "\""));
}

const boost::intrusive_ptr<const IDataHelper> CreateDataHelper(const std::string& type, const std::string& name) {
    if (const IDataHelper::DataHelperMap* table = FindTable(type)) {
        auto it = table->find(name);
        if (it != table->end()) {
            return it->second;
        }
        // Paired as the contract states: the known type under TagClassIsFound, the missing name under
        // TagTypeIsNotFound.
        BOOST_THROW_EXCEPTION(Core::AddStack(
            HelperException() << HelperException::TagClassIsFound(type) << HelperException::TagTypeIsNotFound(name)
                              << Exception::TagDescription("No helper \"" + name + "\" of type \"" + type + "\"")));
    }
    auto alias = formatFilterMap.find(type);
    if (alias != formatFilterMap.end()) {
        return CreateDataHelper(alias->second, name);
    }
    auto filter = filterHelpers.find(type);
    if (filter != filterHelpers.end()) {
        return filter->second;
    }
    BOOST_THROW_EXCEPTION(Core::AddStack(HelperException()
                                         << HelperException::TagClassIsNotFound(type)
                                         << Exception::TagDescription("Unknown helper type \"" + type + "\"")));
}

boost::intrusive_ptr<const IDataHelper> CreateDataHelperAuto(const std::string& type, const std::string& name) {
    if (type == IPreset::KEY_FILTER_AUDIO_CODEC && name == IFormatCodecAudio::CODEC_ID_AC3) {
        return DataHelperAudioCodecEmpty::Create(IFormatCodecAudio::CODEC_ID_AC3);
    }
    return DataHelperProxyAuto::Create(type, CreateDataHelper(type, name));
}

void DataHelpersTest(const std::string& type) {
    for (const auto& entry : GetAvailableDataHelpers(type)) {
        // Only an exception is observable; the constraints themselves are discarded.
        IDataHelper::Constraints constraints;
        entry.second->GetConstraints(constraints);
    }
}
