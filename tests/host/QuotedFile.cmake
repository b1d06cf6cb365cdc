# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Fails unless the page given with -DPAGE shows the whole file given with -DFILE, letter by letter, as a block of C.

file(READ "${FILE}" file)
file(READ "${PAGE}" page)
string(FIND "${page}" "```c\n${file}```\n" position)

if(position EQUAL -1)
    message(FATAL_ERROR "${PAGE} does not show ${FILE} as it is")
endif()
