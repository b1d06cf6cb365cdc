# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# WIDELOOM_SANITIZERS instruments everything in the build, JUCE included.

set(WIDELOOM_SANITIZERS
    ""
    CACHE STRING "Sanitizers for the whole build, as -fsanitize= takes them")

if(WIDELOOM_SANITIZERS)
    add_compile_options(-fsanitize=${WIDELOOM_SANITIZERS} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${WIDELOOM_SANITIZERS})
endif()
