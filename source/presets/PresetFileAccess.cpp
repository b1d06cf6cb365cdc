// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Bounded reading, and writing through a temporary file.

#include "PresetFileAccess.h"

#include <array>
#include <filesystem>

namespace
{
constexpr std::size_t readBytes = 16 * 1024;
constexpr std::size_t writeBufferBytes = 32768;

std::filesystem::path pathOf (const juce::File& file)
{
    return std::filesystem::u8path (file.getFullPathName().toRawUTF8());
}

/** In the target's folder. Not TemporaryFile's own choice, which takes a name that starts with "~" for a path
   of its own. */
juce::File temporaryFor (const juce::File& target)
{
    const auto extension = target.getFileExtension();
    return juce::File (target.getFullPathName().dropLastCharacters (extension.length()) + "_temp"
                       + juce::String::toHexString (juce::Random().nextInt()) + extension);
}

juce::Result writeAll (const juce::File& file, const juce::MemoryBlock& contents)
{
    {
        const auto stream = file.createOutputStream (writeBufferBytes);

        if (stream == nullptr)
            return juce::Result::fail ("cannot write into " + file.getParentDirectory().getFullPathName());

        if (! stream->write (contents.getData(), contents.getSize()))
            return juce::Result::fail ("cannot write to " + file.getFullPathName());

        stream->flush();

        if (stream->getStatus().failed())
            return stream->getStatus();
    }

    // A disk that takes only the first part of the last bytes is no error to the stream.
    return file.getSize() == static_cast<juce::int64> (contents.getSize())
               ? juce::Result::ok()
               : juce::Result::fail ("cannot write all of " + file.getFullPathName());
}
} // namespace

std::optional<std::string> readFileStart (const juce::File& file, std::size_t maxBytes)
{
    std::error_code error;

    if (! std::filesystem::is_regular_file (pathOf (file), error))
        return std::nullopt;

    juce::FileInputStream stream (file);

    if (stream.failedToOpen())
        return std::nullopt;

    std::string contents;
    std::array<char, readBytes> chunk {};

    while (contents.size() < maxBytes)
    {
        const auto wanted = std::min (chunk.size(), maxBytes - contents.size());
        const int got = stream.read (chunk.data(), static_cast<int> (wanted));

        if (got <= 0)
            break;

        contents.append (chunk.data(), static_cast<std::size_t> (got));
    }

    if (stream.getStatus().failed())
        return std::nullopt;

    return contents;
}

juce::Result replaceFile (const juce::File& target, const juce::MemoryBlock& contents)
{
    const juce::TemporaryFile temporary (target, temporaryFor (target));

    if (const auto written = writeAll (temporary.getFile(), contents); written.failed())
        return written;

    // Not TemporaryFile's own way: where renaming fails it deletes the target first and then copies, which
    // can lose both.
    std::error_code error;
    std::filesystem::rename (pathOf (temporary.getFile()), pathOf (target), error);

    return error ? juce::Result::fail ("cannot replace " + target.getFullPathName() + ": "
                                       + juce::String (error.message()))
                 : juce::Result::ok();
}
