// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts what a token says into its places and takes it out of them.

#include "HostTokens.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace
{
/** Places in a token's payload, which starts at ficTokenHeaderLength. Numbers there are not aligned. */
enum HighlightOffset
{
    firstOffset = 0,
    secondOffset = 2,
    textOffset = 4,
    thirdOffset = 16
};

static_assert (thirdOffset == textOffset + TokenHighlight::textSize);

template <typename Number>
Number readPayload (const SFicSDSToken& token, std::size_t offset) noexcept
{
    Number number = 0;
    std::memcpy (&number, token.payload + offset, sizeof (number));
    return number;
}
} // namespace

SFicSDSToken makeToken (std::int32_t nameID,
                        std::uint32_t type,
                        std::uint32_t subType,
                        std::uint32_t protocol,
                        std::int16_t length) noexcept
{
    SFicSDSToken token {};
    token.nameID = nameID;
    token.tokenType = type;
    token.tokenSubType = subType;
    token.manufacturer = FIC_TOKEN_MANUFACTURER;
    token.protocol = protocol;
    token.targetID = nameID;
    token.tokenLength = length;
    return token;
}

SFicSDSToken makeValueToken (std::int32_t nameID, std::uint32_t type, std::int32_t value) noexcept
{
    auto token = makeToken (nameID, type, FIC_TOKEN_VALUE, FIC_PROTOCOL_CONTROL, ficTokenValueLength);
    std::memcpy (token.payload, &value, sizeof (value));
    return token;
}

SFicSDSToken makeTouchToken (std::int32_t nameID, bool isTouched) noexcept
{
    auto token =
        makeToken (nameID, FIC_TOKEN_SET, FIC_TOKEN_TOUCH, FIC_PROTOCOL_CONTROL, ficTokenTouchLength);
    token.payload[0] = isTouched ? 1 : 0;
    token.payload[2] = 1;
    return token;
}

SFicSDSToken copyToken (const SFicSDSToken& token) noexcept
{
    SFicSDSToken copy {};
    const auto length = std::clamp<int> (token.tokenLength, ficTokenHeaderLength, sizeof (copy));
    std::memcpy (&copy, &token, static_cast<std::size_t> (length));
    return copy;
}

std::optional<std::int32_t> readTokenValue (const SFicSDSToken& token) noexcept
{
    if (token.tokenLength < ficTokenValueLength)
        return {};

    return readPayload<std::int32_t> (token, 0);
}

TokenHighlight readTokenHighlight (const SFicSDSToken& token) noexcept
{
    TokenHighlight highlight;
    highlight.first = readPayload<std::int16_t> (token, firstOffset);
    highlight.second = readPayload<std::int16_t> (token, secondOffset);
    highlight.third = readPayload<std::int16_t> (token, thirdOffset);
    std::copy_n (token.payload + textOffset, TokenHighlight::textSize, highlight.text);
    return highlight;
}
