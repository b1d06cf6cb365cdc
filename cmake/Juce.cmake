# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# JUCE, compiled once. Its module targets are interface libraries that every consumer would compile
# again; wideloom_juce compiles them into one static library and hands on the same definitions and
# include folders, so that class layouts agree everywhere.

find_package(JUCE 7.0.5 EXACT CONFIG REQUIRED)
find_package(PNG REQUIRED)
find_package(JPEG REQUIRED)
find_library(FLAC_LIBRARY FLAC REQUIRED)

add_library(wideloom_juce STATIC)

target_link_libraries(
    wideloom_juce
    PRIVATE juce::juce_audio_basics
            juce::juce_audio_devices
            juce::juce_audio_formats
            juce::juce_audio_processors
            juce::juce_core
            juce::juce_data_structures
            juce::juce_events
            juce::juce_graphics
            juce::juce_gui_basics
            juce::juce_gui_extra
    PUBLIC PNG::PNG JPEG::JPEG ${FLAC_LIBRARY})

target_compile_definitions(
    wideloom_juce
    PUBLIC JUCE_DISPLAY_SPLASH_SCREEN=0
           JUCE_WEB_BROWSER=0
           JUCE_USE_CURL=0
           JUCE_MODAL_LOOPS_PERMITTED=1
           JUCE_PLUGINHOST_VST3=0
           JUCE_PLUGINHOST_LV2=0
           JUCE_STANDALONE_APPLICATION=0
           JUCE_USE_OGGVORBIS=0
    INTERFACE $<TARGET_PROPERTY:wideloom_juce,COMPILE_DEFINITIONS>)

target_include_directories(
    wideloom_juce SYSTEM INTERFACE $<TARGET_PROPERTY:wideloom_juce,INCLUDE_DIRECTORIES>)

# For JUCE alone: it never changes, and our own files compile faster from precompiled headers, which ccache does not
# take.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set_target_properties(wideloom_juce PROPERTIES C_COMPILER_LAUNCHER "${CCACHE_PROGRAM}"
                                                   CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

# Parsing JUCE's headers takes most of the time that our own small files take to compile. What is listed here is parsed
# once for each target.
function(wideloom_precompile_juce target)
    target_precompile_headers(${target} PRIVATE <juce_audio_processors/juce_audio_processors.h> ${ARGN})
endfunction()
