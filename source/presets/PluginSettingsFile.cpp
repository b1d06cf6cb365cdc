// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads, merges and writes the settings file.

#include "PluginSettingsFile.h"

#include "PresetFileAccess.h"
#include "XmlGuard.h"

#include <mutex>

namespace
{
constexpr auto rootTag = "PROPERTIES";
constexpr auto valueTag = "VALUE";
constexpr auto nameAttribute = "name";
constexpr auto valueAttribute = "val";

/** How long another process may hold the lock before it is passed over, in milliseconds. The file cannot be
    damaged even then; at worst one of two changes made at the same moment is lost. */
constexpr int lockTimeoutMs = 500;

/** File locks are a process's: among its own threads they exclude nobody. */
std::mutex& threadLock()
{
    static std::mutex mutex;
    return mutex;
}

/** Null for a file that is missing, unreadable or none of this kind. */
std::unique_ptr<juce::XmlElement> readDocument (const juce::File& file)
{
    // One byte past the limit, so that a longer file is refused and not taken for its start.
    const auto text = readFileStart (file, maxXmlTextBytes + 1);

    if (! text.has_value())
        return nullptr;

    auto xml = parseGuardedXml (*text);
    return xml.element != nullptr && xml.element->getTagName() == rootTag ? std::move (xml.element) : nullptr;
}

juce::StringPairArray valuesIn (const juce::XmlElement& document)
{
    juce::StringPairArray values (false);

    for (const auto* element : document.getChildWithTagNameIterator (valueTag))
        if (const auto key = element->getStringAttribute (nameAttribute); key.isNotEmpty())
            values.set (key, element->getStringAttribute (valueAttribute));

    return values;
}

/** A free place for a file that a slip of somebody's editor has made unreadable. */
juce::File placeForUnreadable (const juce::File& file)
{
    return file.getSiblingFile (file.getFileName() + ".unreadable").getNonexistentSibling (false);
}

void setIn (juce::XmlElement& document, const juce::String& key, const juce::String& value)
{
    bool isThere = false;

    // A file edited by hand may name a key twice; the last one counts.
    for (auto* element : document.getChildWithTagNameIterator (valueTag))
    {
        if (element->compareAttribute (nameAttribute, key))
        {
            element->setAttribute (valueAttribute, value);
            isThere = true;
        }
    }

    if (isThere)
        return;

    auto* element = document.createNewChildElement (valueTag);
    element->setAttribute (nameAttribute, key);
    element->setAttribute (valueAttribute, value);
}
} // namespace

PluginSettingsFile::PluginSettingsFile (const juce::PropertiesFile::Options& options)
    : file (options.getDefaultFile()),
      millisecondsBeforeSaving (options.millisecondsBeforeSaving),
      processLock ("WideLoom settings " + juce::String::toHexString (file.getFullPathName().hashCode64()))
{
    if (const auto document = readDocument (file))
        values = valuesIn (*document);
}

PluginSettingsFile::~PluginSettingsFile()
{
    stopTimer();
    saveIfNeeded();
}

void PluginSettingsFile::setValue (const juce::String& key, const juce::String& value)
{
    values.set (key, value);
    changes.set (key, value);

    if (juce::MessageManager::getInstanceWithoutCreating() != nullptr)
        startTimer (millisecondsBeforeSaving);
}

bool PluginSettingsFile::saveIfNeeded()
{
    stopTimer();

    if (changes.size() == 0)
        return true;

    const std::lock_guard<std::mutex> otherThreads (threadLock());
    const bool locked = processLock.enter (lockTimeoutMs);
    const bool saved = mergeAndWrite();

    if (locked)
        processLock.exit();

    return saved;
}

bool PluginSettingsFile::mergeAndWrite()
{
    auto document = readDocument (file);
    const bool putAside = document == nullptr && file.existsAsFile() && file.getSize() > 0;
    const auto aside = placeForUnreadable (file);

    if (putAside && ! file.moveFileTo (aside))
        return false;

    if (document == nullptr)
    {
        // Missing or damaged meanwhile: what this object knows of it is all there is.
        document = std::make_unique<juce::XmlElement> (rootTag);

        for (const auto& key : values.getAllKeys())
            setIn (*document, key, values[key]);
    }

    for (const auto& key : changes.getAllKeys())
        setIn (*document, key, changes[key]);

    juce::MemoryOutputStream text;
    document->writeTo (text, {});

    if (file.getParentDirectory().createDirectory().failed()
        || replaceFile (file, text.getMemoryBlock()).failed())
    {
        if (putAside)
            aside.moveFileTo (file);

        return false;
    }

    values = valuesIn (*document);
    changes.clear();
    return true;
}
