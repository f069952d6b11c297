#include "Core/Exception.h"
#include "Core/Localization.h"
#include "Core/RefCount.h"

#include <boost/intrusive_ptr.hpp>
#include <gtest/gtest.h>

#include <atomic>
#include <clocale>
#include <condition_variable>
#include <cstdlib>
#include <locale.h>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

class ICounted : public virtual Tervan::IRefCountable {};

class Counted : public Tervan::RefCounted<ICounted> {
public:
    explicit Counted(int* destroyed) : m_destroyed(destroyed) {}
    Counted(const Counted&) = default;

protected:
    ~Counted() override { ++*m_destroyed; }

private:
    int* m_destroyed;
};

// Sets an environment variable, or removes it for nullptr, until the end of the scope.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const char* value) : m_name(name) {
        if (const char* previous = std::getenv(name)) {
            m_previous = previous;
        }
        Set(value);
    }
    ~ScopedVariable() { Set(m_previous ? m_previous->c_str() : nullptr); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void Set(const char* value) const {
        if (value != nullptr) {
            ::setenv(m_name, value, 1);
        } else {
            ::unsetenv(m_name);
        }
    }

    const char* m_name;
    std::optional<std::string> m_previous;
};

const std::string kEven = "Value must be an even number";
const std::string kEvenDe = "Der Wert muss eine gerade Zahl sein";
const std::string kEvenFr = "La valeur doit être un nombre pair";

// glibc would take the language from LANGUAGE before the one asked for, so each test
// starts without it.
class Localization : public ::testing::Test {
protected:
    const ScopedVariable m_language{"LANGUAGE", nullptr};
    const Tervan::Core::LocalizationManager& manager = Tervan::Core::GetLocalizationManagerForDomain("core");
};

}  // namespace

TEST(RefCount, CopyingNeverCopiesTheCount) {
    int destroyed = 0;
    boost::intrusive_ptr<Counted> original(new Counted(&destroyed));
    boost::intrusive_ptr<Counted> extra = original;
    boost::intrusive_ptr<Counted> copy(new Counted(*original));
    EXPECT_EQ(copy->GetRefCount(), 1);
    EXPECT_EQ(original->GetRefCount(), 2);
}

TEST(RefCount, ConcurrentAddRefAndReleaseKeepTheCount) {
    int destroyed = 0;
    boost::intrusive_ptr<const ICounted> shared(new Counted(&destroyed));
    constexpr int kThreads = 4;
    constexpr int kRounds = 100000;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&shared] {
            for (int i = 0; i < kRounds; ++i) {
                boost::intrusive_ptr<const ICounted> local = shared;
                local->AddRef();
                local->Release();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(shared->GetRefCount(), 1);
    EXPECT_EQ(destroyed, 0) << "alive while referenced";
    shared.reset();
    EXPECT_EQ(destroyed, 1) << "the last release destroys";
}

TEST(FrozenObjects, CountsStayExactAndNothingDiesUntilThawed) {
    int destroyed = 0;
    Tervan::FrozenObjects frozen;
    frozen.Collect();
    boost::intrusive_ptr<const ICounted> held(new Counted(&destroyed));
    // Counting works as usual while the objects are being built.
    boost::intrusive_ptr<const ICounted> transient(new Counted(&destroyed));
    transient.reset();
    EXPECT_EQ(destroyed, 1);
    frozen.Freeze();

    boost::intrusive_ptr<const ICounted> later(new Counted(&destroyed));
    {
        boost::intrusive_ptr<const ICounted> more = held;
        EXPECT_EQ(held->GetRefCount(), 2);
        boost::intrusive_ptr<const ICounted> moreLater = later;
        EXPECT_EQ(later->GetRefCount(), 2) << "made after Freeze";
    }
    EXPECT_EQ(held->GetRefCount(), 1);
    held->Release();  // the owner's reference keeps a frozen object alive
    EXPECT_EQ(held->GetRefCount(), 0);
    EXPECT_EQ(destroyed, 1);
    held->AddRef();

    frozen.Thaw();
    EXPECT_EQ(held->GetRefCount(), 1);
    held.reset();
    later.reset();
    EXPECT_EQ(destroyed, 3);
}

// One object built while collecting, then frozen; once thawed, its owner's reference
// must be the only one left, and giving it back must destroy it.
class FrozenShared : public ::testing::Test {
protected:
    FrozenShared() {
        frozen.Collect();
        shared.reset(new Counted(&destroyed));
        frozen.Freeze();
    }
    void TearDown() override {
        frozen.Thaw();
        EXPECT_EQ(shared->GetRefCount(), 1);
        shared.reset();
        EXPECT_EQ(destroyed, 1);
    }

    int destroyed = 0;
    Tervan::FrozenObjects frozen;
    boost::intrusive_ptr<const ICounted> shared;
};

// Each thread counts in a tally of its own; a reference may be taken on one thread
// and given back on another, and a thread's tally joins the count when it ends.
TEST_F(FrozenShared, ThreadsCountApartAndTheSumIsTheCount) {
    constexpr int kThreads = 4;
    constexpr int kTaken = 1000;
    std::mutex mutex;
    std::condition_variable changed;
    int holding = 0;
    bool release = false;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int j = 0; j < kTaken; ++j) {
                shared->AddRef();
            }
            std::unique_lock<std::mutex> lock(mutex);
            ++holding;
            changed.notify_all();
            changed.wait(lock, [&] { return release; });
            lock.unlock();
            for (int j = 0; j < kTaken / 2; ++j) {
                shared->Release();
            }
        });
    }
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [&] { return holding == kThreads; });
        EXPECT_EQ(shared->GetRefCount(), 1 + kThreads * kTaken);
        release = true;
        changed.notify_all();
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(shared->GetRefCount(), 1 + kThreads * kTaken / 2) << "the ended threads' tallies are kept";
    // The references the ended threads kept are given back here.
    for (int j = 0; j < kThreads * kTaken / 2; ++j) {
        shared->Release();
    }
    EXPECT_EQ(shared->GetRefCount(), 1);
}

// A thread's own thread-local holders may outlive its tallies; what they give back
// as the thread ends still counts.
TEST_F(FrozenShared, ReferencesGivenBackAsAThreadEndsStillCount) {
    std::thread([&] {
        // Made before the thread's first reference, so it ends after the thread's tallies.
        thread_local boost::intrusive_ptr<const ICounted> holder;
        holder = shared;
        EXPECT_EQ(shared->GetRefCount(), 2);
    }).join();
    EXPECT_EQ(shared->GetRefCount(), 1);
}

TEST(FrozenObjects, CollectsOnlyTheCollectingThread) {
    int destroyed = 0;
    Tervan::FrozenObjects frozen;
    frozen.Collect();
    boost::intrusive_ptr<const ICounted> elsewhere;
    std::thread([&] { elsewhere.reset(new Counted(&destroyed)); }).join();
    boost::intrusive_ptr<const ICounted> here(new Counted(&destroyed));
    frozen.Freeze();
    boost::intrusive_ptr<const ICounted> copy = elsewhere;
    EXPECT_EQ(elsewhere->GetRefCount(), 2);
    EXPECT_EQ(here->GetRefCount(), 1);
    frozen.Thaw();
}

TEST(FrozenObjects, ObjectsOutlivingTheRecordCountAgain) {
    int destroyed = 0;
    boost::intrusive_ptr<const ICounted> survivor;
    {
        Tervan::FrozenObjects frozen;
        frozen.Collect();
        survivor.reset(new Counted(&destroyed));
        frozen.Freeze();
        survivor->AddRef();
    }
    EXPECT_EQ(survivor->GetRefCount(), 2) << "the reference taken while frozen is kept";
    boost::intrusive_ptr<const ICounted> copy = survivor;
    EXPECT_EQ(survivor->GetRefCount(), 3);
    survivor->Release();
    copy.reset();
    survivor.reset();
    EXPECT_EQ(destroyed, 1);
}

TEST(Exception, WhatIsTheDescription) {
    try {
        BOOST_THROW_EXCEPTION(Tervan::Core::CoreException() << Tervan::Exception::TagDescription("broken"));
    } catch (const Tervan::Exception& e) {
        EXPECT_STREQ(e.what(), "broken");
        EXPECT_NE(boost::get_error_info<boost::throw_function>(e), nullptr);
    }
}

TEST(Exception, CallStackNamesTheCaller) {
    const std::string stack = Tervan::Core::GetCallStack();
    EXPECT_NE(stack.find("CallStackNamesTheCaller"), std::string::npos) << stack;
}

TEST_F(Localization, ShippedCatalogsTranslate) {
    EXPECT_EQ(&manager, &Tervan::Core::GetLocalizationManagerForDomain("core"));
    const std::string text = "Parameter %1 must be one of the following values: %2";
    EXPECT_EQ(manager.Translate(text, "de"), "Parameter %1 muss einen der folgenden Werte haben: %2");
    EXPECT_EQ(manager.Translate(text, "fr_FR.UTF-8"), "Le paramètre %1 doit prendre l'une des valeurs suivantes : %2");
    EXPECT_EQ(manager.Translate("not in any catalog", "de"), "not in any catalog");
    // gettext's answer for the empty text is the catalog's header.
    EXPECT_EQ(manager.Translate("", "de"), "");
    EXPECT_EQ(Tervan::Core::GetLocalizationManagerForDomain("tervan-no-catalogs").Translate(kEven, "de"), kEven);
}

TEST_F(Localization, AnyLocaleOfTheLanguageServesIt) {
    // The test machines generate only de_DE.UTF-8 and fr_FR.UTF-8 of these; all find the
    // catalogs under de/ and fr/, in UTF-8 whatever the codeset asked for.
    for (const char* language : {"de_AT", "de_DE", "de_CH.UTF-8"}) {
        EXPECT_EQ(manager.Translate(kEven, language), kEvenDe) << language;
    }
    for (const char* language : {"fr_CA", "fr_FR.ISO-8859-1", "fr_FR@euro"}) {
        EXPECT_EQ(manager.Translate(kEven, language), kEvenFr) << language;
    }
    // No catalog serves these.
    for (const char* language : {"", "C", "POSIX", "C.UTF-8", "xx", "ja_JP.UTF-8", "../de", "de/../fr", " de"}) {
        EXPECT_EQ(manager.Translate(kEven, language), kEven) << '"' << language << '"';
    }
}

TEST_F(Localization, EnvironmentChoosesTheLanguage) {
    {
        const ScopedVariable languageVariable("LANGUAGE", "de:fr");
        EXPECT_EQ(manager.Translate(kEven), kEvenDe);
    }
    const ScopedVariable languageVariable("LANGUAGE", "C");
    EXPECT_EQ(manager.Translate(kEven), kEven);
}

TEST_F(Localization, ExplicitLanguageWinsOverTheEnvironments) {
    const ScopedVariable all("LC_ALL", "fr_FR.UTF-8");
    const ScopedVariable messages("LC_MESSAGES", "fr_FR.UTF-8");
    const ScopedVariable lang("LANG", "fr_FR.UTF-8");
    ASSERT_EQ(manager.Translate(kEven), kEvenFr);
    EXPECT_EQ(manager.Translate(kEven, "de"), kEvenDe);
    // And over the process's locale.
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, ""), nullptr);
    EXPECT_EQ(manager.Translate(kEven, "de"), kEvenDe);
    EXPECT_EQ(manager.Translate(kEven, "fr"), kEvenFr);
    std::setlocale(LC_ALL, previous.c_str());
}

TEST_F(Localization, LanguageVariableNamingAnotherLanguageLeavesTheTextUnchanged) {
    {
        // glibc would answer in French, and keep that answer for German lookups to come.
        const ScopedVariable languageVariable("LANGUAGE", "fr");
        EXPECT_EQ(manager.Translate(kEven, "de"), kEven);
        EXPECT_EQ(manager.Translate(kEven, "fr_FR.UTF-8"), kEvenFr);
    }
    {
        const ScopedVariable languageVariable("LANGUAGE", ":de_CH:fr");
        EXPECT_EQ(manager.Translate(kEven, "de_DE.UTF-8"), kEvenDe);
        EXPECT_EQ(manager.Translate(kEven, "fr"), kEven);
    }
    EXPECT_EQ(manager.Translate(kEven, "de"), kEvenDe);
    EXPECT_EQ(manager.Translate(kEven, "fr"), kEvenFr);
}

TEST_F(Localization, ThreadsTranslateIntoTheirOwnLanguages) {
    struct Case {
        const char* language;
        const std::string& text;
    };
    const Case cases[] = {
        {"de", kEvenDe}, {"fr_FR.UTF-8", kEvenFr}, {"ja", kEven}, {"de_AT", kEvenDe}, {"fr", kEvenFr}};
    constexpr int kThreads = 10;
    std::atomic<int> ready{0};
    std::atomic<int> wrong{0};
    std::atomic<int> lostLocales{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, c = cases[i % std::size(cases)]] {
            // A locale of the thread's own, which translating must leave in place.
            const locale_t own = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
            uselocale(own);
            ++ready;
            while (ready < kThreads) {
                std::this_thread::yield();
            }
            for (int n = 0; n < 300; ++n) {
                if (Tervan::Core::GetLocalizationManagerForDomain("core").Translate(kEven, c.language) != c.text) {
                    ++wrong;
                }
            }
            if (uselocale(nullptr) != own) {
                ++lostLocales;
            }
            uselocale(LC_GLOBAL_LOCALE);
            freelocale(own);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(lostLocales, 0);
}
