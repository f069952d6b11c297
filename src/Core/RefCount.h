#pragma once

#include "Core/Api.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <unordered_set>
#include <vector>

namespace Tervan {

class TERVAN_API IRefCountable {
public:
    virtual ~IRefCountable() = default;
    virtual void AddRef() const = 0;
    virtual long GetRefCount() const = 0;
    virtual void Release() const = 0;

protected:
    IRefCountable() = default;
    IRefCountable(const IRefCountable&) = default;
    IRefCountable& operator=(const IRefCountable&) = default;
};

class FrozenObjects;

// The count lives here; copying an object never copies its count, and the
// destructor is protected so that only the last Release deletes.
class TERVAN_API RefCountImpl {
public:
    RefCountImpl() noexcept;
    RefCountImpl(const RefCountImpl&) noexcept;
    RefCountImpl& operator=(const RefCountImpl&) noexcept;

    void AddRefImpl() const noexcept;
    long GetRefCountImpl() const noexcept;
    void ReleaseImpl() const noexcept;

protected:
    virtual ~RefCountImpl();

private:
    friend class FrozenObjects;

    // Adds change to this thread's tally of a frozen object; false when the object is not
    // frozen or the thread's tallies are gone, and the count itself must take it.
    bool CountInTally(long change) const noexcept;
    // CountInTally's way when the thread's tally has to be looked up first.
    bool CountInFoundTally(long change) const noexcept;

    mutable std::atomic<long> m_count;
    // While frozen, the object's place in every thread's tally; -1 otherwise. Set
    // only while no other thread can reach the object: see FrozenObjects.
    long m_slot = -1;
    FrozenObjects* m_collector = nullptr;
};

// The objects a library builds while it loads and keeps until it unloads. Between
// Collect and Freeze, every counted object constructed on the calling thread is
// collected. Once frozen, each thread counts its references to them in a tally of
// its own, so threads sharing them write nothing shared; a count is its value at
// Freeze plus every thread's tally, and a thread's tally joins the counts when the
// thread ends. Thaw folds the tallies in and must come before the owners release
// the objects at unload, so that the last release deletes each as usual; no thread
// may take or give back references while Thaw runs.
class TERVAN_API FrozenObjects {
public:
    FrozenObjects();
    FrozenObjects(const FrozenObjects&) = delete;
    FrozenObjects& operator=(const FrozenObjects&) = delete;
    ~FrozenObjects();

    void Collect();
    void Freeze();
    void Thaw();

    // One thread's counts, by slot; written only by that thread.
    using Tally = std::vector<std::atomic<long>>;

private:
    friend class RefCountImpl;
    friend struct ThreadTallies;

    void Add(RefCountImpl* object);
    void Remove(RefCountImpl* object);
    // The calling thread's count for the slot, looking its tally up; null once the
    // thread's tallies are gone.
    std::atomic<long>* FindCount(long slot);
    long Total(const RefCountImpl& object) const;
    // The calling thread's tally, or null once it is gone.
    Tally* FindTally();
    // The calling thread's tally, made on its first reference.
    Tally& Enrol();
    void Retire(const Tally* tally);
    // Adds the tally to the counts and clears it; the caller holds m_mutex.
    void Fold(Tally& tally);

    std::unordered_set<RefCountImpl*> m_objects;
    std::vector<RefCountImpl*> m_slots;
    // Names this freeze in the threads' records of their tallies; renewed by Thaw.
    unsigned long long m_generation;
    mutable std::mutex m_mutex;
    std::vector<std::unique_ptr<Tally>> m_tallies;
};

// Implements the three IRefCountable slots of an interface by forwarding to RefCountImpl.
template <class Interface>
class RefCounted : public Interface, public RefCountImpl {
public:
    void AddRef() const override { AddRefImpl(); }
    long GetRefCount() const override { return GetRefCountImpl(); }
    void Release() const override { ReleaseImpl(); }

protected:
    RefCounted() = default;
    ~RefCounted() override = default;
};

// Inline: a request takes and gives back some hundred references.
inline void intrusive_ptr_add_ref(const IRefCountable* object) {
    object->AddRef();
}

inline void intrusive_ptr_release(const IRefCountable* object) {
    object->Release();
}

}  // namespace Tervan
