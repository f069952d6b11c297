// tervan-job: plans, checks and repairs conversion jobs with the data helpers.
#include "Catalogue.h"
#include "Job.h"
#include "JobAssembly.h"
#include "JobCheck.h"
#include "JobFix.h"
#include "JobJson.h"
#include "OptionsReport.h"

#include <boost/program_options.hpp>

#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace po = boost::program_options;
using namespace Tervan::Job;

namespace {

constexpr int EXIT_VALID = 0;
constexpr int EXIT_VIOLATIONS = 1;
constexpr int EXIT_BAD_INPUT = 2;

const char* const PROGRAM = "tervan-job";

struct Command {
    const char* name;
    const char* synopsis;
    const char* summary;
};

const Command kCommands[] = {
    {"list", "list [formats|audio|video|filters]", "List the registered formats, codecs and filters."},
    {"new", "new FORMAT [--video CODEC] [--audio CODEC] [--auto] [-o FILE]",
     "Print the complete default job for a container, corrected and valid."},
    {"check", "check JOB.json", "Report every constraint and rule violation of a job."},
    {"fix", "fix JOB.json [-o FILE]", "Print the corrected job; list every change and what demanded it."},
    {"options", "options KIND NAME [--json] [--auto]",
     "Show every setting a helper has or constrains and what it admits."},
    {"apply", "apply PRESET.json JOB.json [--stream N] [-o FILE]",
     "Apply a preset through the helpers, then correct the job."},
};

// A usage error: reported with a pointer to the help, exit status 2.
class UsageError : public std::runtime_error {
public:
    UsageError(const std::string& command, const std::string& message)
        : std::runtime_error(message), m_command(command) {}
    const std::string& CommandName() const { return m_command; }

private:
    std::string m_command;
};

std::string Usage(const Command& command) {
    return std::string("Usage: ") + PROGRAM + " " + command.synopsis;
}

void PrintToolHelp(std::ostream& out) {
    out << "Usage: " << PROGRAM << " [--help] [--version] COMMAND [ARGS]\n\n"
        << "Assemble, check and repair conversion jobs, and show what every setting admits.\n\nCommands:\n";
    for (const Command& command : kCommands) {
        out << "  " << command.synopsis << "\n      " << command.summary << "\n";
    }
    out << "\nRun '" << PROGRAM << " COMMAND --help' for the options of a command.\n"
        << "JOB.json may be '-' for standard input.\n\n"
        << "Exit status: 0 valid or done, 1 violations remain, 2 bad input or bad usage.\n";
}

// Parses a command's arguments; prints its help and returns nothing when asked to.
std::optional<po::variables_map> ParseCommand(const Command& command, const std::vector<std::string>& args,
                                              po::options_description options,
                                              const std::vector<std::pair<const char*, int>>& positionals,
                                              const char* details) {
    options.add_options()("help,h", "show this help and exit");
    po::options_description hidden;
    po::positional_options_description positional;
    for (const auto& [name, count] : positionals) {
        if (count == 1) {
            hidden.add_options()(name, po::value<std::string>());
        } else {
            hidden.add_options()(name, po::value<std::vector<std::string>>());
        }
        positional.add(name, count);
    }
    po::options_description all;
    all.add(options).add(hidden);
    po::variables_map values;
    try {
        po::store(po::command_line_parser(args).options(all).positional(positional).run(), values);
        po::notify(values);
    } catch (const po::error& e) {
        throw UsageError(command.name, e.what());
    }
    if (values.count("help") != 0) {
        std::cout << Usage(command) << "\n\n" << command.summary << "\n" << details << "\n" << options;
        return std::nullopt;
    }
    for (const auto& [name, count] : positionals) {
        if (count == 1 && values.count(name) == 0) {
            throw UsageError(command.name, std::string("missing argument ") + name);
        }
    }
    return values;
}

const Command& CommandNamed(const std::string& name) {
    for (const Command& command : kCommands) {
        if (name == command.name) {
            return command;
        }
    }
    throw UsageError("", "unknown command '" + name + "'");
}

void WriteJob(const Job& job, const po::variables_map& values) {
    const std::string text = DumpJson(JobToJson(job));
    if (values.count("output") == 0 || values["output"].as<std::string>() == "-") {
        std::cout << text;
        return;
    }
    const std::string file = values["output"].as<std::string>();
    std::ofstream out(file, std::ios::binary);
    if (!(out << text) || !out.flush()) {
        throw InputError(file, "cannot be written");
    }
}

// The change list on standard error, so that standard output carries the job alone.
int Report(const FixReport& report, bool listChanges) {
    if (listChanges) {
        for (const Change& change : report.changes) {
            std::cerr << "changed " << change.Text() << "\n";
        }
    }
    for (const std::string& note : report.notes) {
        std::cerr << "note: " << note << "\n";
    }
    for (const Violation& violation : report.remaining) {
        std::cerr << "unfixable: " << violation.Text() << "\n";
    }
    if (listChanges) {
        std::cerr << report.changes.size() << (report.changes.size() == 1 ? " change" : " changes") << "; "
                  << (report.remaining.empty() ? std::string("the job is valid")
                                               : std::to_string(report.remaining.size()) + " violation(s) remain")
                  << "\n";
    }
    return report.remaining.empty() ? EXIT_VALID : EXIT_VIOLATIONS;
}

// Errors found in a job after reading it name the job's file too.
template <class Step>
auto InFile(const std::string& file, Step step) {
    try {
        return step();
    } catch (const InputError& e) {
        throw InputError(file, e.what());
    }
}

po::options_description OutputOption() {
    po::options_description options("Options");
    options.add_options()("output,o", po::value<std::string>()->value_name("FILE"),
                          "write the job to FILE instead of standard output");
    return options;
}

int RunList(const std::vector<std::string>& args) {
    const Command& command = CommandNamed("list");
    const auto values = ParseCommand(command, args, po::options_description("Options"), {{"kind", -1}},
                                     "\nWithout KIND, every kind under a heading.\n");
    if (!values) {
        return EXIT_VALID;
    }
    const std::pair<const char*, Catalogue::Kind> kinds[] = {{"formats", Catalogue::FORMAT},
                                                             {"audio", Catalogue::AUDIO_CODEC},
                                                             {"video", Catalogue::VIDEO_CODEC},
                                                             {"filters", Catalogue::FILTER}};
    std::vector<std::string> wanted;
    if (values->count("kind") != 0) {
        wanted = (*values)["kind"].as<std::vector<std::string>>();
    }
    if (wanted.size() > 1) {
        throw UsageError(command.name, "too many arguments");
    }
    bool listed = false;
    for (const auto& [name, kind] : kinds) {
        if (!wanted.empty() && wanted.front() != name) {
            continue;
        }
        listed = true;
        const std::vector<std::string> names = Catalogue::Names(kind);
        if (wanted.empty()) {
            std::cout << name << " (" << names.size() << "):\n";
        }
        for (const std::string& entry : names) {
            std::cout << (wanted.empty() ? "  " : "") << entry << "\n";
        }
    }
    if (!listed) {
        throw UsageError(command.name,
                         "unknown kind '" + wanted.front() + "'; expected formats, audio, video or filters");
    }
    return EXIT_VALID;
}

int RunNew(const std::vector<std::string>& args) {
    const Command& command = CommandNamed("new");
    po::options_description options = OutputOption();
    options.add_options()("video", po::value<std::string>()->value_name("CODEC"),
                          "the video codec instead of the format's default")(
        "audio", po::value<std::string>()->value_name("CODEC"), "the audio codec instead of the format's default")(
        "auto", "use the automatic-codec helpers, which also admit automatic values");
    const auto values = ParseCommand(command, args, options, {{"format", 1}},
                                     "\nFORMAT is a name that 'tervan-job list formats' prints.\n");
    if (!values) {
        return EXIT_VALID;
    }
    NewJobRequest request;
    request.format = (*values)["format"].as<std::string>();
    request.videoCodec = values->count("video") != 0 ? (*values)["video"].as<std::string>() : std::string();
    request.audioCodec = values->count("audio") != 0 ? (*values)["audio"].as<std::string>() : std::string();
    request.automatic = values->count("auto") != 0;
    FixReport report;
    const Job job = NewJob(request, report);
    WriteJob(job, *values);
    return Report(report, false);
}

int RunCheck(const std::vector<std::string>& args) {
    const Command& command = CommandNamed("check");
    const auto values =
        ParseCommand(command, args, po::options_description("Options"), {{"job", 1}},
                     "\nEach violation is one line: path = value: what is demanded [who demands it, and when].\n"
                     "Descriptions are translated when LANGUAGE, LC_ALL, LC_MESSAGES or LANG names a language\n"
                     "with a catalog and a locale on the system (locale -a).\n"
                     "Exit status: 0 when the job is valid, 1 with violations, 2 when it cannot be read.\n");
    if (!values) {
        return EXIT_VALID;
    }
    const std::string file = (*values)["job"].as<std::string>();
    Job job = ReadJob(file);
    const std::vector<Violation> violations = InFile(file, [&] { return CheckJob(job, true); });
    for (const Violation& violation : violations) {
        std::cout << violation.Text() << "\n";
    }
    if (violations.empty()) {
        std::cout << "valid\n";
        return EXIT_VALID;
    }
    std::cout << violations.size() << (violations.size() == 1 ? " violation\n" : " violations\n");
    return EXIT_VIOLATIONS;
}

int RunFix(const std::vector<std::string>& args) {
    const Command& command = CommandNamed("fix");
    const auto values = ParseCommand(command, args, OutputOption(), {{"job", 1}},
                                     "\nThe corrected job goes to standard output (or FILE); every change goes to\n"
                                     "standard error as: changed path: old -> new (what demanded it).\n");
    if (!values) {
        return EXIT_VALID;
    }
    const std::string file = (*values)["job"].as<std::string>();
    Job job = ReadJob(file);
    const FixReport report = InFile(file, [&] { return FixJob(job); });
    WriteJob(job, *values);
    return Report(report, true);
}

int RunOptions(const std::vector<std::string>& args) {
    const Command& command = CommandNamed("options");
    po::options_description options("Options");
    options.add_options()("json", "print a machine-readable description")(
        "auto", "describe the automatic-codec helper, which also admits automatic values");
    const auto values = ParseCommand(command, args, options, {{"kind", 1}, {"name", 1}},
                                     "\nKIND is format, audio, video or filter; NAME a name that 'tervan-job list' "
                                     "prints.\n");
    if (!values) {
        return EXIT_VALID;
    }
    const std::string kindName = (*values)["kind"].as<std::string>();
    const std::pair<const char*, Catalogue::Kind> kinds[] = {
        {"format", Catalogue::FORMAT},     {"formats", Catalogue::FORMAT}, {"audio", Catalogue::AUDIO_CODEC},
        {"video", Catalogue::VIDEO_CODEC}, {"filter", Catalogue::FILTER},  {"filters", Catalogue::FILTER}};
    for (const auto& [name, kind] : kinds) {
        if (kindName == name) {
            const Catalogue catalogue(values->count("auto") != 0);
            const std::string& helper = (*values)["name"].as<std::string>();
            std::cout << (values->count("json") != 0 ? DumpJson(OptionsJson(catalogue, kind, helper))
                                                     : OptionsText(catalogue, kind, helper));
            return EXIT_VALID;
        }
    }
    throw UsageError(command.name, "unknown kind '" + kindName + "'; expected format, audio, video or filter");
}

int RunApply(const std::vector<std::string>& args) {
    const Command& command = CommandNamed("apply");
    po::options_description options = OutputOption();
    options.add_options()("stream", po::value<std::string>()->value_name("N"), "apply to stream N only");
    const auto values =
        ParseCommand(command, args, options, {{"preset", 1}, {"job", 1}},
                     "\nA preset has a job's shape: {\"format\": {\"streams\": {...}}}, each stream with its type,\n"
                     "a codec node and filter settings. A job stream takes the preset stream of its name when\n"
                     "that has its type, else the first preset stream of its type. The job, then corrected,\n"
                     "goes to standard output (or FILE); every change goes to standard error.\n");
    if (!values) {
        return EXIT_VALID;
    }
    const std::string presetFile = (*values)["preset"].as<std::string>();
    const Tervan::Core::Property preset = ReadPreset(presetFile);
    Job job = ReadJob((*values)["job"].as<std::string>());
    std::optional<std::string> stream;
    if (values->count("stream") != 0) {
        stream = (*values)["stream"].as<std::string>();
    }
    const FixReport report = ApplyPreset(job, preset, presetFile, stream);
    WriteJob(job, *values);
    return Report(report, true);
}

int Run(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    // Options before the command are the tool's; everything after belongs to the command.
    auto commandAt = arguments.begin();
    while (commandAt != arguments.end() && !commandAt->empty() && commandAt->front() == '-') {
        ++commandAt;
    }
    po::options_description global("Options");
    global.add_options()("help,h", "show this help and exit")("version", "show the version and exit");
    po::variables_map values;
    try {
        po::store(po::command_line_parser(std::vector<std::string>(arguments.begin(), commandAt)).options(global).run(),
                  values);
    } catch (const po::error& e) {
        throw UsageError("", e.what());
    }
    if (values.count("help") != 0) {
        PrintToolHelp(std::cout);
        std::cout << "\n" << global;
        return EXIT_VALID;
    }
    if (values.count("version") != 0) {
        std::cout << PROGRAM << " " << TERVAN_VERSION << "\n";
        return EXIT_VALID;
    }
    if (commandAt == arguments.end()) {
        throw UsageError("", "missing command");
    }
    const std::vector<std::string> rest(commandAt + 1, arguments.end());
    const std::pair<const char*, std::function<int(const std::vector<std::string>&)>> runners[] = {
        {"list", RunList}, {"new", RunNew},         {"check", RunCheck},
        {"fix", RunFix},   {"options", RunOptions}, {"apply", RunApply}};
    for (const auto& [name, run] : runners) {
        if (*commandAt == name) {
            return run(rest);
        }
    }
    throw UsageError("", "unknown command '" + *commandAt + "'");
}

std::string FirstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const UsageError& e) {
        const std::string help = e.CommandName().empty() ? PROGRAM : std::string(PROGRAM) + " " + e.CommandName();
        std::cerr << PROGRAM << ": " << e.what() << "\nTry '" << help << " --help'.\n";
    } catch (const InputError& e) {
        std::cerr << PROGRAM << ": " << e.what() << "\n";
    } catch (const std::exception& e) {
        std::cerr << PROGRAM << ": " << FirstLine(e.what()) << "\n";
    } catch (...) {
        std::cerr << PROGRAM << ": unexpected failure\n";
    }
    return EXIT_BAD_INPUT;
}
