# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Fails unless the module given with -DMODULE exports just what a host looks for, and links to none of the host's functions.
# -DNM is the program that lists symbols.

set(expected
    CDSPDoHostCommand
    CDSPGetLoLong
    CDSPSendLoLong
    CProcessGroupGetBundleRef
    CProcessGroupRestoreResourceFile
    CProcessGroupUseResourceFile
    CloseMachOPlugIn
    Dispatcher
    NewMachOPlugIn
    __PI_GetRoutineDescriptor)

function(list_symbols result)
    execute_process(
        COMMAND "${NM}" --dynamic --format=posix ${ARGN} "${MODULE}"
        OUTPUT_VARIABLE lines
        COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "([^ \n]+)[^\n]*\n" "\\1;" names "${lines}")
    list(SORT names)
    list(REMOVE_ITEM names "")
    set(${result} "${names}" PARENT_SCOPE)
endfunction()

list_symbols(exported --defined-only)

if(NOT "${exported}" STREQUAL "${expected}")
    message(FATAL_ERROR "exported: ${exported}\nexpected: ${expected}")
endif()

list_symbols(imported --undefined-only)
list(FILTER imported INCLUDE REGEX "^Fic")

if(imported)
    message(FATAL_ERROR "linked to the host: ${imported}")
endif()
