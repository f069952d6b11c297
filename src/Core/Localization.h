#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Core {

// Translates user-facing texts of one message domain from gettext catalogs
// (<localedir>/<language>/LC_MESSAGES/<domain>.mo). A text without a translation
// comes back unchanged.
class TERVAN_API LocalizationManager {
public:
    explicit LocalizationManager(std::string domain);

    const std::string& GetDomain() const { return m_domain; }

    // In the language the environment asks for (LANGUAGE, LC_ALL, LC_MESSAGES, LANG).
    std::string Translate(const std::string& text) const;
    // In the given language, e.g. "de" or "de_DE.UTF-8".
    std::string Translate(const std::string& text, const std::string& language) const;

    // Where catalogs are read: $TERVAN_LOCALEDIR, else share/locale beside the
    // library's own lib directory, else the install prefix's.
    static std::string CatalogDirectory();
    // The language the environment asks for; empty for C, POSIX or nothing.
    static std::string EnvironmentLanguage();

private:
    std::string m_domain;
};

// One shared manager per domain; safe to call from any thread.
TERVAN_API const LocalizationManager& GetLocalizationManagerForDomain(const std::string& domain);

}  // namespace Tervan::Core
