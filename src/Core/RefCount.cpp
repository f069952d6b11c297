#include "Core/RefCount.h"

#include <algorithm>
#include <unordered_map>

namespace Tervan {
namespace {

// The collection open on this thread, if any.
thread_local FrozenObjects* t_collecting = nullptr;

// The freezes in force, by generation: a thread that ends hands its tallies only to
// those. Never destroyed, so that threads still ending while the process exits find it.
struct LiveFreezes {
    std::mutex mutex;
    std::unordered_map<unsigned long long, FrozenObjects*> byGeneration;
    unsigned long long next = 1;
};

LiveFreezes& Live() {
    static LiveFreezes* const live = new LiveFreezes();
    return *live;
}

// The tally this thread used last, nearly always the one to use: one plain thread
// local, so reaching it costs one lookup and no initialisation check. Kept in the
// static TLS block (a few bytes of glibc's reserve for loaded libraries), which every
// reference count reaches without calling into the dynamic loader.
struct LastTally {
    unsigned long long generation = 0;
    FrozenObjects::Tally* tally = nullptr;
    // Once the thread's tallies have joined the counts, it counts in the objects' own.
    bool retired = false;
};
thread_local LastTally t_last __attribute__((tls_model("initial-exec")));

unsigned long long Register(FrozenObjects* freeze) {
    LiveFreezes& live = Live();
    const std::lock_guard<std::mutex> lock(live.mutex);
    const unsigned long long generation = live.next++;
    live.byGeneration.emplace(generation, freeze);
    return generation;
}

}  // namespace

// The tallies this thread counts in, one per freeze it has used.
struct ThreadTallies {
    struct Entry {
        unsigned long long generation;
        FrozenObjects::Tally* tally;
    };
    std::vector<Entry> entries;

    ThreadTallies() = default;
    ThreadTallies(const ThreadTallies&) = delete;
    ThreadTallies& operator=(const ThreadTallies&) = delete;
    ~ThreadTallies() {
        t_last = {0, nullptr, true};
        LiveFreezes& live = Live();
        const std::lock_guard<std::mutex> lock(live.mutex);
        for (const Entry& entry : entries) {
            const auto found = live.byGeneration.find(entry.generation);
            if (found != live.byGeneration.end()) {
                found->second->Retire(entry.tally);
            }
        }
    }
};

namespace {

thread_local ThreadTallies t_tallies;

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

namespace {

// Only this thread writes its tally: no read-modify-write is needed.
void Change(std::atomic<long>& count, long change) {
    count.store(count.load(std::memory_order_relaxed) + change, std::memory_order_relaxed);
}

}  // namespace

// Inline in both counting paths, which then make no further call for a frozen object
// whose thread counted in the same tally last time.
inline bool RefCountImpl::CountInTally(long change) const noexcept {
    if (m_slot < 0) {
        return false;
    }
    const LastTally& last = t_last;
    if (last.generation != m_collector->m_generation) {
        return CountInFoundTally(change);
    }
    Change((*last.tally)[static_cast<std::size_t>(m_slot)], change);
    return true;
}

bool RefCountImpl::CountInFoundTally(long change) const noexcept {
    std::atomic<long>* count = m_collector->FindCount(m_slot);
    if (count == nullptr) {
        return false;
    }
    Change(*count, change);
    return true;
}

void RefCountImpl::AddRefImpl() const noexcept {
    if (!CountInTally(1)) {
        m_count.fetch_add(1, std::memory_order_relaxed);
    }
}

long RefCountImpl::GetRefCountImpl() const noexcept {
    return m_slot < 0 ? m_count.load(std::memory_order_acquire) : m_collector->Total(*this);
}

void RefCountImpl::ReleaseImpl() const noexcept {
    if (CountInTally(-1)) {
        return;
    }
    // The owner's reference keeps a frozen object alive until Thaw.
    if (m_slot >= 0) {
        m_count.fetch_sub(1, std::memory_order_relaxed);
        return;
    }
    // acq_rel: every write made through other references happens before the delete.
    if (m_count.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete this;
    }
}

FrozenObjects::FrozenObjects() : m_generation(Register(this)) {}

FrozenObjects::~FrozenObjects() {
    {
        LiveFreezes& live = Live();
        const std::lock_guard<std::mutex> lock(live.mutex);
        live.byGeneration.erase(m_generation);
    }
    // Objects still alive outlive this record of them and count on their own again.
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (const std::unique_ptr<Tally>& tally : m_tallies) {
        Fold(*tally);
    }
    for (RefCountImpl* object : m_objects) {
        object->m_slot = -1;
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
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_slots.assign(m_objects.begin(), m_objects.end());
    for (std::size_t slot = 0; slot < m_slots.size(); ++slot) {
        m_slots[slot]->m_slot = static_cast<long>(slot);
    }
}

void FrozenObjects::Thaw() {
    LiveFreezes& live = Live();
    const std::lock_guard<std::mutex> liveLock(live.mutex);
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (const std::unique_ptr<Tally>& tally : m_tallies) {
        Fold(*tally);
    }
    m_tallies.clear();
    for (RefCountImpl* object : m_slots) {
        if (object != nullptr) {
            object->m_slot = -1;
        }
    }
    m_slots.clear();
    // Threads' records of the freed tallies no longer match.
    live.byGeneration.erase(m_generation);
    m_generation = live.next++;
    live.byGeneration.emplace(m_generation, this);
}

void FrozenObjects::Add(RefCountImpl* object) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_objects.insert(object);
}

// A frozen object is not released to death, but one that is not on the heap may still end.
void FrozenObjects::Remove(RefCountImpl* object) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_objects.erase(object);
    if (object->m_slot >= 0) {
        m_slots[static_cast<std::size_t>(object->m_slot)] = nullptr;
    }
}

std::atomic<long>* FrozenObjects::FindCount(long slot) {
    Tally* tally = FindTally();
    return tally != nullptr ? &(*tally)[static_cast<std::size_t>(slot)] : nullptr;
}

FrozenObjects::Tally* FrozenObjects::FindTally() {
    LastTally& last = t_last;
    if (last.retired) {
        return nullptr;
    }
    const auto& entries = t_tallies.entries;
    const auto found = std::find_if(entries.begin(), entries.end(), [this](const ThreadTallies::Entry& entry) {
        return entry.generation == m_generation;
    });
    last.tally = found != entries.end() ? found->tally : &Enrol();
    last.generation = m_generation;
    return last.tally;
}

long FrozenObjects::Total(const RefCountImpl& object) const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    long total = object.m_count.load(std::memory_order_relaxed);
    for (const std::unique_ptr<Tally>& tally : m_tallies) {
        total += (*tally)[static_cast<std::size_t>(object.m_slot)].load(std::memory_order_relaxed);
    }
    return total;
}

FrozenObjects::Tally& FrozenObjects::Enrol() {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_tallies.push_back(std::make_unique<Tally>(m_slots.size()));
    t_tallies.entries.push_back({m_generation, m_tallies.back().get()});
    return *m_tallies.back();
}

void FrozenObjects::Retire(const Tally* tally) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = std::find_if(m_tallies.begin(), m_tallies.end(),
                                    [tally](const std::unique_ptr<Tally>& own) { return own.get() == tally; });
    if (found != m_tallies.end()) {
        Fold(**found);
        m_tallies.erase(found);
    }
}

void FrozenObjects::Fold(Tally& tally) {
    const std::size_t slots = std::min(tally.size(), m_slots.size());
    for (std::size_t slot = 0; slot < slots; ++slot) {
        const long change = tally[slot].exchange(0, std::memory_order_relaxed);
        if (m_slots[slot] != nullptr) {
            m_slots[slot]->m_count.fetch_add(change, std::memory_order_relaxed);
        }
    }
}

}  // namespace Tervan
