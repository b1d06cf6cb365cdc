// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A parameter's value as text.

#include "CrzParameter.h"

#include <cmath>

CrzParameter::CrzParameter (CrzParameterManager* manager, CrzParameterValueMapper::CrzMappingENUM mapping)
    : parameterManager (manager)
{
    if (mapping != CrzParameterValueMapper::mappingNone)
        valueMapper = std::make_unique<CrzParameterValueMapper> (this, mapping);
}

juce::String CrzParameter::getValueAsText() const
{
    const float current = getValue();

    if (valueMapper != nullptr)
        return valueMapper->normed2RealValueAsString (current);

    return juce::String (std::isfinite (current) ? current : 0.0f);
}
