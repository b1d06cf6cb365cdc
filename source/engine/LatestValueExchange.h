// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A wait-free hand-over of the latest value of a group of fields from one thread to another.

#pragma once

#include <array>
#include <atomic>
#include <type_traits>

/** Three slots, of which the writer owns one, the reader one, and the third travels between them: neither
    side ever waits, and the reader always gets a whole value, the latest one.

    One writer at a time and one reader at a time; whoever takes turns as the writer must order the turns. */
template <typename Value>
class LatestValueExchange
{
    static_assert (std::is_nothrow_copy_assignable_v<Value>);

public:
    /** [any, one writer at a time] */
    void publish (const Value& value) noexcept
    {
        slots[writerSlot] = value;
        writerSlot = travelling.exchange (writerSlot | freshFlag, std::memory_order_acq_rel) & slotMask;
    }

    /** [audio, one reader] Copies the latest value to `destination` if it is newer than the last one fetched.
        @returns whether it was */
    bool fetch (Value& destination) noexcept
    {
        if ((travelling.load (std::memory_order_relaxed) & freshFlag) == 0)
            return false;

        readerSlot = travelling.exchange (readerSlot, std::memory_order_acq_rel) & slotMask;
        destination = slots[readerSlot];
        return true;
    }

private:
    static constexpr unsigned slotMask = 3;
    static constexpr unsigned freshFlag = 4;

    std::array<Value, 3> slots {};
    std::atomic<unsigned> travelling { 1 };
    unsigned writerSlot = 0;
    unsigned readerSlot = 2;
};
