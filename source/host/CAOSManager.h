// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The outputs that a plug-in has beside its main ones.

#pragma once

#include <cstdint>

/** Without any stems, since no configuration of this plug-in has some. [host-main] */
class CAOSManager
{
public:
    std::int32_t GetNumAuxOutputStems (std::int32_t* numStems) const noexcept;

    /** The stem's format and its first port; both 0 if there is no such stem. */
    std::int32_t GetAuxOutputStemInfo (std::int32_t stem,
                                       std::int32_t* stemFormat,
                                       std::int32_t* firstPort) const noexcept;
};
