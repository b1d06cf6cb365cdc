// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A parameter's value as text.

#include "CrzParameter.h"

CrzParameter::CrzParameter (CrzParameterManager* manager, CrzParameterValueMapper::CrzMappingENUM mapping)
    : parameterManager (manager)
{
    if (mapping != CrzParameterValueMapper::mappingNone)
        valueMapper = std::make_unique<CrzParameterValueMapper> (this, mapping);
}

juce::String CrzParameter::getValueAsText() const
{
    const float current = getValue();
    return valueMapper != nullptr ? valueMapper->normed2RealValueAsString (current) : juce::String (current);
}
