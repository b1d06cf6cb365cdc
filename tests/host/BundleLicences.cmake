# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Fails unless the bundle with the module given with -DMODULE carries the licences of all that the module holds, as they
# stand in the project given with -DPROJECT.

cmake_policy(VERSION 3.25)

cmake_path(SET resources NORMALIZE "${MODULE}/../../Resources")
set(expected LICENSE LICENSE-fonts.txt LICENSE-images.txt)
set(sources LICENSE resources/fonts/OFL.txt resources/images/LICENSE.txt)

file(GLOB found RELATIVE "${resources}" "${resources}/*")
list(SORT found)

if(NOT "${found}" STREQUAL "${expected}")
    message(FATAL_ERROR "${resources} has: ${found}\nexpected: ${expected}")
endif()

foreach(name source IN ZIP_LISTS expected sources)
    file(SHA256 "${resources}/${name}" copied)
    file(SHA256 "${PROJECT}/${source}" original)

    if(NOT "${copied}" STREQUAL "${original}")
        message(FATAL_ERROR "${resources}/${name} is not ${source}")
    endif()
endforeach()
