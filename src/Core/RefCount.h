#pragma once

#include "Core/Api.h"

#include <atomic>

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
    mutable std::atomic<long> m_count;
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
