# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Flags for everything, and the warnings that only our own targets take.

# The order of float operations in the signal chain is part of what the effect promises, so a
# product and a sum are never fused, and no build may relax IEEE arithmetic.
add_compile_options(-ffp-contract=off)

# On in the dev preset. With more inlining or with instrumentation g++ 12 warns of overlapping, endless and wrong accesses
# inside std::string that never happen (-Wrestrict, -Wstringop-overflow, -Warray-bounds), so there these are off; the dev
# preset stays without options that clang-tidy does not know.
option(WIDELOOM_WARNINGS_AS_ERRORS "Treat warnings in our own code as errors" ON)
option(WIDELOOM_BENCHMARKS "Build the benchmarks" OFF)
option(WIDELOOM_FUZZERS "Build the fuzz targets; needs clang and libFuzzer" OFF)

add_library(project_warnings INTERFACE)
target_compile_options(
    project_warnings
    INTERFACE -Wall
              -Wextra
              -Wpedantic
              -Wshadow
              -Wconversion
              -Wsign-conversion
              -Wcast-align
              $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>
              $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>
              -Wformat=2
              -Wimplicit-fallthrough
              "$<$<NOT:$<OR:$<BOOL:${WIDELOOM_WARNINGS_AS_ERRORS}>,$<CXX_COMPILER_ID:Clang>>>:-Wno-restrict;-Wno-stringop-overflow;-Wno-array-bounds>"
              $<$<BOOL:${WIDELOOM_WARNINGS_AS_ERRORS}>:-Werror>)
