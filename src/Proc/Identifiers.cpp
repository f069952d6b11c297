#include "Core/Api.h"
#include "Proc/IAudioFormatter.h"
#include "Proc/IDeinterlace.h"
#include "Proc/IFilterAudioFormatter.h"
#include "Proc/IFilterAudioVolume.h"
#include "Proc/IFilterDeinterlace.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IFilterResize.h"
#include "Proc/IFilterVideoPreview.h"
#include "Proc/IResample.h"
#include "Proc/IResize.h"
#include "Proc/ImplNames.h"
#include "Proc/SettingsFilterFrameRate.h"

namespace Tervan::Proc {

TERVAN_CONSTANT const std::string ImplNames::DEFAULT = "default";

TERVAN_CONSTANT const std::string IFilterResample::CLASS_ID = "audio_resample";
TERVAN_CONSTANT const std::string IResample::CLASS_ID = "resampler";
TERVAN_CONSTANT const std::string IFilterAudioVolume::CLASS_ID = "audio_volume",
                                  IFilterAudioVolume::VOLUME_VALUE = "volume";
TERVAN_CONSTANT const std::string IFilterAudioFormatter::CLASS_ID = "audio_formatter",
                                  IFilterAudioFormatter::PACKET_DURATION = "packet_duration";
TERVAN_CONSTANT const std::string IAudioFormatter::CLASS_ID = "formatter";
TERVAN_CONSTANT const std::string IFilterFrameRate::CLASS_ID = "frame_rate_filter";
TERVAN_CONSTANT const std::string IFilterResize::CLASS_ID = "resize";
TERVAN_CONSTANT const std::string IResize::CLASS_ID = "resizer", IResize::MODE = "mode", IResize::METHOD = "method",
                                  IResize::FRAME_SIZE_MODE = "frame_size_mode";
TERVAN_CONSTANT const std::string IResize::MODE_SMART_FIT = "smart_fit", IResize::MODE_UP_TO = "up_to",
                                  IResize::MODE_LETTERBOX = "letterbox", IResize::MODE_STRETCH = "stretch",
                                  IResize::MODE_AUTO = "auto", IResize::MODE_CROP = "crop";
TERVAN_CONSTANT const std::string IResize::METHOD_POINT = "point", IResize::METHOD_FAST_BILINEAR = "fast_bilinear",
                                  IResize::METHOD_BILINEAR = "bilinear", IResize::METHOD_BICUBIC = "bicubic";
TERVAN_CONSTANT const std::string IResize::FRAME_SIZE_CUSTOM = "custom",
                                  IResize::FRAME_SIZE_CUSTOM_SCALE = "custom_scale",
                                  IResize::FRAME_SIZE_ORIGINAL = "original",
                                  IResize::FRAME_SIZE_HALF_ORIGINAL = "half_original",
                                  IResize::FRAME_SIZE_QUARTER_ORIGINAL = "quarter_original";
TERVAN_CONSTANT const std::string IFilterDeinterlace::CLASS_ID = "deinterlace", IFilterDeinterlace::ENABLED = "enabled";
TERVAN_CONSTANT const std::string IDeinterlace::CLASS_ID = "deinterlacer",
                                  IDeinterlace::DEINTERLACE_IMPL_STANDART_FFMPEG = "yadif",
                                  IDeinterlace::DEINTERLACE_IMPL_FIELDS_FFMPEG = "yadif_field";
TERVAN_CONSTANT const std::string IFilterVideoPreview::CLASS_ID = "video_preview",
                                  IFilterVideoPreview::FRAMES_TO_SKIP_COUNT = "frames_to_skip";

TERVAN_CONSTANT const boost::rational<long long> SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE(-1, 1);

}  // namespace Tervan::Proc
