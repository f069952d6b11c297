#include "Core/RefCount.h"

namespace Tervan {
namespace {

// The collection open on this thread, if any.
thread_local FrozenObjects* t_collecting = nullptr;

}  // namespace

RefCountImpl::RefCountImpl() noexcept : m_count(0), m_collector(t_collecting) {
    if (m_collector != nullptr) {
        m_collector->Add(this);
    }
}

RefCountImpl::RefCountImpl(const RefCountImpl&) noexcept : RefCountImpl() {}

// The count, the freeze and the collection belong to the object, not to its value:
// assignment copies none of them, so assigning to itself is harmless.
RefCountImpl& RefCountImpl::operator=(const RefCountImpl&) noexcept {  // NOLINT(bugprone-unhandled-self-assignment)
    return *this;
}

RefCountImpl::~RefCountImpl() {
    if (m_collector != nullptr) {
        m_collector->Remove(this);
    }
}

void RefCountImpl::AddRefImpl() const noexcept {
    if (!m_frozen) {
        m_count.fetch_add(1, std::memory_order_relaxed);
    }
}

long RefCountImpl::GetRefCountImpl() const noexcept {
    return m_count.load(std::memory_order_acquire);
}

void RefCountImpl::ReleaseImpl() const noexcept {
    // acq_rel: every write made through other references happens before the delete.
    if (!m_frozen && m_count.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete this;
    }
}

FrozenObjects::~FrozenObjects() {
    // Objects still alive outlive this record of them.
    for (RefCountImpl* object : m_objects) {
        object->m_frozen = false;
        object->m_collector = nullptr;
    }
    if (t_collecting == this) {
        t_collecting = nullptr;
    }
}

void FrozenObjects::Collect() {
    t_collecting = this;
}

void FrozenObjects::Freeze() {
    if (t_collecting == this) {
        t_collecting = nullptr;
    }
    for (RefCountImpl* object : m_objects) {
        object->m_frozen = true;
    }
}

void FrozenObjects::Thaw() {
    for (RefCountImpl* object : m_objects) {
        object->m_frozen = false;
    }
}

void FrozenObjects::Add(RefCountImpl* object) {
    m_objects.insert(object);
}

void FrozenObjects::Remove(RefCountImpl* object) {
    m_objects.erase(object);
}

void intrusive_ptr_add_ref(const IRefCountable* object) {
    object->AddRef();
}

void intrusive_ptr_release(const IRefCountable* object) {
    object->Release();
}

}  // namespace Tervan
