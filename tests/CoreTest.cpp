#include "Core/Exception.h"
#include "Core/Localization.h"
#include "Core/RefCount.h"

#include <boost/intrusive_ptr.hpp>
#include <gtest/gtest.h>

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

}  // namespace

TEST(RefCount, LastReleaseDestroys) {
    int destroyed = 0;
    {
        boost::intrusive_ptr<const ICounted> first(new Counted(&destroyed));
        EXPECT_EQ(first->GetRefCount(), 1);
        {
            boost::intrusive_ptr<const ICounted> second = first;
            EXPECT_EQ(first->GetRefCount(), 2);
        }
        EXPECT_EQ(first->GetRefCount(), 1);
        EXPECT_EQ(destroyed, 0);
    }
    EXPECT_EQ(destroyed, 1);
}

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
    shared.reset();
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

TEST(Localization, ShippedCatalogsTranslate) {
    const auto& manager = Tervan::Core::GetLocalizationManagerForDomain("core");
    EXPECT_EQ(&manager, &Tervan::Core::GetLocalizationManagerForDomain("core"));
    const std::string text = "Parameter %1 must be one of the following values: %2";
    EXPECT_EQ(manager.Translate(text, "de"), "Parameter %1 muss einen der folgenden Werte haben: %2");
    EXPECT_EQ(manager.Translate(text, "fr_FR.UTF-8"), "Le paramètre %1 doit prendre l'une des valeurs suivantes : %2");
    EXPECT_EQ(manager.Translate(text, "ja"), text);
    EXPECT_EQ(manager.Translate("not in any catalog", "de"), "not in any catalog");
}

TEST(Localization, EnvironmentChoosesTheLanguage) {
    const auto& manager = Tervan::Core::GetLocalizationManagerForDomain("core");
    ::setenv("LANGUAGE", "de:fr", 1);
    EXPECT_EQ(manager.Translate("Value must be an even number"), "Der Wert muss eine gerade Zahl sein");
    ::setenv("LANGUAGE", "C", 1);
    EXPECT_EQ(manager.Translate("Value must be an even number"), "Value must be an even number");
    ::unsetenv("LANGUAGE");
}
