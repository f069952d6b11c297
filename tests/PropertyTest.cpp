#include "Core/Property.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

using Tervan::Core::MethodIsNotApplicable;
using Tervan::Core::Property;
using Tervan::Core::PropertyException;
using Ratio = Property::Ratio;

namespace {

Property SampleTree() {
    Property root("root");
    root.CreateChildT("flag", true);
    root.CreateChildT("rate", 44100LL);
    Property& codec = root.SetChild("codec");
    codec.CreateChildT("id", std::string("aac"));
    codec.SetChild("fps", Property("", Ratio(30000, 1001)));
    return root;
}

template <class E, class Tag>
typename Tag::value_type TagOf(const E& e) {
    const auto* value = boost::get_error_info<Tag>(e);
    EXPECT_NE(value, nullptr);
    return value == nullptr ? typename Tag::value_type() : *value;
}

}  // namespace

TEST(Property, ConstructorsSetTheType) {
    EXPECT_EQ(Property("c").GetType(), Tervan::TYPE_CONTAINER);
    EXPECT_EQ(Property("b", true).GetType(), Tervan::TYPE_BOOL);
    EXPECT_EQ(Property("d", 25.0).GetType(), Tervan::TYPE_DOUBLE);
    EXPECT_EQ(Property("i", 25).GetType(), Tervan::TYPE_INT64);
    EXPECT_EQ(Property("s", "text").GetType(), Tervan::TYPE_STRING);
    EXPECT_EQ(Property("r", Ratio(1, 2)).GetType(), Tervan::TYPE_RATIONAL);
}

TEST(Property, AssignmentReplacesTypeAndDropsChildren) {
    Property node = SampleTree();
    node = "now a string";
    EXPECT_EQ(node.GetType(), Tervan::TYPE_STRING);
    EXPECT_EQ(node.Count(), 0u);
    node = 7;
    EXPECT_EQ(node.GetType(), Tervan::TYPE_INT64);
    EXPECT_EQ(node.GetInt64(), 7);
    EXPECT_EQ(node.GetName(), "root");
}

// Every integer type goes in as a 64-bit integer, by constructor, assignment and
// SetChildT alike; an unsigned value too large for it is refused, not wrapped.
TEST(Property, AnyIntegerTypeIsStoredAs64Bits) {
    constexpr unsigned long long largest = std::numeric_limits<long long>::max();
    Property root("root");
    root.SetChildT("unsigned", 5u);
    root.SetChildT("size", std::size_t{6});
    root["unsigned"] = static_cast<unsigned short>(7);
    root["size"] = largest;
    EXPECT_EQ(root["unsigned"].GetInt64(), 7);
    EXPECT_EQ(root["size"].GetInt64(), std::numeric_limits<long long>::max());
    EXPECT_EQ(Property("u8", std::uint8_t{200}).GetInt64(), 200);
    EXPECT_EQ(Property("neg", static_cast<signed char>(-3)).GetInt64(), -3);

    EXPECT_THROW(Property("big", largest + 1), PropertyException);
    try {
        root["size"] = std::numeric_limits<unsigned long long>::max();
        ADD_FAILURE() << "no exception";
    } catch (const PropertyException& e) {
        EXPECT_STREQ(e.what(),
                     "Property 'size' cannot hold 18446744073709551615: beyond the 64-bit integers it stores");
    }
    EXPECT_EQ(root["size"].GetInt64(), std::numeric_limits<long long>::max()) << "a refused value changes nothing";
}

TEST(Property, NumericReadersConvert) {
    EXPECT_EQ(Property("d", -2.9).GetInt64(), -2);
    // Beyond the integers' range a double reads as the nearest end; NaN is no integer.
    EXPECT_EQ(Property("d", 1e300).GetInt64(), std::numeric_limits<long long>::max());
    EXPECT_EQ(Property("d", -1e300).GetInt64(), std::numeric_limits<long long>::min());
    EXPECT_THROW(Property("d", std::nan("")).GetInt64(), PropertyException);
    EXPECT_DOUBLE_EQ(Property("i", 3).GetDouble(), 3.0);
    EXPECT_NEAR(Property("r", Ratio(30000, 1001)).GetDouble(), 29.97, 0.001);
    EXPECT_THROW(Property("s", "x").GetInt64(), PropertyException);
    EXPECT_THROW(Property("i", 1).GetString(), PropertyException);
    EXPECT_THROW(Property("c").GetBool(), PropertyException);
}

TEST(Property, WrongTypeReadIsReportedAsTheReadersOwn) {
    const Property text("name", "x");
    const std::pair<const char*, void (*)(const Property&)> readers[] = {
        {"GetBool", [](const Property& p) { p.GetBool(); }},
        {"GetInt64", [](const Property& p) { p.GetInt64(); }},
        {"GetDouble", [](const Property& p) { p.GetDouble(); }},
        {"GetRatio", [](const Property& p) { p.GetRatio(); }},
    };
    for (const auto& [method, read] : readers) {
        SCOPED_TRACE(method);
        try {
            read(text);
            ADD_FAILURE() << "no exception";
        } catch (const PropertyException& e) {
            EXPECT_EQ((TagOf<PropertyException, PropertyException::TagMethodName>(e)), method);
            EXPECT_EQ((TagOf<PropertyException, PropertyException::TagPropertyName>(e)), "name");
            // The host sees the operation it called, not a helper behind it.
            const std::string function = TagOf<PropertyException, boost::throw_function>(e);
            EXPECT_NE(function.find(std::string("Property::") + method), std::string::npos) << function;
        }
    }
}

TEST(Property, CopyIsDeep) {
    Property original = SampleTree();
    Property copy = original;
    copy["codec"]["id"] = "mp3";
    EXPECT_EQ(original["codec"]["id"].GetString(), "aac");
    EXPECT_EQ(copy["codec"]["id"].GetString(), "mp3");
    Property moved = std::move(copy);
    EXPECT_EQ(moved["codec"]["id"].GetString(), "mp3");
}

TEST(Property, EqualityComparesValuesNotNodeNames) {
    EXPECT_EQ(Property("a", 5), Property("b", 5));
    EXPECT_NE(Property("a", 5), Property("a", 5.0));
    EXPECT_NE(Property("a", 5), Property("a", 6));
    Property left = SampleTree();
    Property right = SampleTree();
    right.SetName("other");
    EXPECT_EQ(left, right);
    right["codec"]["fps"] = Ratio(25);
    EXPECT_NE(left, right);
}

TEST(Property, ChildrenKeepInsertionOrderAndSetChildReplacesInPlace) {
    Property root = SampleTree();
    root.SetChild("flag", Property("ignored", 3));
    ASSERT_EQ(root.Count(), 3u);
    EXPECT_EQ(root[0ul].GetName(), "flag");
    EXPECT_EQ(root[0ul].GetInt64(), 3);
    EXPECT_EQ(root[2ul].GetName(), "codec");
    root.RemoveChild("rate");
    EXPECT_FALSE(root.ChildExists("rate"));
    EXPECT_EQ(root.Count(), 2u);
    root.RemoveAll();
    EXPECT_EQ(root.Count(), 0u);
}

// Siblings of one length that differ in a single byte, for every length a name search
// compares in its own way and every position of the difference.
TEST(Property, FindChildTellsApartNamesDifferingInOneByte) {
    for (std::size_t size = 0; size <= 20; ++size) {
        const std::string base(size, 'a');
        Property node("node");
        for (std::size_t at = 0; at < size; ++at) {
            std::string name = base;
            name[at] = 'b';
            node.CreateChildT(name, static_cast<long long>(at));
        }
        node.CreateChildT(base, -1LL);
        for (std::size_t at = 0; at < size; ++at) {
            SCOPED_TRACE("length " + std::to_string(size) + ", byte " + std::to_string(at));
            std::string name = base;
            name[at] = 'b';
            const Property* found = node.FindChild(name);
            ASSERT_NE(found, nullptr);
            EXPECT_EQ(found->GetInt64(), static_cast<long long>(at));
            name[at] = 'c';
            EXPECT_EQ(node.FindChild(name), nullptr);
        }
        SCOPED_TRACE("length " + std::to_string(size));
        ASSERT_NE(node.FindChild(base), nullptr);
        EXPECT_EQ(node.FindChild(base)->GetInt64(), -1);
        EXPECT_EQ(node.FindChild(base + "a"), nullptr);
    }
}

TEST(Property, SetChildTakesItsValueFromTheSameTree) {
    Property root = SampleTree();
    // Enough siblings that appending must move the children the value is read from.
    for (int i = 0; i < 16; ++i) {
        root.SetChild("copy" + std::to_string(i), root["codec"]);
    }
    EXPECT_EQ(root.ChildByPath("copy15" + Property::SEPARATOR + "id").GetString(), "aac");
    Property& codec = root["codec"];
    codec.SetChild("nested", codec);
    EXPECT_EQ(root.ChildByPath("codec" + Property::SEPARATOR + "nested" + Property::SEPARATOR + "id").GetString(),
              "aac");
    root.SetChild("moved", std::move(root["copy0"]));
    EXPECT_EQ(root["moved"]["id"].GetString(), "aac");
    EXPECT_EQ(root["moved"].GetName(), "moved");
    // A node moved into itself becomes its own only child.
    Property self = SampleTree();
    Property& alias = self;
    self.SetChild("self", std::move(alias));
    ASSERT_EQ(self.Count(), 1u);
    EXPECT_EQ(self["self"]["codec"]["id"].GetString(), "aac");
    // The name may be the moved value's own, once as a new child and once replacing one.
    Property parent("parent");
    for (int round = 0; round < 2; ++round) {
        Property own("own", round);
        parent.SetChild(own.GetName(), std::move(own));
        ASSERT_EQ(parent.Count(), 1u);
        EXPECT_EQ(parent[0ul].GetName(), "own");
        EXPECT_EQ(parent[0ul].GetInt64(), round);
    }
}

TEST(Property, CreateChildTAppendsWithoutLookingSetChildTReplaces) {
    Property root("root");
    root.CreateChildT("x", 1LL);
    root.CreateChildT("x", 2LL);
    EXPECT_EQ(root.Count(), 2u);
    root.SetChildT("x", 5LL);
    EXPECT_EQ(root[0ul].GetInt64(), 5);
    EXPECT_EQ(root[1ul].GetInt64(), 2);
    root.SetChildT("y", std::string("new"));
    EXPECT_EQ(root["y"].GetString(), "new");
}

TEST(Property, AddingChildrenToAValueThrowsWithTags) {
    struct Case {
        const char* method;
        std::function<void(Property&)> call;
    };
    const Case cases[] = {
        {"CreateChildT", [](Property& p) { p.CreateChildT("c", true); }},
        {"SetChildT", [](Property& p) { p.SetChildT("c", 1.5); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.method);
        Property value("leaf", 42);
        try {
            c.call(value);
            FAIL() << "no exception";
        } catch (const MethodIsNotApplicable& e) {
            EXPECT_EQ((TagOf<MethodIsNotApplicable, PropertyException::TagMethodName>(e)), c.method);
            EXPECT_EQ((TagOf<MethodIsNotApplicable, PropertyException::TagPropertyName>(e)), "leaf");
            EXPECT_EQ((TagOf<MethodIsNotApplicable, PropertyException::TagPropertyType>(e)), Tervan::TYPE_INT64);
            EXPECT_EQ(e.what(), "Property 'leaf' holds a value of the type int64, so " + std::string(c.method) +
                                    " cannot give it children");
            EXPECT_FALSE((TagOf<MethodIsNotApplicable, Tervan::Exception::TagCallStack>(e)).empty());
            EXPECT_NE(boost::get_error_info<boost::throw_file>(e), nullptr);
            EXPECT_NE(boost::get_error_info<boost::throw_line>(e), nullptr);
        }
        EXPECT_EQ(value.GetInt64(), 42);
        EXPECT_EQ(value.GetType(), Tervan::TYPE_INT64);
    }
}

TEST(Property, ChildByPathFollowsSeparatorAndNamesTheMissingPath) {
    const Property root = SampleTree();
    const std::string path = "codec" + Property::SEPARATOR + "id";
    EXPECT_EQ(root.ChildByPath(path).GetString(), "aac");
    EXPECT_EQ(root.ChildByPath("rate").GetInt64(), 44100);
    const std::string missing = "codec" + Property::SEPARATOR + "bitrate";
    EXPECT_EQ(root.FindChildByPath(missing), nullptr);
    try {
        root.ChildByPath(missing);
        FAIL() << "no exception";
    } catch (const PropertyException& e) {
        EXPECT_EQ((TagOf<PropertyException, PropertyException::TagPropertyName>(e)), missing);
    }
}

TEST(Property, IndexingAbsentChild) {
    Property root("root");
    Property& created = root["new"];
    EXPECT_EQ(created.GetType(), Tervan::TYPE_CONTAINER);
    EXPECT_TRUE(root.ChildExists("new"));
    const Property& constRoot = root;
    EXPECT_THROW(constRoot["absent"], PropertyException);
    EXPECT_THROW(constRoot[5ul], PropertyException);
}

TEST(Property, CopyDataFromKeepsTheName) {
    Property target("target", 1);
    target.CopyDataFrom(SampleTree());
    EXPECT_EQ(target.GetName(), "target");
    EXPECT_EQ(target.Count(), 3u);
    // Taking data from one's own descendant must not read freed memory.
    target.CopyDataFrom(target["codec"]);
    EXPECT_EQ(target["id"].GetString(), "aac");
}

TEST(Property, ValueToString) {
    EXPECT_EQ(PropertyValueToString(Property("", true)), "true");
    EXPECT_EQ(PropertyValueToString(Property("", 8000)), "8000");
    EXPECT_EQ(PropertyValueToString(Property("", 25.0)), "25");
    EXPECT_EQ(PropertyValueToString(Property("", 0.1)), "0.1");
    EXPECT_EQ(PropertyValueToString(Property("", Ratio(60000, 2002))), "30000/1001");
    EXPECT_EQ(PropertyValueToString(Property("", "s16")), "s16");
}
