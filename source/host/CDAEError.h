// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The adapter's exception: a host error code on its way to the routine that the host called.

#pragma once

#include <cstdint>
#include <exception>

/** Thrown inside the adapter only. The wrapper around each routine turns it into the routine's result. */
class CDAEError : public std::exception
{
public:
    /** [any] One of FicResult. Negative: 0 would tell the host that all went well. */
    explicit CDAEError (std::int32_t newCode) noexcept
        : code (newCode)
    {
    }

    /** [any] */
    std::int32_t GetErrorCode() const noexcept { return code; }

    const char* what() const noexcept override { return "the host gets an error code"; }

private:
    std::int32_t code;
};
