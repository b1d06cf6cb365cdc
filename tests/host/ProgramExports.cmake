# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Fails unless the program given with -DPROGRAM exports just the host functions that the header given with -DHEADER
# names, beside what it has copied from the C and C++ libraries, which shows in their versions behind an "@".

cmake_policy(VERSION 3.25)

file(READ "${HEADER}" header)
string(REGEX MATCH "#define FIC_HOST_FUNCTIONS.*typedef Result" rows "${header}")
string(REGEX MATCHALL "Fic[A-Za-z]+, *\\\\?[ \n]*\\(" matches "${rows}")
set(expected)

foreach(match IN LISTS matches)
    string(REGEX MATCH "Fic[A-Za-z]+" name "${match}")
    list(APPEND expected "${name}")
endforeach()

list(SORT expected)
list(LENGTH expected number)

if(number LESS 15)
    message(FATAL_ERROR "the header names only ${number} functions: ${expected}")
endif()

execute_process(
    COMMAND "${NM}" --dynamic --defined-only --format=posix "${PROGRAM}"
    OUTPUT_VARIABLE lines
    COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "([^ \n]+)[^\n]*\n" "\\1;" exported "${lines}")
# The linker's own marks join them when some library of the system has such marks, too.
list(REMOVE_ITEM exported "" __bss_start _edata _end)
list(FILTER exported EXCLUDE REGEX "@")
list(SORT exported)

if(NOT "${exported}" STREQUAL "${expected}")
    message(FATAL_ERROR "exported: ${exported}\nexpected: ${expected}")
endif()
