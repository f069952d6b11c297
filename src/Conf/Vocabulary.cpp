// The texts of the vocabulary. Codec, container, layout and sample-format texts are
// FFmpeg's own names, so a job document reads naturally to an FFmpeg user.
#include "Conf/ChannelLayout.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"
#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Core/Api.h"

namespace Tervan::Conf {

using F = IFormatFile;
TERVAN_CONSTANT const std::string F::FORMAT_3G2 = "3g2", F::FORMAT_3GP = "3gp", F::FORMAT_AAC = "adts",
                                  F::FORMAT_AVI = "avi", F::FORMAT_BMP = "bmp", F::FORMAT_DPX = "dpx",
                                  F::FORMAT_DVD = "dvd", F::FORMAT_FLAC = "flac", F::FORMAT_FLV = "flv",
                                  F::FORMAT_GIF = "gif", F::FORMAT_IMAGE2 = "image2", F::FORMAT_IPOD = "ipod",
                                  F::FORMAT_JPEG2000 = "jpeg2000", F::FORMAT_JPEGLS = "jpegls", F::FORMAT_M4A = "m4a",
                                  F::FORMAT_MATROSKA = "matroska", F::FORMAT_MOV = "mov", F::FORMAT_MP3 = "mp3",
                                  F::FORMAT_MP4 = "mp4", F::FORMAT_MPEG = "mpeg", F::FORMAT_MPEG1VIDEO = "mpeg1video",
                                  F::FORMAT_MPEG2TS = "mpeg2ts", F::FORMAT_MPEG2VIDEO = "mpeg2video",
                                  F::FORMAT_MPEGTS = "mpegts", F::FORMAT_OGG = "ogg", F::FORMAT_OGV = "ogv",
                                  F::FORMAT_PAM = "pam", F::FORMAT_PBM = "pbm", F::FORMAT_PCX = "pcx",
                                  F::FORMAT_PGM = "pgm", F::FORMAT_PGMYUV = "pgmyuv", F::FORMAT_PNG = "png",
                                  F::FORMAT_PPM = "ppm", F::FORMAT_SGI = "sgi", F::FORMAT_SWF = "swf",
                                  F::FORMAT_TARGA = "targa", F::FORMAT_TIFF = "tiff", F::FORMAT_VOB = "vob",
                                  F::FORMAT_WAV = "wav", F::FORMAT_WEBM = "webm", F::FORMAT_WMA = "wma",
                                  F::FORMAT_WMV = "asf", F::FORMAT_XBM = "xbm", F::FORMAT_XWD = "xwd";
TERVAN_CONSTANT const std::string F::TAG_CONTAINER = "container", F::TAG_LIMITS = "limits",
                                  F::TAG_LIMITS_AUDIO = "audio", F::TAG_LIMITS_VIDEO = "video",
                                  F::TAG_LIMITS_SUBTITLE = "subtitle", F::TAG_LIMITS_OTHER = "other",
                                  F::TAG_PSP_MODE = "psp_mode", F::TAG_PROGRESSIVE_READ = "progressive_read",
                                  F::TAG_DVD_STANDARD = "dvd_standard", F::TAG_DISK_SIZE = "disk_size";
TERVAN_CONSTANT const std::string F::DVD_STANDARD_PAL = "pal", F::DVD_STANDARD_NTSC = "ntsc";
TERVAN_CONSTANT const std::string F::DISK_TYPE_DVD_MINI = "DVD mini (1.4 GB)",
                                  F::DISK_TYPE_DVD_STANDARD = "DVD-5 (4.7 GB)",
                                  F::DISK_TYPE_DVD_DOUBLE_LAYER = "DVD-9 (8.5 GB)";

using C = IFormatCodec;
TERVAN_CONSTANT const std::string C::TAG_NAME = "encoder", C::TAG_CODEC_ID = "codec_id", C::TAG_BITRATE = "bitrate",
                                  C::TAG_BITRATE_MODE = "bitrate_mode", C::TAG_QUALITY = "quality",
                                  C::TAG_PRESET = "preset", C::TAG_PROFILE = "profile",
                                  C::TAG_ONE_PASS_MODE = "one_pass", C::TAG_TWO_PASS_MODE = "two_pass",
                                  C::TAG_MULTIPASS_ENCODING = "multipass", C::TAG_THREAD_NUMBER = "threads",
                                  C::TAG_UTILIZE_ALL_RESOURCES = "use_all_cores",
                                  C::TAG_CODEC_OPTIONS_ENCODE = "encoder_options";
TERVAN_CONSTANT const std::string C::TAG_BITRATE_MODE_CBR = "cbr", C::TAG_BITRATE_MODE_VBR = "vbr",
                                  C::TAG_BITRATE_MODE_CBR_AUTO = "cbr_auto";
TERVAN_CONSTANT const std::string C::CODEC_ID_AUTO = "auto";

using A = IFormatCodecAudio;
TERVAN_CONSTANT const std::string A::TAG_FORMAT_CODEC_AUDIO = "codec_audio", A::TAG_SAMPLE_RATE = "sample_rate",
                                  A::TAG_SAMPLE_FORMAT = "sample_fmt", A::TAG_LAYOUT = "channel_layout";
TERVAN_CONSTANT const std::string A::CODEC_ID_AAC = "aac", A::CODEC_ID_AC3 = "ac3", A::CODEC_ID_ALAC = "alac",
                                  A::CODEC_ID_AMR_NB = "amr_nb", A::CODEC_ID_DTS = "dts", A::CODEC_ID_FLAC = "flac",
                                  A::CODEC_ID_MP2 = "mp2", A::CODEC_ID_MP3 = "mp3", A::CODEC_ID_VORBIS = "vorbis",
                                  A::CODEC_ID_WMAV2 = "wmav2";
TERVAN_CONSTANT const std::string A::CODEC_ID_PCM_S8 = "pcm_s8", A::CODEC_ID_PCM_U8 = "pcm_u8",
                                  A::CODEC_ID_PCM_S16BE = "pcm_s16be", A::CODEC_ID_PCM_S16LE = "pcm_s16le",
                                  A::CODEC_ID_PCM_S24BE = "pcm_s24be", A::CODEC_ID_PCM_S24LE = "pcm_s24le",
                                  A::CODEC_ID_PCM_S32BE = "pcm_s32be", A::CODEC_ID_PCM_S32LE = "pcm_s32le",
                                  A::CODEC_ID_PCM_U16BE = "pcm_u16be", A::CODEC_ID_PCM_U16LE = "pcm_u16le",
                                  A::CODEC_ID_PCM_U24BE = "pcm_u24be", A::CODEC_ID_PCM_U24LE = "pcm_u24le",
                                  A::CODEC_ID_PCM_U32BE = "pcm_u32be", A::CODEC_ID_PCM_U32LE = "pcm_u32le";
namespace {

// The layout texts are the records' names, so LayoutRecord::Find accepts exactly them.
std::string LayoutText(ChannelLayout layout) {
    return std::string(LayoutRecord::Find(layout).name);
}

}  // namespace

TERVAN_CONSTANT const std::string A::TAG_CH_LAYOUT_MONO = LayoutText(CH_LAYOUT_MONO),
                                  A::TAG_CH_LAYOUT_STEREO = LayoutText(CH_LAYOUT_STEREO),
                                  A::TAG_CH_LAYOUT_2POINT1 = LayoutText(CH_LAYOUT_2POINT1),
                                  A::TAG_CH_LAYOUT_2_1 = LayoutText(CH_LAYOUT_2_1),
                                  A::TAG_CH_LAYOUT_2_2 = LayoutText(CH_LAYOUT_2_2),
                                  A::TAG_CH_LAYOUT_QUAD = LayoutText(CH_LAYOUT_QUAD),
                                  A::TAG_CH_LAYOUT_5POINT0 = LayoutText(CH_LAYOUT_5POINT0),
                                  A::TAG_CH_LAYOUT_5POINT0_BACK = LayoutText(CH_LAYOUT_5POINT0_BACK),
                                  A::TAG_CH_LAYOUT_5POINT1 = LayoutText(CH_LAYOUT_5POINT1),
                                  A::TAG_CH_LAYOUT_5POINT1_BACK = LayoutText(CH_LAYOUT_5POINT1_BACK),
                                  A::TAG_CH_LAYOUT_7POINT1 = LayoutText(CH_LAYOUT_7POINT1),
                                  A::TAG_CH_LAYOUT_UNKNOWN = LayoutText(CH_LAYOUT_UNKNOWN);
TERVAN_CONSTANT const std::string A::TAG_AAC_PROFILE_LOW = "aac_low", A::TAG_AAC_PROFILE_MAIN = "aac_main",
                                  A::TAG_AAC_PROFILE_SSR = "aac_ssr", A::TAG_AAC_PROFILE_LTP = "aac_ltp",
                                  A::TAG_AAC_PROFILE_HE = "aac_he", A::TAG_AAC_PROFILE_HE_V2 = "aac_he_v2",
                                  A::TAG_AAC_PROFILE_LD = "aac_ld", A::TAG_AAC_PROFILE_ELD = "aac_eld";

using V = IFormatCodecVideo;
TERVAN_CONSTANT const std::string V::TAG_FORMAT_CODEC_VIDEO = "codec_video", V::TAG_WIDTH = "width",
                                  V::TAG_HEIGHT = "height", V::TAG_FPS = "frame_rate", V::TAG_ASPECTX = "aspect_x",
                                  V::TAG_ASPECTY = "aspect_y", V::TAG_BITS_PER_PIXEL = "bits_per_pixel",
                                  V::TAG_MAX_B_FRAME_SEQUENCE = "max_b_frames",
                                  V::TAG_MAX_I_FRAME_INTERVAL = "gop_size", V::TAG_X264_TUNE = "x264_tune",
                                  V::TAG_X265_TUNE = "x265_tune";
TERVAN_CONSTANT const std::string V::CODEC_ID_BMP = "bmp", V::CODEC_ID_DPX = "dpx", V::CODEC_ID_DVVIDEO = "dvvideo",
                                  V::CODEC_ID_FLV1 = "flv1", V::CODEC_ID_GIF = "gif", V::CODEC_ID_H263 = "h263",
                                  V::CODEC_ID_H264 = "h264", V::CODEC_ID_H265 = "hevc",
                                  V::CODEC_ID_JPEG2000 = "jpeg2000", V::CODEC_ID_JPEGLS = "jpegls",
                                  V::CODEC_ID_MJPEG = "mjpeg", V::CODEC_ID_MPEG1VIDEO = "mpeg1video",
                                  V::CODEC_ID_MPEG2VIDEO = "mpeg2video", V::CODEC_ID_MPEG4 = "mpeg4",
                                  V::CODEC_ID_PAM = "pam", V::CODEC_ID_PBM = "pbm", V::CODEC_ID_PCX = "pcx",
                                  V::CODEC_ID_PGM = "pgm", V::CODEC_ID_PGMYUV = "pgmyuv", V::CODEC_ID_PNG = "png",
                                  V::CODEC_ID_PPM = "ppm", V::CODEC_ID_PRORES = "prores", V::CODEC_ID_QTRLE = "qtrle",
                                  V::CODEC_ID_SGI = "sgi", V::CODEC_ID_TARGA = "targa", V::CODEC_ID_THEORA = "theora",
                                  V::CODEC_ID_TIFF = "tiff", V::CODEC_ID_VP8 = "vp8", V::CODEC_ID_VP9 = "vp9",
                                  V::CODEC_ID_WMV2 = "wmv2", V::CODEC_ID_WMV3 = "wmv3", V::CODEC_ID_XBM = "xbm",
                                  V::CODEC_ID_XWD = "xwd";
// x265 takes x264's preset names (defined first in this file, so built first); the
// families stay separate settings.
TERVAN_CONSTANT const std::string V::TAG_X264_PRESET_ULTRAFAST = "ultrafast",
                                  V::TAG_X264_PRESET_SUPERFAST = "superfast", V::TAG_X264_PRESET_VERYFAST = "veryfast",
                                  V::TAG_X264_PRESET_FASTER = "faster", V::TAG_X264_PRESET_FAST = "fast",
                                  V::TAG_X264_PRESET_MEDIUM = "medium", V::TAG_X264_PRESET_SLOW = "slow",
                                  V::TAG_X264_PRESET_SLOWER = "slower", V::TAG_X264_PRESET_VERYSLOW = "veryslow",
                                  V::TAG_X264_PRESET_PLACEBO = "placebo";
TERVAN_CONSTANT const std::string V::TAG_X265_PRESET_ULTRAFAST = V::TAG_X264_PRESET_ULTRAFAST,
                                  V::TAG_X265_PRESET_SUPERFAST = V::TAG_X264_PRESET_SUPERFAST,
                                  V::TAG_X265_PRESET_VERYFAST = V::TAG_X264_PRESET_VERYFAST,
                                  V::TAG_X265_PRESET_FASTER = V::TAG_X264_PRESET_FASTER,
                                  V::TAG_X265_PRESET_FAST = V::TAG_X264_PRESET_FAST,
                                  V::TAG_X265_PRESET_MEDIUM = V::TAG_X264_PRESET_MEDIUM,
                                  V::TAG_X265_PRESET_SLOW = V::TAG_X264_PRESET_SLOW,
                                  V::TAG_X265_PRESET_SLOWER = V::TAG_X264_PRESET_SLOWER,
                                  V::TAG_X265_PRESET_VERYSLOW = V::TAG_X264_PRESET_VERYSLOW,
                                  V::TAG_X265_PRESET_PLACEBO = V::TAG_X264_PRESET_PLACEBO;
TERVAN_CONSTANT const std::string V::TAG_X264_PROFILE_BASELINE = "baseline", V::TAG_X264_PROFILE_MAIN = "main",
                                  V::TAG_X264_PROFILE_HIGH = "high", V::TAG_X264_PROFILE_HIGH10 = "high10",
                                  V::TAG_X264_PROFILE_HIGH422 = "high422", V::TAG_X264_PROFILE_HIGH444 = "high444";
TERVAN_CONSTANT const std::string V::TAG_X264_TUNE_FILM = "film", V::TAG_X264_TUNE_ANIMATION = "animation",
                                  V::TAG_X264_TUNE_GRAIN = "grain", V::TAG_X264_TUNE_STILLIMAGE = "stillimage",
                                  V::TAG_X264_TUNE_PSNR = "psnr", V::TAG_X264_TUNE_SSIM = "ssim",
                                  V::TAG_X264_TUNE_FASTDECODE = "fastdecode",
                                  V::TAG_X264_TUNE_ZEROLATENCY = "zerolatency";
TERVAN_CONSTANT const std::string V::TAG_X265_TUNE_PSNR = "psnr", V::TAG_X265_TUNE_SSIM = "ssim",
                                  V::TAG_X265_TUNE_FASTDECODE = "fastdecode",
                                  V::TAG_X265_TUNE_ZEROLATENCY = "zerolatency";
TERVAN_CONSTANT const std::string V::TAG_MPEG4_PROFILE_SIMPLE = "simple",
                                  V::TAG_MPEG4_PROFILE_ADVANCED_SIMPLE = "advanced_simple",
                                  V::TAG_MPEG4_PROFILE_CORE_SCALABLE = "core_scalable",
                                  V::TAG_MPEG4_PROFILE_MAIN = "main";

TERVAN_CONSTANT const std::string IPreset::KEY_FORMAT = "format", IPreset::KEY_FILTER_AUDIO_CODEC = "audio_codec",
                                  IPreset::KEY_FILTER_VIDEO_CODEC = "video_codec", IPreset::KEY_STREAMS = "streams",
                                  IPreset::KEY_TYPE_ID = "type", IPreset::STREAM_TYPE_AUDIO = "audio",
                                  IPreset::STREAM_TYPE_VIDEO = "video", IPreset::INDEX = "/@";

TERVAN_CONSTANT const std::string IPropertyConstraint::DESCRIPTION_ID_EVEN_SIZE = "Value must be an even number";

}  // namespace Tervan::Conf
