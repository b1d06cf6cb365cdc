// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads lines of position, name and value, and puts them in the order of their positions.

#include "Automation.h"

#include "FileDescriptors.h"
#include "NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fcntl.h>
#include <unistd.h>

namespace
{
constexpr std::size_t mostBytes = std::size_t { 256 } << 20;
constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

using Fields = std::array<std::string_view, 3>;

bool split (std::string_view line, Fields& fields)
{
    for (std::size_t i = 0; i < fields.size(); ++i)
    {
        const auto comma = line.find (',');
        const bool isLast = i + 1 == fields.size();

        if ((comma == std::string_view::npos) != isLast)
            return false;

        fields[i] = trimmed (line.substr (0, comma));
        line.remove_prefix (isLast ? line.size() : comma + 1);
    }

    return true;
}

Problem readEvent (const Fields& fields, AutomationEvent& event)
{
    const auto position = fields[0];
    const auto* end = position.data() + position.size();
    const auto [rest, error] = std::from_chars (position.data(), end, event.position);

    if (error != std::errc {} || rest != end || event.position < 0)
        return "'" + std::string (position) + "' is no sample position; it takes a whole number from 0";

    if (auto problem = findParameter (fields[1], event.setting.index))
        return problem;

    return readNormalisedValue (fields[2], event.setting.value);
}
} // namespace

Problem readAutomation (std::string_view text, const std::string& fileName, AutomationEvents& events)
{
    constexpr Fields heading { "position", "name", "value" };
    bool mayBeHeading = true;
    events.clear();

    if (text.starts_with (byteOrderMark))
        text.remove_prefix (byteOrderMark.size());

    for (int lineNumber = 1; ! text.empty(); ++lineNumber)
    {
        const auto lineEnd = std::min (text.find ('\n'), text.size());
        const auto line = trimmed (text.substr (0, lineEnd));
        text.remove_prefix (std::min (lineEnd + 1, text.size()));

        if (line.empty() || line.starts_with ('#'))
            continue;

        Fields fields;
        AutomationEvent event;
        const bool isSplit = split (line, fields);

        if (! (isSplit && mayBeHeading && fields == heading))
        {
            const auto problem = isSplit
                                     ? readEvent (fields, event)
                                     : Problem ("a line is 'position,name,value', such as '48000,Pan,0.25'");

            if (problem)
                return "'" + fileName + "', line " + std::to_string (lineNumber) + ": " + *problem;

            events.push_back (event);
        }

        mayBeHeading = false;
    }

    std::stable_sort (
        events.begin(), events.end(), [] (const auto& a, const auto& b) { return a.position < b.position; });
    return {};
}

Problem loadAutomation (const std::string& path, AutomationEvents& events)
{
    const int file = ::open (path.c_str(), O_RDONLY | O_CLOEXEC);
    constexpr std::size_t stepBytes = 1 << 16;
    std::string text;
    ssize_t got = file < 0 ? -1 : 1;

    while (got > 0 && text.size() <= mostBytes)
    {
        const auto size = text.size();
        text.resize (size + stepBytes);
        got = readFully (file, text.data() + size, stepBytes);
        text.resize (size + static_cast<std::size_t> (std::max<ssize_t> (got, 0)));
    }

    const auto error = systemError();

    if (file >= 0)
        ::close (file);

    if (got < 0)
        return "'" + path + "' cannot be read: " + error;

    if (text.size() > mostBytes)
        return "'" + path + "' is too long for an automation file; 256 MiB is the most";

    return readAutomation (text, path, events);
}
