// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Messages of the host's token service, written and read.

#pragma once

#include "HostInterface.h"

#include <cstdint>
#include <optional>

/** The numbers and the text of a token that tells how to highlight a control. */
struct TokenHighlight
{
    static constexpr int textSize = 12; // bytes

    std::int16_t first = 0, second = 0, third = 0;
    unsigned char text[textSize] {};
};

/** [any] A token about `nameID`, with zeros behind its header. `length` counts the header's bytes, too. */
SFicSDSToken makeToken (std::int32_t nameID,
                        std::uint32_t type,
                        std::uint32_t subType,
                        std::uint32_t protocol,
                        std::int16_t length) noexcept;

/** [any] A control's value: one to be set, or the current one, as `type` says. */
SFicSDSToken makeValueToken (std::int32_t nameID, std::uint32_t type, std::int32_t value) noexcept;

/** [any] That a control is grabbed or let go. */
SFicSDSToken makeTouchToken (std::int32_t nameID, bool isTouched) noexcept;

/** [any] Copies a host's token: of a short one no more than it has, with zeros for the rest. */
SFicSDSToken copyToken (const SFicSDSToken& token) noexcept;

/** [any] The value that the token carries; none if it is too short for one. */
std::optional<std::int32_t> readTokenValue (const SFicSDSToken& token) noexcept;

/** [any] What is not there reads as 0. */
TokenHighlight readTokenHighlight (const SFicSDSToken& token) noexcept;
