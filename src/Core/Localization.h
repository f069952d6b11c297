#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Core {

// Translates user-facing texts of one message domain from gettext catalogs
// (<localedir>/<language>/LC_MESSAGES/<domain>.mo) with glibc's gettext. A language is
// served only when the system has a locale for it (de_DE.UTF-8 or any other of the
// language); otherwise, and for a text without a translation, the text comes back
// unchanged.
class TERVAN_API LocalizationManager {
public:
    // Binds the domain to CatalogDirectory() for the whole process (bindtextdomain).
    explicit LocalizationManager(std::string domain);

    const std::string& GetDomain() const { return m_domain; }

    // In the language the environment asks for (LANGUAGE, LC_ALL, LC_MESSAGES, LANG).
    std::string Translate(const std::string& text) const;
    // In the given language, e.g. "de" or "de_DE.UTF-8", whatever the environment's
    // LC_ALL, LC_MESSAGES or LANG. glibc, though, takes the language from the
    // environment's LANGUAGE first: while LANGUAGE is set and its first entry names
    // another language, the text comes back unchanged.
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
