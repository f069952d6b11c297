#include "Conf/DataHelpers/DataHelperFormatImage.h"
#include "FormatTestSupport.h"

#include <gtest/gtest.h>

#include <memory>

using namespace FormatTest;

namespace {

TreeDefaults PictureTree(const std::string& container, const std::string& codec) {
    return {F::TAG_CONTAINER, container, {}, {}, {1, 0, 0, 0}, {{IPreset::STREAM_TYPE_VIDEO, codec}}};
}

ConstraintPtr OnlyConstraint(const IDataHelper& helper) {
    const IDataHelper::Constraints constraints = ConstraintsOf(helper);
    EXPECT_EQ(constraints.size(), 1u);
    return constraints.at(StreamCodecKey(IPreset::STREAM_TYPE_VIDEO));
}

}  // namespace

TEST(ImageFormat, DefaultTrees) {
    const std::pair<std::string, std::string> cases[] = {
        {F::FORMAT_PNG, V::CODEC_ID_PNG},
        // The generic image sequence is Motion JPEG.
        {F::FORMAT_IMAGE2, V::CODEC_ID_MJPEG},
        {F::FORMAT_XWD, V::CODEC_ID_XWD},
        {F::FORMAT_GIF, V::CODEC_ID_GIF},
    };
    for (const auto& [format, codec] : cases) {
        SCOPED_TRACE(format);
        ExpectDefaultTree(Format(format)->GetDefaults(), PictureTree(format, codec));
    }
}

TEST(ImageFormat, AdmitsOnlyItsOwnCodec) {
    const DataHelperPtr png = DataHelperFormatImage::Create(F::FORMAT_PNG, V::CODEC_ID_PNG);
    const DataHelperPtr tiff = DataHelperFormatImage::Create(F::FORMAT_TIFF, V::CODEC_ID_TIFF);
    const ConstraintPtr pngCodecs = OnlyConstraint(*png);
    const ConstraintPtr tiffCodecs = OnlyConstraint(*tiff);
    EXPECT_NE(pngCodecs, tiffCodecs);
    EXPECT_TRUE(pngCodecs->IsValid(Property("", V::CODEC_ID_PNG)));
    EXPECT_FALSE(pngCodecs->IsValid(Property("", V::CODEC_ID_TIFF)));
    EXPECT_FALSE(tiffCodecs->IsValid(Property("", V::CODEC_ID_PNG)));
    Property codec("codec", V::CODEC_ID_MJPEG);
    EXPECT_TRUE(pngCodecs->Fixup(codec));
    EXPECT_EQ(codec.GetString(), V::CODEC_ID_PNG);
    EXPECT_FALSE(OnlyConstraint(*Format(F::FORMAT_GIF))->IsValid(Property("", V::CODEC_ID_PNG)));
}

TEST(ImageFormat, KeepsItsOwnCopyOfTheContainer) {
    auto container = std::make_unique<std::string>(F::FORMAT_BMP);
    const DataHelperPtr bmp = DataHelperFormatImage::Create(*container, V::CODEC_ID_BMP);
    *container = "overwritten";
    container.reset();
    ExpectDefaultTree(bmp->GetDefaults(), PictureTree(F::FORMAT_BMP, V::CODEC_ID_BMP));
}
