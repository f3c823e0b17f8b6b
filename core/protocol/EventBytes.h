#pragma once

#include "core/protocol/Message.h"

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <utility>

namespace tonavelle {

/// The bytes of one event of a MIDI file, in eight bytes of memory: a song has millions of events, and nearly all are
/// short. Up to seven bytes stand in the object itself; more stand outside it, where copies share them. The bytes never
/// change once made, so that copies are cheap and may be used in several threads.
class EventBytes
{
public:
    using value_type = std::uint8_t;
    using const_iterator = const std::uint8_t*;

    static constexpr std::size_t inlineCapacity = 7;

    EventBytes() = default;
    EventBytes(std::initializer_list<std::uint8_t> bytes) : EventBytes(std::span(bytes.begin(), bytes.size())) {}
    EventBytes(const Message& bytes) : EventBytes(std::span(bytes)) {}
    EventBytes(std::span<const std::uint8_t> bytes)
    {
        if (bytes.size() <= inlineCapacity)
            setInline(bytes);
        else
            setRecord(bytes);
    }

    EventBytes(const EventBytes& other) : m_word(other.m_word)
    {
        if (!isInline()) retain();
    }
    EventBytes(EventBytes&& other) noexcept : m_word(std::exchange(other.m_word, emptyWord)) {}
    EventBytes& operator=(EventBytes other) noexcept
    {
        std::swap(m_word, other.m_word);
        return *this;
    }
    ~EventBytes()
    {
        if (!isInline()) release();
    }

    std::size_t size() const { return isInline() ? (m_word & 0xFF) >> 1 : record()->size; }
    bool empty() const { return m_word == emptyWord; }
    const std::uint8_t* data() const
    {
        return isInline() ? reinterpret_cast<const std::uint8_t*>(&m_word) + 1
                          : reinterpret_cast<const std::uint8_t*>(record() + 1);
    }
    const std::uint8_t* begin() const { return data(); }
    const std::uint8_t* end() const { return data() + size(); }
    std::uint8_t operator[](std::size_t index) const { return data()[index]; }
    bool isInline() const { return (m_word & 1) != 0; }
    /// The room of an inline message, which copies faster as a whole than its first `size()` bytes do.
    std::span<const std::uint8_t, inlineCapacity> inlineRoom() const
    {
        return std::span<const std::uint8_t, inlineCapacity>(reinterpret_cast<const std::uint8_t*>(&m_word) + 1,
                                                             inlineCapacity);
    }

    friend bool operator==(const EventBytes& left, const EventBytes& right)
    {
        return left.m_word == right.m_word || left.hasSameLongBytes(right);
    }

private:
    friend class EventByteArena;

    /// Memory that several long messages share; it goes when the last of its owners goes.
    struct Block {
        std::atomic<std::size_t> owners;
    };
    /// Stands in front of the bytes of one long message.
    struct Record {
        Block* block;
        std::size_t size;
    };

    // The lowest bit tells the two forms apart, for no record stands at an odd address. With it set, the low byte is
    // twice the count plus one and the bytes follow in memory order; otherwise the word is the record's address.
    static_assert(std::endian::native == std::endian::little);
    static_assert(sizeof(Record*) == sizeof(std::uint64_t));
    static constexpr std::uint64_t emptyWord = 1;

    explicit EventBytes(const Record* record) : m_word(reinterpret_cast<std::uintptr_t>(record)) {}

    void setInline(std::span<const std::uint8_t> bytes)
    {
        // Shifted together in a register: bytes stored one by one would stall the load of the whole word.
        m_word = bytes.size() << 1 | 1;
        for (std::size_t i = 0; i < bytes.size(); ++i)
            m_word |= static_cast<std::uint64_t>(bytes[i]) << (8 * (i + 1));
    }
    void setRecord(std::span<const std::uint8_t> bytes);

    const Record* record() const { return reinterpret_cast<const Record*>(static_cast<std::uintptr_t>(m_word)); }
    void retain() const { record()->block->owners.fetch_add(1, std::memory_order_relaxed); }
    void release() const { release(record()->block, 1); }
    static void release(Block* block, std::size_t count);
    bool hasSameLongBytes(const EventBytes& other) const;

    std::uint64_t m_word = emptyWord;
};

/// Makes the events' bytes of one file: long messages go side by side into common blocks.
class EventByteArena
{
public:
    EventByteArena() = default;
    EventByteArena(const EventByteArena&) = delete;
    EventByteArena& operator=(const EventByteArena&) = delete;
    ~EventByteArena() { retireBlock(); }

    /// The three pieces one behind the other.
    EventBytes join(std::span<const std::uint8_t> head, std::span<const std::uint8_t> body,
                    std::span<const std::uint8_t> tail);

private:
    std::uint8_t* allocate(std::size_t size);
    void openBlock(std::size_t size);
    void retireBlock();

    EventBytes::Block* m_block = nullptr;
    std::size_t m_blockSize = 0;
    std::size_t m_used = 0;
};

} // namespace tonavelle
