#include "Core/RefCount.h"

namespace Tervan {

RefCountImpl::RefCountImpl() noexcept : m_count(0) {}

RefCountImpl::RefCountImpl(const RefCountImpl&) noexcept : m_count(0) {}

RefCountImpl& RefCountImpl::operator=(const RefCountImpl&) noexcept { return *this; }

RefCountImpl::~RefCountImpl() = default;

void RefCountImpl::AddRefImpl() const noexcept { m_count.fetch_add(1, std::memory_order_relaxed); }

long RefCountImpl::GetRefCountImpl() const noexcept { return m_count.load(std::memory_order_acquire); }

void RefCountImpl::ReleaseImpl() const noexcept {
    // acq_rel: every write made through other references happens before the delete.
    if (m_count.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete this;
    }
}

void intrusive_ptr_add_ref(const IRefCountable* object) { object->AddRef(); }

void intrusive_ptr_release(const IRefCountable* object) { object->Release(); }

}  // namespace Tervan
