// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which group a test gets where a plug-in would make its own.

#pragma once

class CProcessGroup;

/** Null makes no group. */
extern CProcessGroup* (*groupMaker)();
