#pragma once

#include "Core/Api.h"

#include <atomic>
#include <unordered_set>

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

    mutable std::atomic<long> m_count;
    // Set only while no other thread can reach the object: see FrozenObjects.
    bool m_frozen = false;
    FrozenObjects* m_collector = nullptr;
};

// The objects a library builds while it loads and keeps until it unloads. Between
// Collect and Freeze, every counted object constructed on the calling thread is
// collected; once frozen, their counts stay as they are, so threads sharing them
// write nothing to them. Thaw must come before their owners release them at unload,
// so that the last release deletes each as usual. References taken while frozen
// must be given back before Thaw.
class TERVAN_API FrozenObjects {
public:
    FrozenObjects() = default;
    FrozenObjects(const FrozenObjects&) = delete;
    FrozenObjects& operator=(const FrozenObjects&) = delete;
    ~FrozenObjects();

    void Collect();
    void Freeze();
    void Thaw();

private:
    friend class RefCountImpl;

    void Add(RefCountImpl* object);
    void Remove(RefCountImpl* object);

    std::unordered_set<RefCountImpl*> m_objects;
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

TERVAN_API void intrusive_ptr_add_ref(const IRefCountable* object);
TERVAN_API void intrusive_ptr_release(const IRefCountable* object);

}  // namespace Tervan
