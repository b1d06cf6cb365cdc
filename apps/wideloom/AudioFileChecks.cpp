// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Decodes a FLAC file once from end to end, to see that all of it is there and whole.

#include "AudioFileChecks.h"

#include "Interruption.h"

#include <FLAC/stream_decoder.h>

#include <memory>

namespace
{
struct FlacPass
{
    juce::InputStream& stream;
    FLAC__uint64 numFrames = 0;
    unsigned numChannels = 0, bitsPerSample = 0; ///< of the first frame, which all others must share
    bool sawError = false;
};

FlacPass& passOf (void* client)
{
    return *static_cast<FlacPass*> (client);
}

FLAC__StreamDecoderReadStatus readBytes (const FLAC__StreamDecoder*,
                                         FLAC__byte* destination,
                                         size_t* numBytes,
                                         void* client)
{
    if (wasInterrupted())
        return FLAC__STREAM_DECODER_READ_STATUS_ABORT;

    const auto wanted = static_cast<int> (juce::jmin<size_t> (*numBytes, 1 << 20));
    const int got = passOf (client).stream.read (destination, wanted);
    *numBytes = static_cast<size_t> (juce::jmax (0, got));
    return got > 0 ? FLAC__STREAM_DECODER_READ_STATUS_CONTINUE
                   : FLAC__STREAM_DECODER_READ_STATUS_END_OF_STREAM;
}

FLAC__StreamDecoderWriteStatus countFrames (const FLAC__StreamDecoder*,
                                            const FLAC__Frame* frame,
                                            const FLAC__int32* const*,
                                            void* client)
{
    auto& pass = passOf (client);
    const auto& header = frame->header;

    if (pass.numFrames == 0)
    {
        pass.numChannels = header.channels;
        pass.bitsPerSample = header.bits_per_sample;
    }

    pass.sawError =
        pass.sawError || header.channels != pass.numChannels || header.bits_per_sample != pass.bitsPerSample;
    pass.numFrames += header.blocksize;
    return FLAC__STREAM_DECODER_WRITE_STATUS_CONTINUE;
}

void noteError (const FLAC__StreamDecoder*, FLAC__StreamDecoderErrorStatus, void* client)
{
    passOf (client).sawError = true;
}
} // namespace

Problem findFlacDamage (juce::InputStream& stream)
{
    const std::unique_ptr<FLAC__StreamDecoder, decltype (&FLAC__stream_decoder_delete)> decoder (
        FLAC__stream_decoder_new(), &FLAC__stream_decoder_delete);
    FlacPass pass { stream };

    if (decoder == nullptr)
        return "its header is damaged; copy or export it again";

    FLAC__stream_decoder_set_md5_checking (decoder.get(), true);
    const auto status = FLAC__stream_decoder_init_stream (decoder.get(),
                                                          &readBytes,
                                                          nullptr,
                                                          nullptr,
                                                          nullptr,
                                                          nullptr,
                                                          &countFrames,
                                                          nullptr,
                                                          &noteError,
                                                          &pass);

    const bool decoded = status == FLAC__STREAM_DECODER_INIT_STATUS_OK
                         && FLAC__stream_decoder_process_until_end_of_stream (decoder.get());

    if (wasInterrupted())
        return "interrupted";

    if (! decoded)
        return "its header is damaged; copy or export it again";

    const auto promised = FLAC__stream_decoder_get_total_samples (decoder.get());
    const bool checksumHolds = FLAC__stream_decoder_finish (decoder.get()) != 0;

    if (promised > pass.numFrames)
        return "it is cut short: its header promises " + std::to_string (promised) + " frames and "
               + std::to_string (pass.numFrames) + " are there; copy or export it again";

    if (pass.sawError || ! checksumHolds)
        return "it is damaged; copy or export it again";

    return {};
}
