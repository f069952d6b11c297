// Loads one library into this fresh process and prints how long dlopen took until
// the library was ready, and how much resident memory the process gained:
// "<nanoseconds> <KiB>". Modes: plain (dlopen only), registry (the helpers' registry
// answers), encoder (libavcodec has looked up one encoder, as any host that encodes
// must before anything else), added (registry, in a process that has first loaded the
// libavcodec given as a third argument and looked up an encoder, outside the measure).
// Links neither the library nor FFmpeg, so the loader does all of the work
// inside the measured interval.
#include <chrono>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

using GetAvailable = const void* (*)(const std::string&);
using FindEncoderByName = const void* (*)(const char*);

// The registry's listing entry point and a type key it accepts, by their C++ symbols.
const char* const GET_AVAILABLE = "_Z23GetAvailableDataHelpersRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE";
const char* const KEY_FORMAT = "_ZN6Tervan4Conf7IPreset10KEY_FORMATB5cxx11E";

long ResidentKiB() {
    std::ifstream statm("/proc/self/statm");
    long size = 0;
    long resident = 0;
    statm >> size >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

bool LookUpEncoder(void* avcodec) {
    auto find = reinterpret_cast<FindEncoderByName>(dlsym(avcodec, "avcodec_find_encoder_by_name"));
    if (find == nullptr || find("aac") == nullptr) {
        std::fprintf(stderr, "libavcodec found no AAC encoder\n");
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string mode = argc >= 3 ? argv[1] : "";
    const bool added = mode == "added" && argc == 4;
    if (!added && (argc != 3 || (mode != "plain" && mode != "registry" && mode != "encoder"))) {
        std::fprintf(stderr, "usage: %s plain|registry|encoder LIBRARY, or added LIBRARY LIBAVCODEC\n", argv[0]);
        return 2;
    }
    if (added) {
        void* avcodec = dlopen(argv[3], RTLD_NOW | RTLD_LOCAL);
        if (avcodec == nullptr) {
            std::fprintf(stderr, "%s\n", dlerror());
            return 1;
        }
        if (!LookUpEncoder(avcodec)) {
            return 1;
        }
    }
    const long before = ResidentKiB();
    const auto start = std::chrono::steady_clock::now();
    void* library = dlopen(argv[2], RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    if (mode == "encoder" && !LookUpEncoder(library)) {
        return 1;
    }
    if (mode == "registry" || added) {
        // The registry is built while the library loads; asking for a table proves it is ready.
        auto getAvailable = reinterpret_cast<GetAvailable>(dlsym(library, GET_AVAILABLE));
        const auto* keyFormat = static_cast<const std::string*>(dlsym(library, KEY_FORMAT));
        if (getAvailable == nullptr || keyFormat == nullptr || getAvailable(*keyFormat) == nullptr) {
            std::fprintf(stderr, "the registry's entry points are missing\n");
            return 1;
        }
    }
    const auto elapsed = std::chrono::steady_clock::now() - start;
    const long after = ResidentKiB();
    std::printf("%lld %ld\n", static_cast<long long>(std::chrono::nanoseconds(elapsed).count()), after - before);
    return 0;
}
