#include "Conf/ConfException.h"
#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "HelperQueries.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/IFilterResample.h"
#include "Proc/IFilterResize.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

using namespace Tervan;
using namespace Tervan::Conf;
using namespace HelperQueries;

namespace {

// The tag's value, or "(none)" when the exception lacks it.
template <class Tag>
std::string Tagged(const boost::exception& e) {
    const auto* value = boost::get_error_info<Tag>(e);
    return value ? *value : "(none)";
}

HelperException CaptureCreate(const std::string& type, const std::string& name) {
    try {
        CreateDataHelper(type, name);
    } catch (const HelperException& e) {
        return e;
    }
    ADD_FAILURE() << "no HelperException for (" << type << ", " << name << ")";
    return {};
}

const std::string kTypes[] = {IPreset::KEY_FORMAT, IPreset::KEY_FILTER_AUDIO_CODEC, IPreset::KEY_FILTER_VIDEO_CODEC};

}  // namespace

TEST(Registry, FailedLookupsCarryTheirTagsAndStack) {
    // type and name asked; the table the type resolved to, or "(none)" for an unknown type
    struct Case {
        std::string type, name, table;
    };
    static const Case cases[] = {
        {IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_H265, IPreset::KEY_FILTER_VIDEO_CODEC},
        // Registered classes that the table deliberately leaves out.
        {IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_WMV3, IPreset::KEY_FILTER_VIDEO_CODEC},
        // An unknown name through an alias reports the table it was resolved to.
        {IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO, "no such codec", IPreset::KEY_FILTER_AUDIO_CODEC},
        {"", IFormatCodecAudio::CODEC_ID_MP3, "(none)"},
        {"no such type", IFormatCodecAudio::CODEC_ID_MP3, "(none)"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type + " " + c.name);
        const HelperException e = CaptureCreate(c.type, c.name);
        const bool typeKnown = c.table != "(none)";
        EXPECT_EQ(Tagged<HelperException::TagClassIsFound>(e), c.table);
        EXPECT_EQ(Tagged<HelperException::TagTypeIsNotFound>(e), typeKnown ? c.name : "(none)");
        EXPECT_EQ(Tagged<HelperException::TagClassIsNotFound>(e), typeKnown ? "(none)" : c.type);
        EXPECT_NE(boost::get_error_info<Exception::TagCallStack>(e), nullptr);
        EXPECT_NE(boost::get_error_info<boost::throw_function>(e), nullptr);
    }
}

TEST(Registry, ListingRejectsFiltersWithoutCallStack) {
    try {
        GetAvailableDataHelpers(Proc::IFilterResize::CLASS_ID);
        FAIL() << "filters are not listed";
    } catch (const HelperException& e) {
        EXPECT_EQ(Tagged<HelperException::TagClassIsNotFound>(e), Proc::IFilterResize::CLASS_ID);
        EXPECT_EQ(boost::get_error_info<Exception::TagCallStack>(e), nullptr);
    }
    EXPECT_THROW(DataHelpersTest(Proc::IFilterFrameRate::CLASS_ID), HelperException);
}

TEST(Registry, AliasesAndFilterNamesReachTheSameHelper) {
    EXPECT_EQ(CreateDataHelper(IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO, IFormatCodecAudio::CODEC_ID_MP3),
              CreateDataHelper(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodecAudio::CODEC_ID_MP3));
    EXPECT_EQ(CreateDataHelper(IFormatCodecVideo::TAG_FORMAT_CODEC_VIDEO, IFormatCodecVideo::CODEC_ID_H264),
              CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_H264));
    const auto resize = CreateDataHelper(Proc::IFilterResize::CLASS_ID, "");
    ASSERT_TRUE(resize);
    EXPECT_EQ(CreateDataHelper(Proc::IFilterResize::CLASS_ID, "anything"), resize);
    EXPECT_NE(CreateDataHelper(Proc::IFilterResample::CLASS_ID, ""), resize);
}

TEST(Registry, LookupsAreStableAndShared) {
    for (const std::string& type : kTypes) {
        for (const auto& [name, helper] : GetAvailableDataHelpers(type)) {
            SCOPED_TRACE(type + " " + name);
            EXPECT_EQ(CreateDataHelper(type, name), helper);
        }
        EXPECT_NO_THROW(DataHelpersTest(type));
    }
}

// The registry's objects are shared; every reference to them counts, from any thread.
TEST(Registry, SharedObjectsCountEveryReference) {
    const auto helper = CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, "h264");
    const long helperCount = helper->GetRefCount();
    EXPECT_GE(helperCount, 2) << "the table's and ours";
    IDataHelper::Constraints first = ConstraintsOf(*helper);
    ASSERT_FALSE(first.empty());
    const std::string path = first.begin()->first;
    const ConstraintPtr constraint = first.begin()->second;
    const long constraintCount = constraint->GetRefCount();
    {
        const IDataHelper::Constraints second = ConstraintsOf(*helper);
        EXPECT_EQ(second.at(path), constraint) << "the same shared object for " << path;
        EXPECT_EQ(constraint->GetRefCount(), constraintCount + 1);
        std::thread([&] {
            const auto again = CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, "h264");
            EXPECT_EQ(helper->GetRefCount(), helperCount + 1);
        }).join();
    }
    first.clear();
    EXPECT_EQ(constraint->GetRefCount(), constraintCount - 1);
    EXPECT_EQ(helper->GetRefCount(), helperCount);
}
