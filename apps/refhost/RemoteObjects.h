// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the real-time engine knows of a plug-in: nothing but the descriptions that it was sent.

#pragma once

#include <host/HostInterface.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace refhost
{
/** One plug-in, ready to be rendered. */
struct RemotePlugIn
{
    SFicPlugInId id {};
    std::vector<std::int32_t> inputPorts, outputPorts; ///< their numbers
    std::vector<std::string> workerNames;
    std::vector<void*> workers;     ///< as the plug-in refers to them
    FicWorkerProc worker = nullptr; ///< null once the plug-in has gone

    /** What the first worker works on: the record as the worker is given it, and a word for each port. */
    std::vector<std::uintptr_t> instanceRecord;
    std::vector<float*> portWords;

    SPlugInRTInstance* getInstance() noexcept
    {
        return reinterpret_cast<SPlugInRTInstance*> (instanceRecord.data());
    }

    /** Lays the record out for the ports that there are. */
    void layOut (void* customData);
};

/** Reads the words of a message. */
class RemoteMessage
{
public:
    RemoteMessage (const std::uintptr_t* wordsToUse, std::int32_t numWordsToUse)
        : words (wordsToUse),
          numWords (numWordsToUse)
    {
    }

    /** Null when there are none left. */
    std::optional<std::uintptr_t> next();

    /** Reads a count and that many references. */
    bool readReferences (std::vector<void*>& references);

    bool isAtEnd() const { return position == numWords; }

private:
    const std::uintptr_t* words;
    std::int32_t numWords, position = 0;
};

/** A port as it was described. */
struct RemotePort
{
    void* plugIn = nullptr;
    std::int32_t number = 0;

    bool read (RemoteMessage& message);
};

/** A worker as it was described. */
struct RemoteWorker
{
    FicWorkerProc function = nullptr;
    std::vector<void*> data;
    std::string name;

    bool read (RemoteMessage& message);
};

/** A data block as it was described, and the engine's copy of it. */
struct RemoteData
{
    std::vector<std::uintptr_t> block; ///< words, so that it can hold addresses

    /** Tells the plug-in where the block is. */
    bool read (RemoteMessage& message);
};
} // namespace refhost
