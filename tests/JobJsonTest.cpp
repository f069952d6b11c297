#include "JobJson.h"

#include <gtest/gtest.h>

#include <string>

using namespace Tervan;
using namespace Tervan::Job;

namespace {

Core::Property Parse(const std::string& text) {
    return PropertyFromJson(ParseJson(text, ""), "root", "");
}

std::string RoundTrip(const std::string& text) {
    return DumpJson(JsonFromProperty(Parse(text)));
}

// The message of the InputError that text raises, or a failure.
std::string Refusal(const std::string& text) {
    try {
        Parse(text);
    } catch (const InputError& e) {
        return e.what();
    }
    ADD_FAILURE() << "accepted: " << text;
    return {};
}

}  // namespace

TEST(JobJson, EveryTypeMapsToItsOwn) {
    const Core::Property root =
        Parse(R"({"b": true, "i": 44100, "d": 25.0, "s": "mp3", "r": {"$rational": [30000, 1001]}, "c": {}})");
    EXPECT_EQ(root["b"].GetType(), TYPE_BOOL);
    EXPECT_EQ(root["i"].GetType(), TYPE_INT64);
    EXPECT_EQ(root["i"].GetInt64(), 44100);
    EXPECT_EQ(root["d"].GetType(), TYPE_DOUBLE);
    EXPECT_EQ(root["s"].GetString(), "mp3");
    ASSERT_EQ(root["r"].GetType(), TYPE_RATIONAL);
    EXPECT_EQ(root["r"].GetRatio(), Core::Property::Ratio(30000, 1001));
    EXPECT_EQ(root["c"].GetType(), TYPE_CONTAINER);
    EXPECT_EQ(root["c"].Count(), 0u);
}

TEST(JobJson, RoundTripKeepsTypesAndOrder) {
    struct Case {
        const char* input;
        const char* output;
    };
    const Case cases[] = {
        {R"({"rate": 25.0})", "{\n  \"rate\": 25.0\n}\n"},
        {R"({"rate": 25})", "{\n  \"rate\": 25\n}\n"},
        {R"({"tiny": 1e-20})", "{\n  \"tiny\": 1e-20\n}\n"},
        // The integers' ends stay integers, exactly.
        {R"({"max": 9223372036854775807, "min": -9223372036854775808})",
         "{\n  \"max\": 9223372036854775807,\n  \"min\": -9223372036854775808\n}\n"},
        {R"({"big": 1.5e300})", "{\n  \"big\": 1.5e+300\n}\n"},
        {R"({"z": 1, "a": 2, "m": 3})", "{\n  \"z\": 1,\n  \"a\": 2,\n  \"m\": 3\n}\n"},
        {R"({"fps": {"$rational": [60000, 2002]}})", "{\n  \"fps\": {\"$rational\": [30000, 1001]}\n}\n"},
        {R"({"fps": {"$rational": [1, -2]}})", "{\n  \"fps\": {\"$rational\": [-1, 2]}\n}\n"},
        {R"({"empty": {}, "text": "caf\u00e9"})", "{\n  \"empty\": {},\n  \"text\": \"caf\u00e9\"\n}\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.input);
        EXPECT_EQ(RoundTrip(c.input), c.output);
        EXPECT_EQ(RoundTrip(c.output), c.output);
    }
}

TEST(JobJson, RefusesWhatASettingsTreeCannotHold) {
    struct Case {
        const char* input;
        const char* message;
    };
    const Case cases[] = {
        {R"({"a": null})", "a: expected a value or an object, found null"},
        {R"({"a": [1, 2]})", "a: expected a value or an object; arrays appear only in"},
        {R"({"a": 18446744073709551615})", "a: integer out of the signed 64-bit range"},
        // Beyond 64 bits an integer would otherwise arrive as a double.
        {R"({"a": {"b": 18446744073709551616}})", "a/b: integer out of the signed 64-bit range"},
        {R"({"a": -9223372036854775809})", "a: integer out of the signed 64-bit range"},
        {R"({"a": 1e400})", "a: number out of the floating-point range"},
        {R"({"a": {"b": 1, "b": 2}})", "a/b: duplicate key"},
        {R"({"a/b": 1})", "a/b: a setting name must not contain \"/\""},
        {R"({"": 1})", "a setting name must not be empty"},
        {R"({"$fps": 1})", "$fps: names beginning with \"$\" are reserved"},
        {R"({"r": {"$rational": [1, 0]}})", "r: expected {\"$rational\": [numerator, denominator]}"},
        {R"({"r": {"$rational": [1]}})", "r: expected {\"$rational\""},
        {R"({"r": {"$rational": [1.5, 2]}})", "r: expected {\"$rational\""},
        {R"({"r": {"$rational": [-9223372036854775808, 1]}})", "r: expected {\"$rational\""},
        {R"({"r": {"$rational": [1, 2], "x": 1}})", "r: expected {\"$rational\""},
        {R"({"a": 1,})", "malformed JSON: "},
        {"", "malformed JSON: "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.input);
        const std::string message = Refusal(c.input);
        EXPECT_EQ(message.rfind(c.message, 0), 0u) << message;
    }
}

TEST(JobJson, RefusesDocumentsBeyondTheLimits) {
    std::string deep;
    for (std::size_t i = 0; i <= JsonLimits::MAX_DEPTH; ++i) {
        deep += "{\"n\": ";
    }
    deep += "1" + std::string(JsonLimits::MAX_DEPTH + 1, '}');
    EXPECT_NE(Refusal(deep).find("nested deeper than"), std::string::npos);

    std::string wide = "{";
    for (std::size_t i = 0; i <= JsonLimits::MAX_CHILDREN; ++i) {
        wide += (i == 0 ? "\"" : ",\"") + std::to_string(i) + "\": 0";
    }
    EXPECT_NE(Refusal(wide + "}").find("members in one object"), std::string::npos);

    const std::string large = "\"" + std::string(JsonLimits::MAX_BYTES, 'x') + "\"";
    EXPECT_NE(Refusal(large).find("document too large"), std::string::npos);
}

// Refusals inside the settings name their place from the settings' own root.
TEST(JobJson, RefusalsInsideTheRootAreNamedFromIt) {
    const auto refusal = [](const std::string& text) {
        try {
            ParseJson(text, "format");
        } catch (const InputError& e) {
            return std::string(e.what());
        }
        return std::string("accepted");
    };
    EXPECT_EQ(refusal(R"({"format": {"streams": {"a": 1, "a": 2}}})"),
              "streams/a: duplicate key; every name in an object must be unique");
    EXPECT_EQ(refusal(R"({"format": 1, "format": 2})"),
              "format: duplicate key; every name in an object must be unique");
    EXPECT_EQ(refusal(R"({"other": {"x": 1e999}})"), "other/x: number out of the floating-point range");
}

// A name may hold a line break; a refusal naming it stays one line.
TEST(JobJson, RefusalsStayOnOneLine) {
    EXPECT_EQ(std::string(InputError("a\nb", "unknown member \"x\ty\"").what()), "a\\nb: unknown member \"x\\ty\"");
    EXPECT_EQ(OneLine("plain"), "plain");
    EXPECT_EQ(OneLine(std::string("nul\0here", 8)), "nul\\u0000here");
}

TEST(JobJson, DisplayValueIsOneShortLine) {
    EXPECT_EQ(DisplayValue(Core::Property("", std::string("mp3"))), "\"mp3\"");
    EXPECT_EQ(DisplayValue(Core::Property("", 25.0)), "25.0");
    EXPECT_EQ(DisplayValue(Core::Property("", Core::Property::Ratio(24000, 1001))), "24000/1001");
    Core::Property node("node");
    node.SetChildT("text", std::string(200, 'x'));
    const std::string shown = DisplayValue(node);
    EXPECT_LE(shown.size(), 60u);
    EXPECT_EQ(shown.substr(shown.size() - 3), "...");
}
