// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Owns the objects behind the border's opaque types, and knows which of them are still there.

#include "HostObjects.h"

#include <algorithm>

namespace refhost
{
FicObject HostObjects::make (FicObjectRecord::Kind kind)
{
    objects.push_back (std::make_unique<FicObjectRecord> (FicObjectRecord { kind, {}, {} }));
    return objects.back().get();
}

bool HostObjects::release (FicObject object)
{
    return std::erase_if (objects, [object] (const auto& owned) { return owned.get() == object; }) > 0;
}

bool HostObjects::contains (FicObject object, FicObjectRecord::Kind kind) const
{
    return std::any_of (objects.begin(),
                        objects.end(),
                        [&] (const auto& owned) { return owned.get() == object && owned->kind == kind; });
}

int HostObjects::count (FicObjectRecord::Kind kind) const
{
    return static_cast<int> (std::count_if (
        objects.begin(), objects.end(), [kind] (const auto& owned) { return owned->kind == kind; }));
}
} // namespace refhost
