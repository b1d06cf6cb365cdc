// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads the header of a WAV file: RIFF and RF64, plain and extensible format.

#pragma once

#include "ByteSource.h"
#include "PcmLayout.h"

/** Finds the samples. Chunks that are not needed are skipped unread, so what stands in them does not matter.
    The samples are there in full, unless the file came through a pipe and its header leaves the length open:
    then they go on to the end. */
Problem readWavHeader (const ByteSource& bytes, PcmLayout& layout);
