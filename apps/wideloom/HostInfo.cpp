// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Asks the plug-in through its routines, and puts the answers together as JSON and as text.

#include "HostInfo.h"

#include <array>

namespace
{
constexpr std::int32_t longestName = 31;
constexpr std::int32_t textRoom = 256; // bytes, the terminator or length byte included
constexpr std::int32_t numGestaltsAsked = 64;
constexpr auto controllerType = FIC_CODE ('P', 'c', 'T', 'L');

using Text = std::array<char, textRoom>;
using PascalText = std::array<unsigned char, textRoom>;

juce::String toString (const PascalText& text)
{
    return juce::String::fromUTF8 (reinterpret_cast<const char*> (text.data() + 1), text[0]);
}

juce::String toString (const Text& text)
{
    return juce::String::fromUTF8 (text.data());
}

juce::String codeText (std::uint32_t code)
{
    juce::String text;

    for (int shift = 24; shift >= 0; shift -= 8)
        text << juce::String::charToString (static_cast<juce::juce_wchar> (code >> shift & 0xff));

    return text;
}

/** Asks for a name in every length that a host could have room for, and keeps the different answers. */
template <typename Ask>
juce::var namesOfAllLengths (Ask&& ask)
{
    juce::Array<juce::var> names;

    for (auto length = longestName; length > 0; --length)
        if (const juce::String name = ask (length); ! names.contains (name))
            names.add (name);

    return names;
}

/** Fills a JSON object by asking the plug-in. */
class Inquiry
{
public:
    explicit Inquiry (HostSession& sessionToUse)
        : session (sessionToUse)
    {
    }

    juce::var group() const
    {
        auto* const object = new juce::DynamicObject();
        object->setProperty ("manufacturer",
                             namesOfAllLengths (
                                 [this] (std::int32_t length)
                                 {
                                     PascalText name {};
                                     pi.GetManufacturerName (length, name.data());
                                     return toString (name);
                                 }));
        object->setProperty ("automationType", pi.GetAutoType());
        object->setProperty ("numTypes", session.getBundle().getNumTypes());
        return object;
    }

    juce::var plugInType() const
    {
        auto* const object = new juce::DynamicObject();
        object->setProperty ("name",
                             namesOfAllLengths (
                                 [this] (std::int32_t length)
                                 {
                                     PascalText name {};
                                     pi.GetProcessTypeName (type, length, name.data());
                                     return toString (name);
                                 }));
        object->setProperty ("manufacturerCode", codeText (session.getIds().manufacturerID));
        object->setProperty ("productCode", codeText (session.getIds().productID));
        object->setProperty ("typeCode", codeText (type));

        std::int32_t kind = 0;
        pi.GetPlugInType (type, &kind);
        object->setProperty ("plugInType", kind);

        SFicPlugInStemFormats stems {};
        pi.GetStemFormats (type, &stems);
        auto* const formats = new juce::DynamicObject();
        formats->setProperty ("input", stems.input);
        formats->setProperty ("output", stems.output);
        formats->setProperty ("sideChain", stems.sideChain);
        object->setProperty ("stemFormats", formats);
        object->setProperty ("gestalts", gestalts());
        return object;
    }

    juce::var instance() const
    {
        std::int16_t numInputs = 0, numOutputs = 0;
        std::int32_t latency = 0, bypass = 0, numMeters = 0;
        pi.GetNumAudioInputs (type, process, &numInputs);
        pi.GetNumAudioOutputs (type, process, &numOutputs);
        pi.GetDelaySamplesLong (type, process, &latency);
        pi.GetMasterBypassControl (type, process, &bypass);
        pi.GetNumMeters (type, process, &numMeters);

        auto* const object = new juce::DynamicObject();
        object->setProperty ("inputs", numInputs);
        object->setProperty ("outputs", numOutputs);
        object->setProperty ("latencySamples", latency);
        object->setProperty ("masterBypassControl", bypass);
        object->setProperty ("meters", numMeters);
        object->setProperty ("ports", ports());
        object->setProperty ("chunks", chunks());
        object->setProperty ("controls", controls());
        return object;
    }

private:
    juce::var gestalts() const
    {
        auto* const object = new juce::DynamicObject();

        for (std::int32_t selector = 0; selector < numGestaltsAsked; ++selector)
        {
            std::int32_t answer = 0;
            pi.Gestalt (type, selector, &answer);

            if (answer != 0)
                object->setProperty (juce::String (selector), answer);
        }

        return object;
    }

    juce::var ports() const
    {
        const auto& plugIn = *session.getInstance().getPlugIn();
        const auto numbers = [] (const std::vector<std::int32_t>& list)
        {
            juce::Array<juce::var> result;

            for (const auto number : list)
                result.add (number);

            return result;
        };

        juce::Array<juce::var> workers;

        for (const auto& name : plugIn.workerNames)
            workers.add (juce::String::fromUTF8 (name.c_str()));

        auto* const object = new juce::DynamicObject();
        object->setProperty ("inputs", numbers (plugIn.inputPorts));
        object->setProperty ("outputs", numbers (plugIn.outputPorts));
        object->setProperty ("workers", workers);
        return object;
    }

    juce::var chunks() const
    {
        juce::Array<juce::var> rows;
        std::int32_t numChunks = 0;
        pi.GetNumChunks (type, process, &numChunks);

        for (std::int32_t i = 1; i <= numChunks; ++i)
        {
            std::uint32_t chunkID = 0;
            std::int32_t size = 0;
            PascalText description {};
            pi.GetIndexedChunkID (type, process, i, &chunkID);
            pi.DescribeChunk (type, process, chunkID, description.data());
            pi.GetChunkSize (type, process, chunkID, &size);

            auto* const row = new juce::DynamicObject();
            row->setProperty ("id", codeText (chunkID));
            row->setProperty ("description", toString (description));
            row->setProperty ("bytes", size);
            rows.add (row);
        }

        return rows;
    }

    juce::var controls() const
    {
        juce::Array<juce::var> rows;

        for (std::int32_t i = 1; i <= session.getInstance().getNumControls(); ++i)
            rows.add (control (i));

        return rows;
    }

    juce::var control (std::int32_t index) const
    {
        std::int32_t value = 0, defaultValue = 0, numSteps = 0, kind = 0, orientation = 0;
        unsigned char automatable = 0;
        Text text {};
        pi.GetControlValue (type, process, index, &value);
        pi.GetControlDefaultValue (type, process, index, &defaultValue);
        pi.GetNumControlSteps (type, process, index, &numSteps);
        pi.GetControlType (type, process, index, &kind);
        pi.GetControlOrientation (type, process, index, &orientation);
        pi.IsControlAutomatable (type, process, index, &automatable);
        pi.MapControlValToString (type, process, index, value, text.data(), longestName);

        auto* const object = new juce::DynamicObject();
        object->setProperty ("index", index);
        object->setProperty (
            "names",
            namesOfAllLengths (
                [&] (std::int32_t length)
                {
                    Text name {};
                    std::int16_t required = 0;
                    pi.GetControlNameOfLength (
                        type, process, index, name.data(), length, controllerType, &required);
                    return toString (name);
                }));
        object->setProperty ("value", value);
        object->setProperty ("default", defaultValue);
        object->setProperty ("text", toString (text));
        object->setProperty ("steps", numSteps);
        object->setProperty ("automatable", automatable != 0);
        object->setProperty ("type", kind);
        object->setProperty ("orientation", orientation);
        return object;
    }

    HostSession& session;
    const refhost::HostRoutines& pi = session.getBundle().getRoutines();
    const std::uint32_t type = session.getInstance().getType();
    const std::int32_t process = session.getInstance().getIndex();
};

juce::String joined (const juce::var& list, const char* separator = ", ")
{
    juce::StringArray texts;

    for (const auto& entry : *list.getArray())
        texts.add (entry.toString());

    return texts.joinIntoString (separator);
}

juce::String joinedPairs (const juce::var& object)
{
    juce::StringArray texts;

    for (const auto& [name, value] : object.getDynamicObject()->getProperties())
        texts.add (name.toString() + "=" + value.toString());

    return texts.joinIntoString (", ");
}
} // namespace

juce::var hostInfoJson (HostSession& session)
{
    const Inquiry inquiry (session);
    auto* const info = new juce::DynamicObject();
    info->setProperty ("group", inquiry.group());
    info->setProperty ("type", inquiry.plugInType());
    info->setProperty ("instance", inquiry.instance());
    return info;
}

juce::String hostInfoText (const juce::var& info)
{
    constexpr int labelWidth = 14, indexWidth = 4;
    juce::String text;
    const auto line = [&text] (const juce::String& label, const juce::String& value)
    { text << label.paddedRight (' ', labelWidth) << value << "\n"; };

    const auto &group = info["group"], &type = info["type"], &instance = info["instance"];
    line ("manufacturer", joined (group["manufacturer"], " | "));
    line ("name", joined (type["name"], " | "));
    line ("codes",
          "manufacturer '" + type["manufacturerCode"].toString() + "', product '"
              + type["productCode"].toString() + "', type '" + type["typeCode"].toString() + "'");
    line ("plug-in type", type["plugInType"].toString());
    line ("stem formats", joinedPairs (type["stemFormats"]));
    line ("gestalts", joinedPairs (type["gestalts"]));
    line ("channels", instance["inputs"].toString() + " in, " + instance["outputs"].toString() + " out");
    line ("ports",
          "in " + joined (instance["ports"]["inputs"]) + "; out " + joined (instance["ports"]["outputs"]));
    line ("worker", joined (instance["ports"]["workers"]));
    line ("latency", instance["latencySamples"].toString() + " samples");

    for (const auto& chunk : *instance["chunks"].getArray())
        line ("chunk '" + chunk["id"].toString() + "'",
              chunk["description"].toString() + ", " + chunk["bytes"].toString() + " bytes");

    text << "controls\n";

    for (const auto& control : *instance["controls"].getArray())
        text << control["index"].toString().paddedLeft (' ', indexWidth) << "  "
             << joined (control["names"], " | ") << ": " << control["text"].toString() << ", "
             << control["steps"].toString() << " steps" << (control["automatable"] ? "" : ", not automatable")
             << "\n";

    return text;
}
