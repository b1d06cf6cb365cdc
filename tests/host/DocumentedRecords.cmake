# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Fails unless the page given with -DPAGE has a row for each code of FicResult and each size that the header given with
# -DHEADER asserts, and the page given with -DFIELDS one for each offset, with the same numbers, and no row for a code
# or a record that the header does not have.

cmake_policy(VERSION 3.25)

file(READ "${HEADER}" header)
file(READ "${PAGE}" page)
file(READ "${FIELDS}" fields)
set(complaints)

# A row that has to be there.
function(expect_row text row)
    string(FIND "${${text}}" "\n${row} |" position)

    if(position EQUAL -1)
        set(complaints "${complaints}\nno row \"${row}\"" PARENT_SCOPE)
    endif()
endfunction()

# A header in which next to nothing is found is read wrongly.
function(expect_at_least fewest names)
    list(LENGTH ${names} number)

    if(number LESS fewest)
        message(FATAL_ERROR "the header has only ${number} ${names}")
    endif()
endfunction()

# The page must have as many rows of a kind as the header has names: a row more is about what is no longer there.
function(expect_as_many_rows names row_pattern)
    list(LENGTH ${names} number)
    string(REGEX MATCHALL "${row_pattern}" rows "${page}")
    list(LENGTH rows number_of_rows)

    if(NOT number EQUAL number_of_rows)
        set(complaints "${complaints}\n${number} ${names} in the header, ${number_of_rows} in the page" PARENT_SCOPE)
    endif()
endfunction()

# A number, or the enumerator that stands for it.
function(get_number text result)
    if(text MATCHES "^[0-9]+$")
        set(${result} "${text}" PARENT_SCOPE)
    elseif(header MATCHES "[^A-Za-z]${text} = ([0-9]+)")
        set(${result} "${CMAKE_MATCH_1}" PARENT_SCOPE)
    else()
        message(FATAL_ERROR "the header does not say what ${text} is")
    endif()
endfunction()

string(REGEX MATCH "enum FicResult[^}]*}" codes "${header}")
string(REGEX MATCHALL "fic[A-Za-z]+ = -[0-9]+" codes "${codes}")

foreach(code IN LISTS codes)
    string(REGEX REPLACE "(.*) = (.*)" "| \\2 | `\\1`" row "${code}")
    expect_row(page "${row}")
endforeach()

expect_at_least(25 codes)
expect_as_many_rows(codes "\n\\| -[0-9]+ \\| `fic")

string(REGEX MATCHALL "sizeof \\([A-Za-z]+\\) == [A-Za-z0-9]+" sizes "${header}")

foreach(size IN LISTS sizes)
    string(REGEX MATCH "\\((.*)\\) == (.*)" size "${size}")
    set(record "${CMAKE_MATCH_1}")
    get_number("${CMAKE_MATCH_2}" bytes)
    expect_row(page "| `${record}` | ${bytes}")
endforeach()

expect_at_least(14 sizes)
expect_as_many_rows(sizes "\n\\| `(Rect|S[A-Za-z]+)` \\| [0-9]+ \\|")

string(REGEX MATCHALL "offsetof \\([A-Za-z]+, [A-Za-z0-9]+\\) == [A-Za-z0-9]+" offsets "${header}")

foreach(offset IN LISTS offsets)
    string(REGEX MATCH "\\((.*), (.*)\\) == (.*)" offset "${offset}")
    set(field "${CMAKE_MATCH_1}.${CMAKE_MATCH_2}")
    get_number("${CMAKE_MATCH_3}" bytes)
    expect_row(fields "| `${field}` | ${bytes}")
endforeach()

expect_at_least(50 offsets)

if(complaints)
    message(FATAL_ERROR "${PAGE} or ${FIELDS} differs from ${HEADER}:${complaints}")
endif()
