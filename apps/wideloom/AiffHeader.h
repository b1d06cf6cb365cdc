// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads the header of an AIFF or AIFF-C file.

#pragma once

#include "ByteSource.h"
#include "PcmLayout.h"

/** Finds the samples, which are there in full. Chunks that are not needed are skipped unread. */
Problem readAiffHeader (const ByteSource& bytes, PcmLayout& layout);
