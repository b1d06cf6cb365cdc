// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a chunk of the plug-in's. The first one chooses the chunk; with an upper-case letter the two
// behind it are taken off the size that the header tells.

#include <refhost/HostInstance.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace
{
using Bytes = refhost::HostInstance::Bytes;

void require (bool condition, const char* what)
{
    if (! condition)
    {
        std::fprintf (stderr, "It does not hold that %s\n", what);
        std::abort();
    }
}

/** The plug-in with one instance, made once and never released, because libFuzzer leaves through exit(). */
struct Environment
{
    Environment()
    {
        auto home = (std::filesystem::temp_directory_path() / "wideloom-fuzz-XXXXXX").string();
        require (::mkdtemp (home.data()) != nullptr, "there is room for a home");
        ::setenv ("HOME", home.c_str(), 1);
        ::setenv ("DISPLAY", "none", 1);

        std::string problem;
        bundle = refhost::HostBundle::load (WIDELOOM_BUNDLE, problem);
        require (bundle != nullptr && bundle->start() == ficSuccess, "the plug-in starts");
        std::int32_t result = ficSuccess;
        require (bundle->getTypeIDs (1, ids) == ficSuccess, "it has a type");
        instance = refhost::HostInstance::make (*bundle, services, ids.typeID, result);
        require (instance != nullptr, "it can be inserted");
        require (instance->getChunk (FIC_CHUNK_JUCE, fresh) == ficSuccess, "it tells its state");
    }

    refhost::HostServices services;
    std::unique_ptr<refhost::HostBundle> bundle;
    std::unique_ptr<refhost::HostInstance> instance;
    SFicPlugInSpec ids {};
    Bytes fresh;
};

std::uint32_t chunkFor (std::uint8_t letter)
{
    switch (letter | 0x20)
    {
        case 'e':
            return FIC_CHUNK_CONTROLS;
        case 'm':
            return FIC_CHUNK_MIDI;
        default:
            return FIC_CHUNK_JUCE;
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    static auto* const environment = new Environment();
    const auto& instance = *environment->instance;

    if (size == 0)
        return 0;

    const auto id = chunkFor (data[0]);
    const bool hasOtherSize = data[0] >= 'A' && data[0] <= 'Z' && size > 2;
    const auto* const body = data + 1;
    refhost::ChunkRecord chunk (size - 1);
    std::memcpy (chunk.body(), body, size - 1);
    auto& header = *chunk.get();
    header.manufacturerID = environment->ids.manufacturerID;
    header.productID = environment->ids.productID;
    header.typeID = environment->ids.typeID;
    header.chunkID = id;

    if (hasOtherSize)
        header.chunkSize -= data[1] | data[2] << 8;

    const auto& pi = environment->bundle->getRoutines();
    unsigned char same = 2;
    pi.CompareActiveChunk (instance.getType(), instance.getIndex(), &header, &same);
    require (same <= 1, "a comparison is true or false");
    pi.SetChunk (instance.getType(), instance.getIndex(), id, &header);

    // What it then tells of itself restores itself.
    Bytes first, second;
    require (instance.getChunk (FIC_CHUNK_JUCE, first) == ficSuccess, "the state can be had");
    require (instance.setChunk (FIC_CHUNK_JUCE, first) == ficSuccess, "the state can be given back");
    require (instance.getChunk (FIC_CHUNK_JUCE, second) == ficSuccess, "the state can be had again");
    require (first == second, "a state restores what it was made from");
    require (instance.setChunk (FIC_CHUNK_JUCE, environment->fresh) == ficSuccess, "all can be as before");
    require (environment->services.complaints.empty(), "the host has nothing to complain of");
    return 0;
}
