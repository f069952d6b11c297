// Drives the built tervan-job binary end to end.
#include "Conf/Interfaces/IFormatCodecVideo.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
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

    fs::path m_dir;
};

// Either way the assertion goes, its message shows the whole text.
testing::AssertionResult Contains(const std::string& text, const std::string& part) {
    const bool found = text.find(part) != std::string::npos;
    return (found ? testing::AssertionSuccess() : testing::AssertionFailure())
           << "\"" << part << "\" " << (found ? "in" : "not in") << ":\n"
           << text;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

// A refusal: status 2, nothing on standard output, one line on standard error holding message.
void ExpectRefused(const Outcome& outcome, const std::string& message) {
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, message));
    EXPECT_EQ(Lines(outcome.err).size(), 1u);
    EXPECT_TRUE(outcome.out.empty());
}

}  // namespace

TEST_F(TervanJob, HelpForTheToolAndEveryCommand) {
    const Outcome tool = Run("--help");
    EXPECT_EQ(tool.status, 0);
    for (const std::string command : {"list", "new", "check", "fix", "options", "apply"}) {
        SCOPED_TRACE(command);
        EXPECT_TRUE(Contains(tool.out, "\n  " + command + " "));
        const Outcome help = Run(command + " --help");
        EXPECT_EQ(help.status, 0);
        EXPECT_EQ(help.out.rfind("Usage: tervan-job " + command, 0), 0u) << help.out;
        EXPECT_TRUE(Contains(help.out, "--help"));
    }
}

TEST_F(TervanJob, BadCommandLinesAreRefusedWithTheReason) {
    struct Case {
        const char* arguments;
        const char* message;  // how standard error starts
    };
    const Case cases[] = {
        {"", "tervan-job: missing command\nTry 'tervan-job --help'."},
        {"frobnicate", "tervan-job: unknown command 'frobnicate'"},
        {"check", "tervan-job: missing argument job\nTry 'tervan-job check --help'."},
        {"check a.json b.json", "tervan-job: too many positional options"},
        {"new mp4 --colour red", "tervan-job: unrecognised option '--colour'"},
        {"list codecs", "tervan-job: unknown kind 'codecs'"},
        {"options codec h264", "tervan-job: unknown kind 'codec'"},
        {"new mp4 --audio vorbis", "tervan-job: --audio: format mp4 does not carry vorbis; it carries one of: aac"},
        {"new mp4 --audio auto",
         "tervan-job: --audio: format mp4 does not carry auto; it carries one of: aac, ac3, dts, "
         "mp3\n"},
        {"new mp3 --video h264", "tervan-job: --video: format mp3 has no video stream"},
        {"new mp4 --video h265", "tervan-job: --video: unknown video codec \"h265\"; expected one of: "},
        {"new matroska --video dvvideo",
         "tervan-job: --video: video codec \"dvvideo\" has no helper, so its settings can be neither built nor "
         "judged; codecs with helpers: bmp, "},
        {"new mp5", "tervan-job: FORMAT: unknown format \"mp5\"; expected one of: 3g2, 3gp,"},
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
    const Case cases[] = {
        {"formats", 44, "matroska"}, {"audio", 25, "pcm_s16le"}, {"video", 30, "h264"}, {"filters", 7, "resize"}};
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
        for (const bool automatic : {false, true}) {
            SCOPED_TRACE(format + (automatic ? " --auto" : ""));
            const fs::path job = m_dir / (format + ".json");
            const Outcome made = Run("new " + format + (automatic ? " --auto" : "") + " -o " + job.string());
            ASSERT_EQ(made.status, 0) << made.err;
            EXPECT_TRUE(made.err.empty()) << made.err;
            const Json document = Json::parse(Slurp(job));
            EXPECT_EQ(document["format_name"], format);
            EXPECT_EQ(document.value("auto", false), automatic);
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
}

// fix takes the codec's side as the source, so check judges it as well.
TEST_F(TervanJob, CheckJudgesTheCodecSideWhereTheSidesDisagree) {
    Json document = Run("new mp4 --audio mp3").Document();
    document["format"]["streams"]["1"]["audio_codec"]["sample_rate"] = 8000;
    const Outcome checked = Run("check " + Write("disagree.json", document.dump()).string());
    EXPECT_EQ(checked.status, 1);
    EXPECT_TRUE(Contains(checked.out,
                         "streams/1/audio_codec/sample_rate = 8000: Parameter sample_rate must be one of "
                         "the following values: 44100 48000 32000 22050 24000 16000 [format mp4, when "
                         "audio_codec/codec_id is mp3]"));
}

TEST_F(TervanJob, TheFormatFixesItsContainerAndLimits) {
    Json document = Run("new mp4").Document();
    document["format"]["container"] = "avi";
    document["format"]["limits"]["video"] = 99;
    const fs::path job = Write("avi.json", document.dump());
    const Outcome checked = Run("check " + job.string());
    EXPECT_EQ(checked.status, 1);
    EXPECT_EQ(checked.out,
              "container = \"avi\": must be \"mp4\", as the format has it [format mp4]\n"
              "limits/video = 99: must be 1, as the format has it [format mp4]\n2 violations\n");
    const Outcome fixed = Run("fix " + job.string());
    EXPECT_EQ(fixed.status, 0);
    EXPECT_EQ(fixed.err,
              "changed container: \"avi\" -> \"mp4\" (format mp4: fixed by the format)\n"
              "changed limits/video: 99 -> 1 (format mp4: fixed by the format)\n"
              "2 changes; the job is valid\n");
}

TEST_F(TervanJob, AutomaticJobsAdmitAutomaticValues) {
    const Outcome automaticCodec = Run("new mp4 --auto --audio auto");
    ASSERT_EQ(automaticCodec.status, 0) << automaticCodec.err;
    const Json audio = automaticCodec.Document()["format"]["streams"]["1"]["audio_codec"];
    EXPECT_EQ(audio["codec_id"], "auto");
    EXPECT_EQ(audio["bitrate_mode"], "cbr_auto");
    EXPECT_EQ(audio["sample_rate"], -1);

    // The converter is left to choose the sample rate, layout and frame rate.
    Json document = Run("new mp4 --auto").Document();
    Json& streams = document["format"]["streams"];
    streams["0"]["frame_rate_filter"]["frame_rate"] = Json{{"$rational", {-1, 1}}};
    streams["1"]["audio_resample"]["resampler"]["sample_rate"] = -1;
    streams["1"]["audio_resample"]["resampler"]["channel_layout"] = "unknown";
    const fs::path automatic = Write("automatic.json", document.dump());
    const Outcome checked = Run("check " + automatic.string());
    EXPECT_EQ(checked.status, 0) << checked.out;
    const Outcome fixed = Run("fix " + automatic.string());
    EXPECT_EQ(fixed.err, "0 changes; the job is valid\n");

    // Without the automatic helpers the same values are violations.
    document["auto"] = false;
    const Outcome plain = Run("check " + Write("plain.json", document.dump()).string());
    EXPECT_EQ(plain.status, 1);
    EXPECT_TRUE(Contains(plain.out,
                         "streams/1/audio_resample/resampler/sample_rate = -1: must equal "
                         "streams/1/audio_codec/sample_rate = 44100"));
    EXPECT_TRUE(Contains(plain.out, "streams/0/frame_rate_filter/frame_rate = -1/1: must equal"));

    // The automatic AC-3 helper and DVD disagree on the bitrate mode: said, and no step
    // that only takes a value away and back is reported as a change.
    const Outcome disagreeing = Run("new dvd --auto --audio ac3");
    EXPECT_EQ(disagreeing.status, 1);
    EXPECT_TRUE(Contains(disagreeing.err, "unfixable: streams/1/audio_codec/bitrate_mode = \"cbr\""));
    const Outcome refixed = Run("fix " + Write("dvd-ac3.json", disagreeing.out).string());
    EXPECT_EQ(refixed.status, 1);
    EXPECT_TRUE(Contains(refixed.err, "0 changes; 1 violation(s) remain"));

    const Outcome options = Run("options audio aac --auto");
    EXPECT_TRUE(Contains(options.out, "audio codec aac (automatic)"));
    EXPECT_TRUE(Contains(options.out, "bitrate_mode = \"cbr\": must be one of: cbr_auto, cbr"));
    EXPECT_FALSE(Contains(Run("options audio aac").out, "cbr_auto"));
}

TEST_F(TervanJob, NewWithChosenCodecs) {
    const Outcome mkv = Run("new matroska --video vp9 --audio vorbis");
    ASSERT_EQ(mkv.status, 0) << mkv.err;
    const Json streams = mkv.Document()["format"]["streams"];
    EXPECT_EQ(streams["0"]["video_codec"]["codec_id"], "vp9");
    EXPECT_EQ(streams["0"]["video_codec"]["bitrate_mode"], "vbr");
    EXPECT_EQ(streams["1"]["audio_codec"]["codec_id"], "vorbis");
    EXPECT_TRUE(streams["1"].contains("audio_resample"));
}

TEST_F(TervanJob, OptionsForH264ListTheTenPresetsInOrder) {
    const Outcome outcome = Run("options video h264 --json");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const Json document = outcome.Document();
    std::vector<std::string> presets;
    for (const Json& setting : document["settings"]) {
        if (setting["path"] == "encoder_options/preset") {
            EXPECT_EQ(setting["default"], IFormatCodecVideo::TAG_X264_PRESET_FASTER);
            for (const Json& value : setting["values"]) {
                presets.push_back(value["value"]);
            }
        }
    }
    const std::vector<std::string> expected = {
        IFormatCodecVideo::TAG_X264_PRESET_ULTRAFAST, IFormatCodecVideo::TAG_X264_PRESET_SUPERFAST,
        IFormatCodecVideo::TAG_X264_PRESET_VERYFAST,  IFormatCodecVideo::TAG_X264_PRESET_FASTER,
        IFormatCodecVideo::TAG_X264_PRESET_FAST,      IFormatCodecVideo::TAG_X264_PRESET_MEDIUM,
        IFormatCodecVideo::TAG_X264_PRESET_SLOW,      IFormatCodecVideo::TAG_X264_PRESET_SLOWER,
        IFormatCodecVideo::TAG_X264_PRESET_VERYSLOW,  IFormatCodecVideo::TAG_X264_PRESET_PLACEBO,
    };
    EXPECT_EQ(presets, expected);
    ASSERT_EQ(document["rules"].size(), 1u);
    EXPECT_EQ(document["rules"][0]["then"]["path"], "video_codec/encoder_options/profile");

    const Outcome text = Run("options video h264");
    EXPECT_TRUE(Contains(text.out,
                         "  encoder_options/preset = \"faster\": must be one of: ultrafast, superfast, "
                         "veryfast, faster, fast, medium, slow, slower, veryslow, placebo\n"));
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

    // AC-3's checks list nothing and describe nothing; they are not refusals.
    EXPECT_TRUE(Contains(Run("options audio ac3").out, "bitrate = 256000: decided by a check that lists no values\n"));
    const Json ac3 = Run("options audio ac3 --json").Document();
    EXPECT_EQ(ac3["settings"][2]["path"], "bitrate");
    EXPECT_EQ(ac3["settings"][2]["unlisted"], true);
}

TEST_F(TervanJob, ExampleJobsGetTheirVerdictsAndRepairs) {
    struct Value {
        const char* pointer;
        Json expected;
    };
    struct Case {
        const char* file;
        int checkStatus;
        const char* violation;             // a line of check's report
        std::vector<const char*> changes;  // fix's report, in order
        std::vector<Value> values;         // in the fixed job
    };
    const Case cases[] = {
        {"jobs/broken/wrong-codec.json",
         1,
         "streams/1/audio_codec/codec_id = \"vorbis\": must be one of: aac, ac3, dts, mp3 [format mp4]",
         {"changed streams/1/audio_codec/codec_id: \"vorbis\" -> \"aac\" (format mp4: must be one of: aac, ac3, dts, "
          "mp3)",
          "changed streams/1/audio_codec/quality: 1 -> (removed) (the defaults of codec aac, which replaced "
          "\"vorbis\")",
          "changed streams/1/audio_codec/encoder_options/profile: (missing) -> \"aac_main\" (the defaults of codec "
          "aac, "
          "which replaced \"vorbis\")",
          "3 changes; the job is valid"},
         {{"/format/streams/1/audio_codec/codec_id", "aac"}, {"/format/streams/1/audio_codec/bitrate", 256000}}},
        {"jobs/broken/encoder-sample-rate.json",
         1,
         "streams/1/audio_resample/resampler/sample_rate = 8000: Parameter sample_rate must be one of the following "
         "values: 96000 88200 64000 48000 44100 32000 24000 22050 16000 12000 11025 [codec aac, when "
         "audio_codec/codec_id is aac]",
         {"changed streams/1/audio_codec/sample_rate: 8000 -> 11025 (codec aac (when audio_codec/codec_id is aac): "
          "Parameter sample_rate must be one of the following values: 96000 88200 64000 48000 44100 32000 24000 "
          "22050 16000 12000 11025)",
          "changed streams/1/audio_resample/resampler/sample_rate: 8000 -> 11025 (kept in step with "
          "streams/1/audio_codec/sample_rate)",
          "2 changes; the job is valid"},
         {{"/format/streams/1/audio_resample/resampler/sample_rate", 11025}}},
        {"jobs/broken/bitrate-out-of-range.json",
         1,
         "streams/0/video_codec/bitrate = 50: must be from 100000 to 250000000 [codec h264]",
         {"changed streams/0/video_codec/bitrate: 50 -> 2000000 (codec h264: must be from 100000 to 250000000)",
          "1 change; the job is valid"},
         {{"/format/streams/0/video_codec/bitrate", 2000000}}},
        {"jobs/broken/dvd-audio.json",
         1,
         "streams/1/audio_codec/bitrate = 192000: Parameter bitrate must be one of the following values: 256000 "
         "[format dvd, when audio_codec/codec_id is one of: ac3, mp2]",
         {"changed streams/0/video_codec/bitrate: 9900000 -> 9800000 (format dvd (when video_codec/codec_id is "
          "mpeg2video): must be from 100000 to 9800000)",
          "changed streams/1/audio_codec/sample_rate: 44100 -> 48000 (format dvd (when audio_codec/codec_id is one "
          "of: ac3, mp2): Parameter sample_rate must be one of the following values: 48000)",
          "changed streams/1/audio_resample/resampler/sample_rate: 44100 -> 48000 (kept in step with "
          "streams/1/audio_codec/sample_rate)",
          "changed streams/1/audio_codec/bitrate: 192000 -> 256000 (format dvd (when audio_codec/codec_id is one of: "
          "ac3, mp2): Parameter bitrate must be one of the following values: 256000)",
          "4 changes; the job is valid"},
         {{"/format/streams/1/audio_codec/sample_rate", 48000}, {"/format/streams/0/video_codec/bitrate", 9800000}}},
        // Each correction is explained by the helper that made it.
        {"jobs/broken/mp3-8000.json",
         1,
         "streams/1/audio_resample/resampler/sample_rate = 8000: Parameter sample_rate must be one of the following "
         "values: 44100 48000 32000 22050 24000 16000 [format mp4, when audio_codec/codec_id is mp3]",
         {"changed streams/1/audio_codec/sample_rate: 8000 -> 11025 (codec mp3 (when audio_codec/codec_id is mp3): "
          "Parameter sample_rate must be one of the following values: 44100 48000 32000 22050 24000 16000 11025 "
          "12000)",
          "changed streams/1/audio_codec/sample_rate: 11025 -> 16000 (format mp4 (when audio_codec/codec_id is mp3): "
          "Parameter sample_rate must be one of the following values: 44100 48000 32000 22050 24000 16000)",
          "changed streams/1/audio_resample/resampler/sample_rate: 8000 -> 16000 (kept in step with "
          "streams/1/audio_codec/sample_rate)",
          "3 changes; the job is valid"},
         {{"/format/streams/1/audio_resample/resampler/sample_rate", 16000}}},
        // The even-number check repairs nothing itself: the value falls back to the default.
        {"jobs/broken/odd-width.json",
         1,
         "streams/0/resize/resizer/width = 801: Value must be an even number [filter resize]",
         {"changed streams/0/video_codec/width: 801 -> 800 (filter resize: Value must be an even number; no repair of "
          "its own, so the default)",
          "changed streams/0/resize/resizer/width: 801 -> 800 (kept in step with streams/0/video_codec/width)",
          "2 changes; the job is valid"},
         {{"/format/streams/0/resize/resizer/width", 800}}},
        // The format's constraint on a codec setting falls back to the codec's default.
        {"jobs/broken/dvd-vbr-video.json",
         1,
         "streams/0/video_codec/bitrate_mode = \"vbr\": Parameter bitrate_mode must be one of the following values: "
         "cbr_auto cbr [format dvd]",
         {"changed streams/0/video_codec/bitrate_mode: \"vbr\" -> \"cbr\" (format dvd: Parameter bitrate_mode must "
          "be one of the following values: cbr_auto cbr; no repair of its own, so the default)",
          "1 change; the job is valid"},
         {{"/format/streams/0/video_codec/bitrate_mode", "cbr"}}},
        {"jobs/broken/sides-disagree.json",
         1,
         "streams/0/resize/resizer/width = 1280: must equal streams/0/video_codec/width = 800; both hold the same "
         "quantity [job]",
         {"changed streams/0/resize/resizer/width: 1280 -> 800 (kept in step with streams/0/video_codec/width)",
          "1 change; the job is valid"},
         {{"/format/streams/0/resize/resizer/width", 800}}},
        {"jobs/broken/missing-sample-rate.json",
         2,
         "tervan-job: " TERVAN_EXAMPLES_DIR "/jobs/broken/missing-sample-rate.json: streams/1/audio_codec/sample_rate: "
         "missing; a rule of codec aac reads it when audio_codec/codec_id is aac",
         {"changed streams/1/audio_codec/sample_rate: (missing) -> 44100 (missing; the default of filter "
          "audio_resample)",
          "changed streams/1/audio_resample/resampler/sample_rate: (missing) -> 44100 (kept in step with "
          "streams/1/audio_codec/sample_rate)",
          "2 changes; the job is valid"},
         {{"/format/streams/1/audio_codec/sample_rate", 44100}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        const std::string file = Example(c.file);
        const Outcome checked = Run("check " + file);
        EXPECT_EQ(checked.status, c.checkStatus);
        if (c.checkStatus == 2) {
            ExpectRefused(checked, c.violation);
        } else {
            EXPECT_TRUE(Contains(checked.out, c.violation));
        }

        const Outcome fixed = Run("fix " + file);
        EXPECT_EQ(fixed.status, 0) << fixed.err;
        EXPECT_EQ(Lines(fixed.err), std::vector<std::string>(c.changes.begin(), c.changes.end()));
        const Json job = fixed.Document();
        for (const Value& value : c.values) {
            EXPECT_EQ(job.at(Json::json_pointer(value.pointer)), value.expected) << value.pointer;
        }
        // The repaired job is valid and stays as it is.
        const fs::path repaired = Write("repaired.json", fixed.out);
        EXPECT_EQ(Run("check " + repaired.string()).out, "valid\n");
        EXPECT_EQ(Run("fix " + repaired.string()).out, fixed.out);
    }
}

// Descriptions follow LANGUAGE or the locale; a language is served by any system locale
// of it (here only Austrian German: LOCPATH hides the installed ones).
TEST_F(TervanJob, DescriptionsFollowTheEnvironmentsLanguage) {
    const fs::path locales = m_dir / "locales";
    fs::create_directory(locales);
    ASSERT_EQ(
        std::system(("localedef -i de_AT -f UTF-8 " + (locales / "de_AT.UTF-8").string() + " >/dev/null 2>&1").c_str()),
        0);
    const std::string austrian = "LOCPATH=" + locales.string() + " ";
    const std::string file = Example("jobs/mp4-mp3-11025.json");
    struct Case {
        std::string environment;
        const char* text;
    };
    const Case cases[] = {
        {austrian + "LANGUAGE=de", "Parameter sample_rate muss einen der folgenden Werte haben: 44100 48000"},
        {austrian + "LANGUAGE= LC_ALL=de_DE.UTF-8", "Parameter sample_rate muss einen der folgenden Werte haben"},
        // No French locale on that system: the text stays as written.
        {austrian + "LANGUAGE=fr", "Parameter sample_rate must be one of the following values: 44100 48000"},
        {"LANGUAGE=fr", "Le paramètre sample_rate doit prendre l'une des valeurs suivantes"},
        {"LANGUAGE=xx", "Parameter sample_rate must be one of the following values: 44100 48000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.environment);
        const Outcome outcome = Run("check " + file, c.environment);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(Contains(outcome.out, c.text));
    }
}

TEST_F(TervanJob, AppliesAPresetThroughTheHelpers) {
    const fs::path job = m_dir / "job.json";
    ASSERT_EQ(Run("new mp4 --video mpeg4 --audio mp3 -o " + job.string()).status, 0);
    const std::string preset = Example("presets/h264-720p-vbr.json");

    const Outcome all = Run("apply " + preset + " " + job.string());
    ASSERT_EQ(all.status, 0) << all.err;
    const Json applied = all.Document();
    const Json& video = applied["format"]["streams"]["0"];
    EXPECT_EQ(video["video_codec"]["codec_id"], "h264");
    EXPECT_EQ(video["video_codec"]["bitrate_mode"], "vbr");
    EXPECT_EQ(video["video_codec"]["quality"], 60);
    EXPECT_EQ(video["video_codec"]["encoder_options"]["preset"], "slow");
    EXPECT_EQ(video["video_codec"]["width"], 1280);
    EXPECT_EQ(video["resize"]["resizer"]["height"], 720);
    EXPECT_EQ(video["resize"]["resizer"]["mode"], "stretch");
    EXPECT_EQ(video["video_codec"]["frame_rate"], Json::parse(R"({"$rational": [30000, 1001]})"));
    // VBR derives the bitrate from the frame and the quality.
    EXPECT_NE(video["video_codec"]["bitrate"], 2000000);
    const Json& audio = applied["format"]["streams"]["1"];
    EXPECT_EQ(audio["audio_codec"]["codec_id"], "aac");
    EXPECT_EQ(audio["audio_codec"]["bitrate"], 128000);
    EXPECT_EQ(audio["audio_codec"]["sample_rate"], 48000);
    EXPECT_EQ(audio["audio_resample"]["resampler"]["channel_layout"], "mono");
    EXPECT_EQ(audio["audio_resample"]["resampler"]["sample_fmt"], audio["audio_codec"]["sample_fmt"]);
    EXPECT_TRUE(Contains(all.err, "changed streams/0/video_codec/quality: (missing) -> 60 (preset " + preset + ")"));
    EXPECT_EQ(Run("check " + Write("applied.json", all.out).string()).out, "valid\n");

    const Outcome one = Run("apply " + preset + " " + job.string() + " --stream 1");
    ASSERT_EQ(one.status, 0) << one.err;
    EXPECT_EQ(one.Document()["format"]["streams"]["0"], Json::parse(Slurp(job))["format"]["streams"]["0"]);
    EXPECT_EQ(one.Document()["format"]["streams"]["1"]["audio_codec"]["codec_id"], "aac");

    ExpectRefused(Run("apply " + preset + " " + job.string() + " --stream 7"),
                  "tervan-job: --stream: the job has no stream 7");

    // A preset of one video stream, given the members after its type.
    const auto videoPreset = [this](const std::string& members) {
        return Write("preset.json", R"({"format": {"streams": {"0": {"type": "video", )" + members + "}}}}");
    };
    // Values no real job holds end in a refusal, not in arithmetic that overflows.
    Json absurd = Json::parse(Slurp(job));
    Json& absurdVideo = absurd["format"]["streams"]["0"];
    absurdVideo["video_codec"]["frame_rate"] = Json{{"$rational", {4611686018427387904LL, 1}}};
    absurdVideo["frame_rate_filter"]["frame_rate"] = absurdVideo["video_codec"]["frame_rate"];
    const fs::path absurdJob = Write("absurd.json", absurd.dump());
    struct Case {
        const char* members;  // of the preset's video stream
        const fs::path& job;
        const char* message;
    };
    const Case refused[] = {
        {R"("video_codec": {"codec_id": "h264", "bitrate_mode": "vbr"})", job,
         "streams/0: Quality is required for VBR bitrate mode"},
        {R"("audio_resample": {})", job,
         "streams/0/audio_resample: unknown filter; video streams of a preset hold video_codec and the filters"},
        {R"("resize": {"resizer": {"width": "x"}})", job,
         "streams/0/resize/resizer/width: expected an integer, found a string \"x\""},
        {R"("video_codec": {"codec_id": "h264", "bitrate_mode": "cbr", "bitrate": "x"})", job,
         "streams/0/video_codec/bitrate: expected an integer, found a string \"x\""},
        {R"("deinterlace": {"deinterlacer": {"type": "yadif_field"}})", absurdJob,
         "streams/0: Frame rate too high to double: 4611686018427387904/1"},
        {R"("resize": {"resizer": {"aspect_x": -2147483648, "aspect_y": -1}})", job,
         "streams/0: aspect out of range: -2147483648, at most 32768"},
    };
    for (const Case& c : refused) {
        SCOPED_TRACE(c.members);
        ExpectRefused(Run("apply " + videoPreset(c.members).string() + " " + c.job.string()), c.message);
    }

    // A preset may name only some of a filter's settings; the job keeps the rest.
    const fs::path partial = videoPreset(R"("resize": {"resizer": {"width": 1280, "height": 720}})");
    const Outcome resized = Run("apply " + partial.string() + " " + job.string());
    ASSERT_EQ(resized.status, 0) << resized.err;
    const Json resizer = resized.Document()["format"]["streams"]["0"]["resize"]["resizer"];
    EXPECT_EQ(resizer["width"], 1280);
    EXPECT_EQ(resizer["method"], "bilinear");
}

TEST_F(TervanJob, BadDocumentsAreRefusedInOneLine) {
    const std::string large = R"({"format_name": "mp4", "format": {"x": ")" + std::string(9u << 20, 'x') + "\"}}";
    struct Case {
        std::string document;
        std::string message;
    };
    const Case cases[] = {
        {large, "document too large"},
        {"[1, 2]", "not a job: expected an object with \"format_name\" and \"format\""},
        {R"({"format_name": "mp4"})", "format: missing; expected an object holding the settings"},
        {R"({"format_name": "mp4", "format": {}, "extra": 1})", "extra: unknown member"},
        {R"({"format_name": 4, "format": {}})", "format_name: expected a string naming a registered format"},
        {R"({"format_name": "mp4", "format": {"streams": {}}})", "streams: empty; expected at least one stream"},
        {R"({"format_name": "mp4", "format": {"streams": {"0": {"type": "subtitle"}}}})",
         "streams/0/type: expected \"audio\" or \"video\", found \"subtitle\""},
        {R"({"format_name": "mp4", "format": {"streams": {"0": {"type": "video"}}}})",
         "streams/0/video_codec: missing; expected the codec's settings"},
        {R"({"format_name": "mp4", "format": {"streams": {"0": {"type": "video", "video_codec": {"codec_id": "h264"},
             "volume": {}}}}})",
         "streams/0/volume: unknown filter; video streams hold type, video_codec and the filters frame_rate_filter, "
         "resize, deinterlace, video_preview"},
        {R"({"format_name": "mp4", "format": {"psp_mode": 1, "streams": {}}})",
         "psp_mode: expected a boolean, found an integer 1"},
        {R"({"format_name": "mp4", "format": {"streams": {"0": {"type": "video",
             "video_codec": {"codec_id": "h264", "frame_rate": 25}}}}})",
         "streams/0/video_codec/frame_rate: expected a rational"},
        {Slurp(Example("jobs/broken/wrong-types.json")),
         "streams/0/video_codec/bitrate: expected an integer, found a string \"2M\""},
        {Slurp(Example("jobs/broken/unknown-codec.json")),
         "streams/0/video_codec/codec_id: unknown video codec \"h266\"; expected one of: bmp, "},
        {Slurp(Example("jobs/broken/malformed.json")), "malformed JSON: parse error at line "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        const fs::path file = Write("bad.json", c.document);
        ExpectRefused(Run("check " + file.string()), c.message);
        ExpectRefused(Run("fix " + file.string()), c.message);
    }
    ExpectRefused(Run("check " + (m_dir / "absent.json").string()),
                  "absent.json: cannot be read: No such file or directory");
    EXPECT_EQ(Run("check " + m_dir.string()).status, 2);
}

TEST_F(TervanJob, ReadsStandardInput) {
    const fs::path out = m_dir / "piped.json";
    const std::string command = std::string("LANGUAGE= LC_ALL=C ") + TERVAN_JOB_PATH + " fix - < " +
                                Example("jobs/mp4-mp3-11025.json") + " >" + out.string() + " 2>/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(Json::parse(Slurp(out)).at(Json::json_pointer("/format/streams/1/audio_codec/sample_rate")), 16000);
}
