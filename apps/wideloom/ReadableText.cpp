// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Replaces what is not UTF-8.

#include "ReadableText.h"

juce::String readableText (std::string_view text)
{
    constexpr unsigned char lastAscii = 0x7f;
    constexpr juce::juce_wchar replacementCharacter = 0xfffd;
    const auto size = static_cast<int> (text.size());

    if (juce::CharPointer_UTF8::isValidString (text.data(), size))
        return juce::String::fromUTF8 (text.data(), size);

    juce::String result;

    for (const auto c : text)
    {
        const auto byte = static_cast<unsigned char> (c);
        result += byte <= lastAscii ? static_cast<juce::juce_wchar> (byte) : replacementCharacter;
    }

    return result;
}
