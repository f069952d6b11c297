// Drives the built tervan-job binary end to end.
#include "Conf/Interfaces/IFormatCodecVideo.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

using namespace Tervan::Conf;
using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

namespace {

struct Outcome {
    int status = -1;
    std::string out;
    std::string err;

    Json Document() const { return Json::parse(out); }
};

std::string Slurp(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

class TervanJob : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "tervan-job-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        m_dir = pattern;
    }
    void TearDown() override { fs::remove_all(m_dir); }

    // Runs the tool in the C locale unless the environment says otherwise.
    Outcome Run(const std::string& arguments, const std::string& environment = "LANGUAGE= LC_ALL=C") const {
        const fs::path out = m_dir / "stdout";
        const fs::path err = m_dir / "stderr";
        const std::string command = environment + " " + TERVAN_JOB_PATH + " " + arguments + " >" + out.string() +
                                    " 2>" + err.string() + " </dev/null";
        const int raw = std::system(command.c_str());
        Outcome outcome;
        outcome.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        outcome.out = Slurp(out);
        outcome.err = Slurp(err);
        return outcome;
    }

    fs::path Write(const std::string& name, const std::string& text) const {
        const fs::path file = m_dir / name;
        std::ofstream(file, std::ios::binary) << text;
        return file;
    }

    static std::string Example(const std::string& name) { return std::string(TERVAN_EXAMPLES_DIR) + "/" + name; }

    static std::vector<std::string> Lines(const std::string& text) {
        std::vector<std::string> lines;
        std::istringstream in(text);
        for (std::string line; std::getline(in, line);) {
            lines.push_back(line);
        }
        return lines;
    }

    fs::path m_dir;
};

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace

TEST_F(TervanJob, HelpForTheToolAndEveryCommand) {
    const Outcome tool = Run("--help");
    EXPECT_EQ(tool.status, 0);
    for (const std::string command : {"list", "new", "check", "fix", "options", "apply"}) {
        SCOPED_TRACE(command);
        EXPECT_TRUE(Contains(tool.out, "\n  " + command + " ")) << tool.out;
        const Outcome help = Run(command + " --help");
        EXPECT_EQ(help.status, 0);
        EXPECT_EQ(help.out.rfind("Usage: tervan-job " + command, 0), 0u) << help.out;
        EXPECT_TRUE(Contains(help.out, "--help"));
    }
}

TEST_F(TervanJob, UsageErrorsPointToTheHelp) {
    struct Case {
        const char* arguments;
        const char* message;
    };
    const Case cases[] = {
        {"", "tervan-job: missing command\nTry 'tervan-job --help'."},
        {"frobnicate", "tervan-job: unknown command 'frobnicate'"},
        {"check", "tervan-job: missing argument job\nTry 'tervan-job check --help'."},
        {"check a.json b.json", "tervan-job: too many positional options"},
        {"new mp4 --colour red", "tervan-job: unrecognised option '--colour'"},
        {"list codecs", "tervan-job: unknown kind 'codecs'"},
        {"options codec h264", "tervan-job: unknown kind 'codec'"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments);
        const Outcome outcome = Run(c.arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err.rfind(c.message, 0), 0u) << outcome.err;
        EXPECT_TRUE(outcome.out.empty());
    }
}

TEST_F(TervanJob, ListsTheRegistry) {
    struct Case {
        const char* kind;
        std::size_t count;
        const char* member;
    };
    const Case cases[] = {{"formats", 44, "matroska"}, {"audio", 25, "pcm_s16le"}, {"video", 30, "h264"}, {"filters", 7, "resize"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.kind);
        const Outcome outcome = Run(std::string("list ") + c.kind);
        EXPECT_EQ(outcome.status, 0);
        const std::vector<std::string> names = Lines(outcome.out);
        EXPECT_EQ(names.size(), c.count);
        EXPECT_NE(std::find(names.begin(), names.end(), c.member), names.end());
    }
}

TEST_F(TervanJob, NewJobOfEveryFormatIsValid) {
    const std::vector<std::string> formats = Lines(Run("list formats").out);
    ASSERT_EQ(formats.size(), 44u);
    for (const std::string& format : formats) {
        SCOPED_TRACE(format);
        const fs::path job = m_dir / (format + ".json");
        const Outcome made = Run("new " + format + " -o " + job.string());
        ASSERT_EQ(made.status, 0) << made.err;
        EXPECT_TRUE(made.err.empty()) << made.err;
        const Json document = Json::parse(Slurp(job));
        EXPECT_EQ(document["format_name"], format);
        for (const auto& stream : document["format"]["streams"].items()) {
            const bool audio = stream.value()["type"] == "audio";
            EXPECT_TRUE(stream.value()[audio ? "audio_codec" : "video_codec"].contains("codec_id"));
        }
        const Outcome checked = Run("check " + job.string());
        EXPECT_EQ(checked.status, 0) << checked.out << checked.err;
        EXPECT_EQ(checked.out, "valid\n");
        // A valid job needs no repair.
        const Outcome fixed = Run("fix " + job.string());
        EXPECT_EQ(fixed.status, 0);
        EXPECT_EQ(fixed.err, "0 changes; the job is valid\n");
        EXPECT_EQ(fixed.out, Slurp(job));
    }
}

TEST_F(TervanJob, NewWithChosenCodecs) {
    const Outcome mkv = Run("new matroska --video vp9 --audio vorbis");
    ASSERT_EQ(mkv.status, 0) << mkv.err;
    const Json streams = mkv.Document()["format"]["streams"];
    EXPECT_EQ(streams["0"]["video_codec"]["codec_id"], "vp9");
    EXPECT_EQ(streams["0"]["video_codec"]["bitrate_mode"], "vbr");
    EXPECT_EQ(streams["1"]["audio_codec"]["codec_id"], "vorbis");
    EXPECT_TRUE(streams["1"].contains("audio_resample"));

    struct Case {
        const char* arguments;
        const char* message;
    };
    const Case refused[] = {
        {"new mp4 --audio vorbis", "tervan-job: --audio: format mp4 does not carry vorbis; it carries one of: aac"},
        {"new mp3 --video h264", "tervan-job: --video: format mp3 has no video stream"},
        {"new mp4 --video h265", "tervan-job: --video: unknown video codec \"h265\"; expected one of: "},
        {"new mp5", "tervan-job: FORMAT: unknown format \"mp5\"; expected one of: 3g2, 3gp,"},
    };
    for (const Case& c : refused) {
        SCOPED_TRACE(c.arguments);
        const Outcome outcome = Run(c.arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err.rfind(c.message, 0), 0u) << outcome.err;
        EXPECT_TRUE(outcome.out.empty());
    }
}

TEST_F(TervanJob, OptionsForH264ListTheTenPresetsInOrder) {
    const Outcome outcome = Run("options video h264 --json");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const Json document = outcome.Document();
    const std::string expected[] = {
        IFormatCodecVideo::TAG_X264_PRESET_ULTRAFAST, IFormatCodecVideo::TAG_X264_PRESET_SUPERFAST,
        IFormatCodecVideo::TAG_X264_PRESET_VERYFAST,  IFormatCodecVideo::TAG_X264_PRESET_FASTER,
        IFormatCodecVideo::TAG_X264_PRESET_FAST,      IFormatCodecVideo::TAG_X264_PRESET_MEDIUM,
        IFormatCodecVideo::TAG_X264_PRESET_SLOW,      IFormatCodecVideo::TAG_X264_PRESET_SLOWER,
        IFormatCodecVideo::TAG_X264_PRESET_VERYSLOW,  IFormatCodecVideo::TAG_X264_PRESET_PLACEBO,
    };
    std::vector<std::string> presets;
    for (const Json& setting : document["settings"]) {
        if (setting["path"] == "encoder_options/preset") {
            EXPECT_EQ(setting["default"], IFormatCodecVideo::TAG_X264_PRESET_FASTER);
            for (const Json& value : setting["values"]) {
                presets.push_back(value["value"]);
            }
        }
    }
    EXPECT_EQ(presets, std::vector<std::string>(std::begin(expected), std::end(expected)));
    ASSERT_EQ(document["rules"].size(), 1u);
    EXPECT_EQ(document["rules"][0]["then"]["path"], "video_codec/encoder_options/profile");

    const Outcome text = Run("options video h264");
    EXPECT_TRUE(Contains(text.out, "  encoder_options/preset = \"faster\": must be one of: ultrafast, superfast, "
                                   "veryfast, faster, fast, medium, slow, slower, veryslow, placebo\n"))
        << text.out;
}

TEST_F(TervanJob, OptionsShowRangesLabelsAndPredicates) {
    const Outcome dvd = Run("options format dvd");
    EXPECT_EQ(dvd.status, 0);
    EXPECT_TRUE(Contains(dvd.out, "disk_size = 4707319808: must be one of: DVD mini (1.4 GB) (1463874560), "));
    EXPECT_TRUE(Contains(dvd.out, "streams/@audio/audio_codec/codec_id: must be one of: mp2, ac3\n"));
    const Outcome resize = Run("options filter resize");
    EXPECT_TRUE(Contains(resize.out, "resizer/width = 800: must be from 32 to 4096 in steps of 2\n"));
    EXPECT_TRUE(Contains(resize.out, "resize/resizer/width: Value must be an even number\n"));
    const Outcome translated = Run("options filter resize", "LANGUAGE=de");
    EXPECT_TRUE(Contains(translated.out, "resize/resizer/width: Der Wert muss eine gerade Zahl sein\n"));
    const Json json = Run("options format dvd --json").Document();
    bool seen = false;
    for (const Json& setting : json["settings"]) {
        if (setting["path"] == "streams/@video/video_codec/codec_id") {
            seen = true;
            EXPECT_EQ(setting["in_every_stream"], "video");
            EXPECT_EQ(setting["stream_path"], "video_codec/codec_id");
        }
    }
    EXPECT_TRUE(seen);
    EXPECT_EQ(Run("options audio opus").status, 2);
}
