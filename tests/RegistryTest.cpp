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

#include <set>

using namespace Tervan;
using namespace Tervan::Conf;
using namespace HelperQueries;

namespace {

template <class Tag>
const typename Tag::value_type* Info(const HelperException& e) {
    return boost::get_error_info<Tag>(e);
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

TEST(Registry, TablesHoldEveryHelper) {
    EXPECT_EQ(GetAvailableDataHelpers(IPreset::KEY_FORMAT).size(), 44u);
    EXPECT_EQ(GetAvailableDataHelpers(IPreset::KEY_FILTER_AUDIO_CODEC).size(), 25u);
    EXPECT_EQ(GetAvailableDataHelpers(IPreset::KEY_FILTER_VIDEO_CODEC).size(), 30u);
}

TEST(Registry, UnknownNameUnderKnownTypeCarriesBothTagsAndStack) {
    const HelperException e = CaptureCreate(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_H265);
    ASSERT_NE(Info<HelperException::TagClassIsFound>(e), nullptr);
    EXPECT_EQ(*Info<HelperException::TagClassIsFound>(e), IPreset::KEY_FILTER_VIDEO_CODEC);
    ASSERT_NE(Info<HelperException::TagTypeIsNotFound>(e), nullptr);
    EXPECT_EQ(*Info<HelperException::TagTypeIsNotFound>(e), IFormatCodecVideo::CODEC_ID_H265);
    EXPECT_EQ(Info<HelperException::TagClassIsNotFound>(e), nullptr);
    EXPECT_NE(boost::get_error_info<Exception::TagCallStack>(e), nullptr);
    EXPECT_NE(boost::get_error_info<boost::throw_function>(e), nullptr);
    // Registered classes that the table deliberately leaves out.
    CaptureCreate(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_WMV3);
}

TEST(Registry, UnknownTypeIsClassNotFound) {
    for (const std::string& type : {std::string(), std::string("no such type")}) {
        SCOPED_TRACE(type);
        const HelperException e = CaptureCreate(type, IFormatCodecAudio::CODEC_ID_MP3);
        ASSERT_NE(Info<HelperException::TagClassIsNotFound>(e), nullptr);
        EXPECT_EQ(*Info<HelperException::TagClassIsNotFound>(e), type);
        EXPECT_NE(boost::get_error_info<Exception::TagCallStack>(e), nullptr);
    }
}

TEST(Registry, ListingRejectsFiltersWithoutCallStack) {
    try {
        GetAvailableDataHelpers(Proc::IFilterResize::CLASS_ID);
        FAIL() << "filters are not listed";
    } catch (const HelperException& e) {
        ASSERT_NE(Info<HelperException::TagClassIsNotFound>(e), nullptr);
        EXPECT_EQ(*Info<HelperException::TagClassIsNotFound>(e), Proc::IFilterResize::CLASS_ID);
        EXPECT_EQ(boost::get_error_info<Exception::TagCallStack>(e), nullptr);
    }
    EXPECT_THROW(DataHelpersTest(Proc::IFilterFrameRate::CLASS_ID), HelperException);
}

TEST(Registry, CodecSectionNamesAliasTheCodecTables) {
    EXPECT_EQ(CreateDataHelper(IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO, IFormatCodecAudio::CODEC_ID_MP3),
              CreateDataHelper(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodecAudio::CODEC_ID_MP3));
    EXPECT_EQ(CreateDataHelper(IFormatCodecVideo::TAG_FORMAT_CODEC_VIDEO, IFormatCodecVideo::CODEC_ID_H264),
              CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodecVideo::CODEC_ID_H264));
    // An unknown name through an alias reports the table it was resolved to.
    const HelperException e = CaptureCreate(IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO, "no such codec");
    ASSERT_NE(Info<HelperException::TagClassIsFound>(e), nullptr);
    EXPECT_EQ(*Info<HelperException::TagClassIsFound>(e), IPreset::KEY_FILTER_AUDIO_CODEC);
}

TEST(Registry, FilterNamesAreIgnored) {
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
            EXPECT_EQ(CreateDataHelper(type, name), CreateDataHelper(type, name));
        }
        EXPECT_NO_THROW(DataHelpersTest(type));
    }
}

// Threads asking the same helpers must not write to them: neither the helpers nor
// the constraints they hand out change their reference counts when handed out.
TEST(Registry, SharedObjectsTakeNoCountWrites) {
    const auto helper = CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, "h264");
    const long helperCount = helper->GetRefCount();
    const IDataHelper::Constraints first = ConstraintsOf(*helper);
    ASSERT_FALSE(first.empty());
    const auto& [path, constraint] = *first.begin();
    const long constraintCount = constraint->GetRefCount();
    const IDataHelper::Constraints second = ConstraintsOf(*helper);
    const auto again = CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, "h264");
    EXPECT_EQ(second.at(path), constraint) << "the same shared object for " << path;
    EXPECT_EQ(constraint->GetRefCount(), constraintCount);
    EXPECT_EQ(helper->GetRefCount(), helperCount);
}

// Every constraint a helper lists must admit the helper's own default for that setting.
TEST(Registry, DefaultsSatisfyTheirOwnConstraints) {
    for (const std::string& type : {IPreset::KEY_FILTER_AUDIO_CODEC, IPreset::KEY_FILTER_VIDEO_CODEC}) {
        for (const auto& [name, helper] : GetAvailableDataHelpers(type)) {
            const Core::Property defaults = helper->GetDefaults();
            EXPECT_EQ(defaults.GetName(), type);
            EXPECT_EQ(defaults[IFormatCodec::TAG_CODEC_ID].GetString(), name);
            for (const auto& [path, constraint] : ConstraintsOf(*helper)) {
                SCOPED_TRACE(name + " " + path);
                ASSERT_TRUE(constraint);
                if (const Core::Property* value = defaults.FindChildByPath(path)) {
                    EXPECT_TRUE(constraint->IsValid(*value));
                }
            }
        }
    }
}

TEST(Registry, FormatDefaultsNameAdmittedCodecs) {
    const std::string audioKey = IPreset::KEY_STREAMS + IPreset::INDEX + IPreset::STREAM_TYPE_AUDIO +
                                 Core::Property::SEPARATOR + IPreset::KEY_FILTER_AUDIO_CODEC +
                                 Core::Property::SEPARATOR + IFormatCodec::TAG_CODEC_ID;
    const std::string videoKey = IPreset::KEY_STREAMS + IPreset::INDEX + IPreset::STREAM_TYPE_VIDEO +
                                 Core::Property::SEPARATOR + IPreset::KEY_FILTER_VIDEO_CODEC +
                                 Core::Property::SEPARATOR + IFormatCodec::TAG_CODEC_ID;
    for (const auto& [name, helper] : GetAvailableDataHelpers(IPreset::KEY_FORMAT)) {
        SCOPED_TRACE(name);
        const Core::Property defaults = helper->GetDefaults();
        IDataHelper::Constraints constraints;
        helper->GetConstraints(constraints);
        std::set<std::string> kinds;
        for (const Core::Property& stream : defaults[IPreset::KEY_STREAMS]) {
            const std::string& kind = stream[IPreset::KEY_TYPE_ID].GetString();
            kinds.insert(kind);
            const bool audio = kind == IPreset::STREAM_TYPE_AUDIO;
            const auto& codec = stream[audio ? IPreset::KEY_FILTER_AUDIO_CODEC : IPreset::KEY_FILTER_VIDEO_CODEC]
                                      [IFormatCodec::TAG_CODEC_ID];
            ASSERT_EQ(constraints.count(audio ? audioKey : videoKey), 1u);
            EXPECT_TRUE(constraints.at(audio ? audioKey : videoKey)->IsValid(codec));
            // The default codec has a helper of its own.
            EXPECT_NO_THROW(CreateDataHelper(audio ? IPreset::KEY_FILTER_AUDIO_CODEC : IPreset::KEY_FILTER_VIDEO_CODEC,
                                             codec.GetString()));
        }
        EXPECT_EQ(kinds.size(), defaults[IPreset::KEY_STREAMS].Count());
    }
}
