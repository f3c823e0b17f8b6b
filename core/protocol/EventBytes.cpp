#include "core/protocol/EventBytes.h"

#include <algorithm>
#include <array>
#include <new>

namespace tonavelle {

namespace {

// The first block of an arena fits its first message alone; each next one is twice the one before, up to this size.
constexpr std::size_t largestSharedBlockSize = 64 * 1024;
constexpr std::size_t recordAlignment = 8;

constexpr std::size_t roundedUp(std::size_t size)
{
    return (size + recordAlignment - 1) / recordAlignment * recordAlignment;
}

} // namespace

void EventBytes::setRecord(std::span<const std::uint8_t> bytes)
{
    EventByteArena arena;
    *this = arena.join(bytes, {}, {});
}

void EventBytes::release(Block* block, std::size_t count)
{
    if (block->owners.fetch_sub(count, std::memory_order_acq_rel) != count) return;
    block->~Block();
    ::operator delete(block);
}

bool EventBytes::hasSameLongBytes(const EventBytes& other) const
{
    return !isInline() && !other.isInline() && std::equal(begin(), end(), other.begin(), other.end());
}

EventBytes EventByteArena::join(std::span<const std::uint8_t> head, std::span<const std::uint8_t> body,
                                std::span<const std::uint8_t> tail)
{
    const std::size_t size = head.size() + body.size() + tail.size();
    const auto write = [&](std::uint8_t* target) {
        target = std::copy(head.begin(), head.end(), target);
        target = std::copy(body.begin(), body.end(), target);
        std::copy(tail.begin(), tail.end(), target);
    };
    if (size <= EventBytes::inlineCapacity) {
        std::array<std::uint8_t, EventBytes::inlineCapacity> bytes;
        write(bytes.data());
        return EventBytes(std::span<const std::uint8_t>(bytes.data(), size));
    }
    std::uint8_t* const place = allocate(sizeof(EventBytes::Record) + size);
    auto* const record = new (place) EventBytes::Record{m_block, size};
    write(place + sizeof(EventBytes::Record));
    EventBytes result(record);
    result.retain();
    return result;
}

std::uint8_t* EventByteArena::allocate(std::size_t size)
{
    if (m_block == nullptr || size > m_blockSize - m_used) openBlock(size);
    std::uint8_t* const place = reinterpret_cast<std::uint8_t*>(m_block) + m_used;
    m_used = std::min(m_used + roundedUp(size), m_blockSize);
    return place;
}

void EventByteArena::openBlock(std::size_t size)
{
    const std::size_t shared = std::min(m_blockSize * 2, largestSharedBlockSize);
    const std::size_t blockSize = std::max(sizeof(EventBytes::Block) + roundedUp(size), shared);
    void* const memory = ::operator new(blockSize);
    retireBlock();
    m_block = new (memory) EventBytes::Block{1};
    m_blockSize = blockSize;
    m_used = sizeof(EventBytes::Block);
}

void EventByteArena::retireBlock()
{
    if (m_block != nullptr) EventBytes::release(m_block, 1);
    m_block = nullptr;
}

} // namespace tonavelle
