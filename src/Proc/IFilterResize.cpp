#include "Proc/IFilterResize.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Proc/IResize.h"
#include "Proc/ProcException.h"

#include <array>

namespace Tervan::Proc {
namespace {

using V = Conf::IFormatCodecVideo;

// Texts indexed by the record's enumerators; at() rejects a value cast from elsewhere.
const std::array<const std::string*, 5> kFrameSizeModes = {
    &IResize::FRAME_SIZE_CUSTOM,        &IResize::FRAME_SIZE_CUSTOM_SCALE,     &IResize::FRAME_SIZE_ORIGINAL,
    &IResize::FRAME_SIZE_HALF_ORIGINAL, &IResize::FRAME_SIZE_QUARTER_ORIGINAL,
};
const std::array<const std::string*, 6> kModes = {
    &IResize::MODE_SMART_FIT, &IResize::MODE_UP_TO, &IResize::MODE_LETTERBOX,
    &IResize::MODE_STRETCH,   &IResize::MODE_AUTO,  &IResize::MODE_CROP,
};
const std::array<const std::string*, 4> kMethods = {
    &IResize::METHOD_POINT,
    &IResize::METHOD_FAST_BILINEAR,
    &IResize::METHOD_BILINEAR,
    &IResize::METHOD_BICUBIC,
};

template <class Enum, std::size_t N>
Enum FromText(const std::array<const std::string*, N>& texts, const Core::Property& value) {
    const std::string& text = value.GetString();
    for (std::size_t i = 0; i < N; ++i) {
        if (*texts[i] == text) {
            return static_cast<Enum>(i);
        }
    }
    BOOST_THROW_EXCEPTION(Core::AddStack(
        ProcException() << Exception::TagDescription("Unknown " + value.GetName() + ": '" + text + "'")));
}

}  // namespace

Core::Property IFilterResize::Settings2Property(const SettingsResizer& settings) {
    Core::Property property(CLASS_ID);
    Core::Property& resizer = property.SetChild(IResize::CLASS_ID);
    resizer.SetChildT(IResize::FRAME_SIZE_MODE, *kFrameSizeModes.at(settings.frameSizeMode));
    resizer.SetChildT(IResize::MODE, *kModes.at(settings.mode));
    resizer.SetChildT(IResize::METHOD, *kMethods.at(settings.method));
    resizer.SetChildT(V::TAG_WIDTH, static_cast<long long>(settings.width));
    resizer.SetChildT(V::TAG_HEIGHT, static_cast<long long>(settings.height));
    resizer.SetChildT(V::TAG_ASPECTX, static_cast<long long>(settings.aspect.numerator()));
    resizer.SetChildT(V::TAG_ASPECTY, static_cast<long long>(settings.aspect.denominator()));
    return property;
}

SettingsResizer IFilterResize::Property2Settings(const Core::Property& property) {
    const Core::Property& resizer = property[IResize::CLASS_ID];
    SettingsResizer settings;
    settings.frameSizeMode =
        FromText<SettingsResizer::FrameSizeMode>(kFrameSizeModes, resizer[IResize::FRAME_SIZE_MODE]);
    settings.mode = FromText<SettingsResizer::Mode>(kModes, resizer[IResize::MODE]);
    settings.method = FromText<SettingsResizer::Method>(kMethods, resizer[IResize::METHOD]);
    settings.width = SettingsResizer::Term(resizer[V::TAG_WIDTH].GetInt64(), "width");
    settings.height = SettingsResizer::Term(resizer[V::TAG_HEIGHT].GetInt64(), "height");
    settings.aspect.assign(SettingsResizer::Term(resizer[V::TAG_ASPECTX].GetInt64(), "aspect"),
                           SettingsResizer::Term(resizer[V::TAG_ASPECTY].GetInt64(), "aspect"));
    return settings;
}

}  // namespace Tervan::Proc
