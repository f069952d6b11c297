#include "Core/Localization.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <libintl.h>
#include <locale.h>
#include <map>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <sstream>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Tervan::Core {
namespace {

struct FreeLocale {
    void operator()(locale_t locale) const { freelocale(locale); }
};
using LocalePtr = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

// "de" of "de_DE.UTF-8@euro".
std::string_view LanguageCode(std::string_view name) {
    return name.substr(0, name.find_first_of("_.@"));
}

// Letters for the language, then what may follow it in a locale's name; never a path.
bool IsLocaleName(const std::string& name) {
    const auto allowed = [](unsigned char c) {
        return std::isalnum(c) != 0 || c == '_' || c == '.' || c == '@' || c == '-';
    };
    const std::string_view code = LanguageCode(name);
    return !code.empty() && code != "C" && code != "POSIX" &&
           std::all_of(code.begin(), code.end(), [](unsigned char c) { return std::isalpha(c) != 0; }) &&
           std::all_of(name.begin(), name.end(), allowed);
}

// Locale names to try for the language, best first. glibc picks the catalog by the name of the
// thread's message locale (de_AT.UTF-8, de_AT, de.UTF-8, de), so any installed locale of the
// language finds its catalog, and a system rarely has a locale for every name it is asked for.
std::vector<std::string> LocaleCandidates(const std::string& language) {
    std::vector<std::string> names;
    const auto add = [&names](std::string name) {
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(std::move(name));
        }
    };
    const std::size_t modifier = language.find('@');
    const std::string withoutCodeset = language.substr(0, std::min(language.find('.'), modifier));
    add(withoutCodeset + ".UTF-8" + (modifier == std::string::npos ? "" : language.substr(modifier)));
    add(language);
    const std::string code(LanguageCode(language));
    std::string country = code;
    std::transform(country.begin(), country.end(), country.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    add(code + "_" + country + ".UTF-8");
    // Every locale Debian can generate, "<name> <charset>" a line.
    std::ifstream supported("/usr/share/i18n/SUPPORTED");
    for (std::string line; std::getline(supported, line);) {
        std::istringstream fields(line);
        std::string name;
        std::string charset;
        if (fields >> name >> charset && charset == "UTF-8" && LanguageCode(name) == code) {
            add(name);
        }
    }
    return names;
}

LocalePtr OpenMessageLocale(const std::string& language) {
    for (const std::string& name : LocaleCandidates(language)) {
        if (locale_t locale = newlocale(LC_MESSAGES_MASK, name.c_str(), nullptr); locale != nullptr) {
            return LocalePtr(locale);
        }
    }
    return nullptr;
}

// The entry for key, made by make() on first use and kept. Lookups, by far the most
// frequent, share the lock.
template <class Value, class Make>
const Value& FindOrMake(std::shared_mutex& mutex, std::map<std::string, Value, std::less<>>& entries,
                        const std::string& key, const Make& make) {
    {
        const std::shared_lock lock(mutex);
        if (const auto it = entries.find(key); it != entries.end()) {
            return it->second;
        }
    }
    const std::unique_lock lock(mutex);
    auto it = entries.find(key);
    if (it == entries.end()) {
        it = entries.emplace(key, make()).first;
    }
    return it->second;
}

// One message locale per language asked for; null when the system has none for the language.
locale_t MessageLocale(const std::string& language) {
    static std::shared_mutex mutex;
    static std::map<std::string, LocalePtr, std::less<>> locales;
    return FindOrMake(mutex, locales, language, [&language] { return OpenMessageLocale(language); }).get();
}

// glibc takes the language from LANGUAGE before the locale's name, and remembers a translation
// per locale name alone: a lookup while LANGUAGE names another language would answer in that
// language and leave the answer behind for later calls.
bool LanguageVariableAllows(std::string_view code) {
    const char* value = std::getenv("LANGUAGE");
    std::string_view list = value == nullptr ? std::string_view() : value;
    list.remove_prefix(std::min(list.find_first_not_of(':'), list.size()));
    return list.empty() || LanguageCode(list.substr(0, list.find(':'))) == code;
}

// Makes a locale the calling thread's until the end of the scope.
class ThreadLocale {
public:
    explicit ThreadLocale(locale_t locale) : m_previous(uselocale(locale)) {}
    ~ThreadLocale() { uselocale(m_previous); }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

private:
    locale_t m_previous;
};

}  // namespace

LocalizationManager::LocalizationManager(std::string domain) : m_domain(std::move(domain)) {
    // The binding is process-wide but the same for every manager of the domain. UTF-8 whatever
    // the LC_CTYPE of the thread that translates.
    bindtextdomain(m_domain.c_str(), CatalogDirectory().c_str());
    bind_textdomain_codeset(m_domain.c_str(), "UTF-8");
}

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
        // The empty text would fetch the catalog's header.
        if (text.empty() || !IsLocaleName(language) || !LanguageVariableAllows(LanguageCode(language))) {
            return text;
        }
        const locale_t locale = MessageLocale(language);
        if (locale == nullptr) {
            return text;
        }
        const ThreadLocale scope(locale);
        return dcgettext(m_domain.c_str(), text.c_str(), LC_MESSAGES);
    } catch (const std::exception&) {
        // Not worth failing a description for.
        return text;
    }
}

const LocalizationManager& GetLocalizationManagerForDomain(const std::string& domain) {
    static std::shared_mutex mutex;
    static std::map<std::string, std::unique_ptr<LocalizationManager>, std::less<>> managers;
    return *FindOrMake(mutex, managers, domain, [&domain] { return std::make_unique<LocalizationManager>(domain); });
}

}  // namespace Tervan::Core
