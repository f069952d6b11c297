#include "Core/Localization.h"

#include <boost/locale/generator.hpp>
#include <boost/locale/message.hpp>

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <locale>
#include <map>
#include <memory>
#include <mutex>

namespace Tervan::Core {
namespace {

std::mutex& CacheMutex() {
    static std::mutex mutex;
    return mutex;
}

// Generating a boost locale reads the catalog files; do it once per (domain, language).
const std::locale& LocaleFor(const std::string& domain, const std::string& language) {
    static std::map<std::pair<std::string, std::string>, std::locale> cache;
    const std::lock_guard<std::mutex> lock(CacheMutex());
    auto key = std::make_pair(domain, language);
    auto it = cache.find(key);
    if (it == cache.end()) {
        boost::locale::generator generator;
        generator.add_messages_path(LocalizationManager::CatalogDirectory());
        generator.add_messages_domain(domain);
        const std::string id = language.find('.') == std::string::npos ? language + ".UTF-8" : language;
        it = cache.emplace(std::move(key), generator.generate(id)).first;
    }
    return it->second;
}

}  // namespace

LocalizationManager::LocalizationManager(std::string domain) : m_domain(std::move(domain)) {}

std::string LocalizationManager::CatalogDirectory() {
    if (const char* dir = std::getenv("TERVAN_LOCALEDIR"); dir != nullptr && *dir != '\0') {
        return dir;
    }
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&LocalizationManager::CatalogDirectory), &info) != 0 &&
        info.dli_fname != nullptr) {
        const std::filesystem::path beside =
            std::filesystem::path(info.dli_fname).parent_path().parent_path() / "share" / "locale";
        std::error_code error;
        if (std::filesystem::is_directory(beside, error)) {
            return beside.string();
        }
    }
    return TERVAN_INSTALL_LOCALEDIR;
}

std::string LocalizationManager::EnvironmentLanguage() {
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value == nullptr || *value == '\0') {
            continue;
        }
        std::string language(value);
        language = language.substr(0, language.find(':'));
        if (language == "C" || language == "POSIX" || language.rfind("C.", 0) == 0) {
            return {};
        }
        return language;
    }
    return {};
}

std::string LocalizationManager::Translate(const std::string& text) const {
    const std::string language = EnvironmentLanguage();
    return language.empty() ? text : Translate(text, language);
}

std::string LocalizationManager::Translate(const std::string& text, const std::string& language) const {
    try {
        return boost::locale::translate(text).str(LocaleFor(m_domain, language));
    } catch (const std::exception&) {
        // An unknown language or unreadable catalog is not worth failing a description for.
        return text;
    }
}

const LocalizationManager& GetLocalizationManagerForDomain(const std::string& domain) {
    static std::map<std::string, std::unique_ptr<LocalizationManager>> managers;
    const std::lock_guard<std::mutex> lock(CacheMutex());
    auto& manager = managers[domain];
    if (!manager) {
        manager = std::make_unique<LocalizationManager>(domain);
    }
    return *manager;
}

}  // namespace Tervan::Core
