#pragma once

// Shared by the format helper tests.

#include "Conf/ConfException.h"
#include "Conf/DataHelpers/DataHelperFormatBase.h"
#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/DataHelpers/ValidationRuleCheck.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"
#include "Core/Property.h"
#include "HelperQueries.h"
#include "Proc/IFilterFrameRate.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace FormatTest {

using namespace Tervan;
using namespace Tervan::Conf;
using namespace HelperQueries;
using Core::Property;
using Ratio = Property::Ratio;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;
using F = IFormatFile;

inline std::string Path(const std::string& section, const std::string& setting) {
    return section + Property::SEPARATOR + setting;
}

// The paths, from the root of a job's settings, that the formats' rules tie together.
inline const std::string kVideoCodecPath = Path(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodec::TAG_CODEC_ID);
inline const std::string kAudioCodecPath = Path(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodec::TAG_CODEC_ID);
inline const std::string kSampleRatePath = ResamplerPath(A::TAG_SAMPLE_RATE);
inline const std::string kFpsPath = Path(Proc::IFilterFrameRate::CLASS_ID, V::TAG_FPS);

inline DataHelperPtr Format(const std::string& id) {
    return CreateDataHelper(IPreset::KEY_FORMAT, id);
}

inline const DataHelperFormatBase& AsFormatBase(const IDataHelper& helper) {
    return dynamic_cast<const DataHelperFormatBase&>(helper);
}

// The node at path below root, created with its parents when missing.
inline Property& At(Property& root, const std::string& path) {
    Property* node = &root;
    std::string::size_type start = 0;
    for (;;) {
        const std::string::size_type end = path.find(Property::SEPARATOR, start);
        node = &(*node)[path.substr(start, end == std::string::npos ? std::string::npos : end - start)];
        if (end == std::string::npos) {
            return *node;
        }
        start = end + Property::SEPARATOR.size();
    }
}

// A settings tree holding the given values, each at its path.
inline Property Settings(const std::vector<std::pair<std::string, Property>>& values) {
    Property root;
    for (const auto& [path, value] : values) {
        At(root, path).CopyDataFrom(value);
    }
    return root;
}

// The second paths of the helper's rules that settings break, in rule order. A rule
// that cannot judge the tree fails the test.
inline std::vector<std::string> BrokenRules(const IDataHelper& helper, const Property& settings) {
    std::vector<std::string> broken;
    for (const auto& [name, rule] : RulesOf(helper)) {
        EXPECT_EQ(name, Property::SEPARATOR);
        const ValidationRuleCheck check = ValidationRuleCheck::Evaluate(*rule, settings);
        if (check.verdict == ValidationRuleCheck::BROKEN) {
            broken.push_back(check.path);
        } else {
            EXPECT_EQ(check.verdict, ValidationRuleCheck::HOLDS) << check.path << ": " << check.detail;
        }
    }
    return broken;
}

// A codec node holding a codec identifier and a sample rate.
inline Property CodecNode(const std::string& name, const std::string& codec, long long rate) {
    Property node(name);
    node.SetChildT(IFormatCodec::TAG_CODEC_ID, codec);
    node.SetChildT(A::TAG_SAMPLE_RATE, rate);
    return node;
}

struct StreamDefault {
    std::string type;  // IPreset::STREAM_TYPE_VIDEO or IPreset::STREAM_TYPE_AUDIO
    std::string codec;
};

struct TreeDefaults {
    std::string identifierKey;  // empty: the tree names no format
    std::string identifier;
    std::vector<std::string> flags;   // boolean settings, all false
    std::vector<std::string> extras;  // further root settings, before the limits
    std::vector<long long> limits;    // video, audio, subtitle, other
    std::vector<StreamDefault> streams;
};

inline std::vector<std::string> ChildNames(const Property& node) {
    std::vector<std::string> names;
    for (const Property& child : node) {
        names.push_back(child.GetName());
    }
    return names;
}

inline void ExpectDefaultTree(const Property& tree, const TreeDefaults& expected) {
    EXPECT_EQ(tree.GetName(), IPreset::KEY_FORMAT);
    std::vector<std::string> rootNames;
    if (!expected.identifierKey.empty()) {
        rootNames.push_back(expected.identifierKey);
        EXPECT_EQ(tree[expected.identifierKey].GetString(), expected.identifier);
    }
    rootNames.insert(rootNames.end(), expected.flags.begin(), expected.flags.end());
    rootNames.insert(rootNames.end(), expected.extras.begin(), expected.extras.end());
    rootNames.push_back(IFormatFile::TAG_LIMITS);
    rootNames.push_back(IPreset::KEY_STREAMS);
    ASSERT_EQ(ChildNames(tree), rootNames);

    for (const std::string& flag : expected.flags) {
        ASSERT_EQ(tree[flag].GetType(), TYPE_BOOL) << flag;
        EXPECT_FALSE(tree[flag].GetBool()) << flag;
    }

    const Property& limits = tree[IFormatFile::TAG_LIMITS];
    ASSERT_EQ(ChildNames(limits),
              (std::vector<std::string>{IFormatFile::TAG_LIMITS_VIDEO, IFormatFile::TAG_LIMITS_AUDIO,
                                        IFormatFile::TAG_LIMITS_SUBTITLE, IFormatFile::TAG_LIMITS_OTHER}));
    for (unsigned long i = 0; i < limits.Count(); ++i) {
        ASSERT_EQ(limits[i].GetType(), TYPE_INT64);
        EXPECT_EQ(limits[i].GetInt64(), expected.limits.at(i)) << limits[i].GetName();
    }

    const Property& streams = tree[IPreset::KEY_STREAMS];
    ASSERT_EQ(streams.Count(), expected.streams.size());
    for (unsigned long i = 0; i < streams.Count(); ++i) {
        const Property& stream = streams[i];
        const StreamDefault& want = expected.streams[i];
        const std::string& section =
            want.type == IPreset::STREAM_TYPE_VIDEO ? IPreset::KEY_FILTER_VIDEO_CODEC : IPreset::KEY_FILTER_AUDIO_CODEC;
        EXPECT_EQ(stream.GetName(), std::to_string(i));
        ASSERT_EQ(ChildNames(stream), (std::vector<std::string>{IPreset::KEY_TYPE_ID, section}));
        EXPECT_EQ(stream[IPreset::KEY_TYPE_ID].GetString(), want.type);
        ASSERT_EQ(ChildNames(stream[section]), std::vector<std::string>{IFormatCodec::TAG_CODEC_ID});
        EXPECT_EQ(stream[section][IFormatCodec::TAG_CODEC_ID].GetString(), want.codec);
    }
}

}  // namespace FormatTest
