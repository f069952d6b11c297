// Prints the registry's tables: every format, audio codec and video codec helper with
// its default settings' top-level names.
#include <TervanDataHelpers.h>
#include <iostream>

int main() {
    using Tervan::Conf::IPreset;
    try {
        for (const std::string& type :
             {IPreset::KEY_FORMAT, IPreset::KEY_FILTER_AUDIO_CODEC, IPreset::KEY_FILTER_VIDEO_CODEC}) {
            const auto& table = GetAvailableDataHelpers(type);
            std::cout << type << " (" << table.size() << " helpers)\n";
            for (const auto& [name, helper] : table) {
                std::cout << "  " << name << ":";
                for (const Tervan::Core::Property& setting : helper->GetDefaults()) {
                    std::cout << ' ' << setting.GetName();
                }
                std::cout << '\n';
            }
        }
    } catch (const Tervan::Exception& e) {
        std::cerr << "error: " << e.what() << '\n';
        return 1;
    }
    return 0;
}
