// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Calls the bundle's routines for one instance, and carries its chunks there and back.

#include "HostInstance.h"

#include <algorithm>

namespace refhost
{
namespace
{
constexpr std::int32_t chunkTooLarge = -90;
constexpr std::size_t largestBody = 1u << 30; // bytes
} // namespace

std::unique_ptr<HostInstance> HostInstance::make (const HostBundle& bundle,
                                                  HostServices& services,
                                                  std::uint32_t type,
                                                  std::int32_t& result)
{
    std::int32_t index = 0;
    result = bundle.getRoutines().InstantiateProcess (type, &index);

    if (result != ficSuccess)
        return {};

    return std::unique_ptr<HostInstance> (new HostInstance (bundle, services, type, index));
}

HostInstance::HostInstance (const HostBundle& bundleToUse,
                            HostServices& servicesToUse,
                            std::uint32_t typeToUse,
                            std::int32_t indexToUse)
    : bundle (bundleToUse),
      services (servicesToUse),
      type (typeToUse),
      index (indexToUse),
      plugIn (services.engine.find (type, index))
{
    for (std::int32_t control = 1; control <= getNumControls(); ++control)
    {
        std::int32_t nameID = 0;
        bundle.getRoutines().GetControlNameID (type, index, control, &nameID);

        if (nameID != 0)
            controlsByName[nameID] = control;
    }
}

HostInstance::~HostInstance()
{
    bundle.getRoutines().FreeProcess (type, index);
}

int HostInstance::getNumControls() const
{
    std::int32_t numControls = 0;
    bundle.getRoutines().GetNumControls (type, index, &numControls);
    return numControls;
}

std::int32_t HostInstance::getValue (std::int32_t control) const
{
    std::int32_t value = 0;
    bundle.getRoutines().GetControlValue (type, index, control, &value);
    return value;
}

std::int32_t HostInstance::setValue (std::int32_t control, std::int32_t value) const
{
    return bundle.getRoutines().UpdateControlValue (type, index, control, value);
}

void HostInstance::idle() const
{
    const auto wishes = services.tokens.takeWishes ([this] (std::int32_t nameID)
                                                    { return controlsByName.contains (nameID); });

    for (const auto& wish : wishes)
        setValue (controlsByName.at (wish.nameID), wish.value);

    bundle.getRoutines().DoIdle (type, index);
}

std::int32_t HostInstance::getChunk (std::uint32_t chunkID, Bytes& body) const
{
    const auto& routines = bundle.getRoutines();
    std::int32_t size = 0;

    if (const auto result = routines.GetChunkSize (type, index, chunkID, &size); result != ficSuccess)
        return result;

    ChunkRecord chunk (static_cast<std::size_t> (std::max (size - ficChunkHeaderSize, 0)));

    if (const auto result = routines.GetChunk (type, index, chunkID, chunk.get()); result != ficSuccess)
        return result;

    const auto written = std::clamp (chunk.get()->chunkSize, std::int32_t { ficChunkHeaderSize }, size);
    body.assign (chunk.body(), chunk.body() + written - ficChunkHeaderSize);
    return ficSuccess;
}

std::int32_t HostInstance::setChunk (std::uint32_t chunkID, const Bytes& body) const
{
    if (body.size() > largestBody)
        return chunkTooLarge;

    ChunkRecord chunk (body.size());
    std::copy (body.begin(), body.end(), chunk.body());
    auto& header = *chunk.get();

    for (std::int32_t typeIndex = 1; typeIndex <= bundle.getNumTypes(); ++typeIndex)
    {
        SFicPlugInSpec ids {};
        bundle.getTypeIDs (typeIndex, ids);

        if (ids.typeID == type)
        {
            header.manufacturerID = ids.manufacturerID;
            header.productID = ids.productID;
            header.typeID = ids.typeID;
        }
    }

    header.chunkID = chunkID;
    return bundle.getRoutines().SetChunk (type, index, chunkID, &header);
}
} // namespace refhost
