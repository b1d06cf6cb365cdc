// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What hosts were built with: the number of each routine, and which routines answer the same whatever comes.
// Written out, so that a change of the routine table is seen.

#include "host/RoutineRows.h"

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <set>
#include <string_view>

namespace
{
struct NumberRow
{
    std::int32_t selector;
    std::string_view name;
};

// clang-format off
constexpr NumberRow promisedRows[] = {
    { 0, "Draw" }, { 1, "DoMouseCommand" }, { 2, "DoKeyCommand" }, { 3, "DoIdle" }, { 4, "GetViewRect" },
    { 5, "GetProcessTypeName" }, { 6, "GetProcessTypeIDs" }, { 7, "SetSampleRate" },
    { 8, "ActivateWindow" }, { 9, "DeactivateWindow" }, { 10, "GetNumAudioInputs" },
    { 12, "GetManufacturerName" }, { 14, "SetXCMDProc" }, { 15, "DoSetCursor" }, { 16, "AllocateHardware" },
    { 17, "GetNumAudioOutputs" }, { 18, "FreeHardware" }, { 19, "InstantiateProcess" },
    { 20, "FreeProcess" }, { 22, "GetNumProcessTypes" }, { 23, "SetNumAudioInputs" },
    { 24, "SetNumAudioOutputs" }, { 25, "GetProcessTypeFlags" }, { 27, "IsInputPortConnected" },
    { 28, "CanOutputPortConnect" }, { 29, "IsOutputPortConnected" }, { 30, "ConnectInput" },
    { 31, "ConnectOutput" }, { 32, "DisconnectInput" }, { 33, "DisconnectOutput" },
    { 35, "GetDriverTypeList" }, { 36, "GetDriverRefNumOfInput" }, { 37, "GetDriverRefNumOfOutput" },
    { 38, "SetCFicWidgetObject" }, { 39, "SetBypass" }, { 40, "GetNumControls" },
    { 41, "IsControlAutomatable" }, { 42, "GetNumControlSteps" }, { 43, "GetValToStringProcPtr" },
    { 44, "GetControlName" }, { 45, "GetControlValue" }, { 46, "SetControlValue" }, { 47, "SetViewPort" },
    { 48, "SetViewOrigin" }, { 49, "SendRampRegion" }, { 50, "SetMute" }, { 51, "GetBypass" },
    { 52, "GetMute" }, { 53, "GetNumMeters" }, { 54, "GetMeterVal" }, { 55, "GetMeterName" },
    { 56, "GetIOModes" }, { 57, "SetIOMode" }, { 58, "GetCurrentIOMode" }, { 59, "GetPortOnHardwareIndex" },
    { 62, "GetNumChunks" }, { 63, "GetIndexedChunkID" }, { 64, "DescribeChunk" }, { 65, "GetChunkSize" },
    { 66, "GetChunk" }, { 67, "SetChunk" }, { 68, "GetRelatedProcessType" }, { 69, "BoundAutoSegment" },
    { 70, "DisableAutomation" }, { 71, "SetControlOverride" }, { 72, "Prime" }, { 73, "GetAutoEventList" },
    { 74, "GetAutoEventTag" }, { 75, "GetAutoType" }, { 76, "ReserveResources" },
    { 77, "ReleaseResources" }, { 78, "NumReservedResources" }, { 79, "IsIOProcessType" },
    { 80, "GetDelaySamples" }, { 81, "SetControlRelative" }, { 82, "GetControlPriority" },
    { 83, "GetProcessGroupNameID" }, { 84, "GetProcessTypeNameID" }, { 85, "GetProcessNameID" },
    { 86, "GetControlNameID" }, { 87, "ChooseControl" }, { 88, "GetControlType" },
    { 89, "GetControlOrientation" }, { 90, "MapControlValToString" }, { 91, "EnablePlugInType" },
    { 92, "GetPlugInType" }, { 93, "Gestalt" }, { 94, "GetConnectionFormat" },
    { 95, "SetConnectionFormat" }, { 96, "GetNumParamFormats" }, { 97, "GetIndexParamFormat" },
    { 98, "GetControlUnitsString" }, { 99, "UpdateControlValue" }, { 100, "UpdateControlRelative" },
    { 101, "InitOutputBounds" }, { 102, "SetOutputBounds" }, { 103, "TranslateOutputSampleNum" },
    { 104, "AnalyzeData" }, { 105, "ProcessData" }, { 108, "GetPlugInString" },
    { 109, "GetControlDefaultValue" }, { 110, "GetNumChanges" }, { 111, "SetTimeCodeInfo" },
    { 112, "GetNumAutoStates" }, { 113, "GetAutoState" }, { 114, "SetAutoState" },
    { 115, "GetNumAutoTriggers" }, { 116, "GetAutoTrigger" }, { 117, "SetAutoTrigger" },
    { 118, "GetTriggerOffset" }, { 119, "SetTriggerOffset" }, { 120, "GetNumControlPages" },
    { 121, "GetControlForPage" }, { 122, "SetLocationTempo" }, { 123, "SetSourceRegionList" },
    { 124, "SetDestRegionList" }, { 125, "SetDitherBits" }, { 126, "GetControlHighliteInfo" },
    { 127, "SetControlHighliteInfo" }, { 128, "CompareActiveChunk" }, { 129, "HasCustomizedPageTable" },
    { 130, "SetPreviewState" }, { 131, "GetControlNameOfLength" }, { 132, "GetMasterBypassControl" },
    { 133, "GetFirstPageForCategory" }, { 134, "GetIsBypassableByCategory" },
    { 135, "GetBypassControlByCategory" }, { 136, "GetDSPCoreTypeList" }, { 137, "GetStemFormats" },
    { 138, "GetRelatedProcessTypeOfType" }, { 139, "SetParentPlugInSpec" }, { 140, "GetParentPlugInSpec" },
    { 141, "GetInputPortForChildPort" }, { 142, "GetOutputPortForChildPort" },
    { 143, "SetUseDoublePrecisionIO" }, { 144, "ReleaseMIDI" }, { 145, "GetDelaySamplesLong" },
    { 146, "GetMeterOrientation" }, { 147, "GetNumMetersOfType" }, { 148, "GetMeterIndexByType" },
    { 149, "GetClipState" }, { 150, "ClearClipState" }, { 151, "SetInputDelaySamples" },
    { 152, "GetInputDelaySamples" }, { 153, "GetMaxDelaySamples" }, { 154, "SetInputMonitorDelaySamples" },
    { 155, "GetInputMonitorDelaySamples" }, { 156, "GetControlValueInfo" }, { 157, "UseInputMonitorDelay" },
    { 158, "GetNumAuxOutputStems" }, { 159, "GetAuxOutputStemInfo" }, { 160, "DrawDragAndDropHilight" },
    { 161, "BeginDragData" }, { 162, "RegisterDragData" }, { 163, "CompleteDragData" }, { 164, "DropData" },
    { 165, "DoCustomPlugInSettingsFile" }, { 166, "GetXMLPageTableForType" },
    { 167, "GetXMLPageTableSizeForType" }, { 168, "SpecifyFindAndRelinkCallback" },
    { 169, "ReturnFindAndRelinkFiles" }, { 170, "SetFilePathsForSessionCopy" },
    { 171, "SpecifyLoadPlugInSettingsFileCallback" }, { 172, "GetIACFUnknown" },
    { 173, "ResetPlugInState" },
};
// clang-format on

#define NUMBER_ROW(selector, Name, ...)         NumberRow { selector, #Name },
#define FIXED_NAME(selector, Name, ...)         #Name,
#define ANSWER_ROW(selector, Name, answer, ...) { #Name, answer },

constexpr NumberRow tableRows[] = { FIC_ROUTINES (NUMBER_ROW, NUMBER_ROW, NUMBER_ROW, NUMBER_ROW) };
const std::set<std::string_view> fixedNames { FIC_ROUTINES (FIC_SKIP, FIC_SKIP, FIC_SKIP, FIXED_NAME) };
const std::map<std::string_view, std::int32_t> answers { FIC_ROUTINES (
    FIC_SKIP, FIC_SKIP, ANSWER_ROW, FIC_SKIP) };

#undef NUMBER_ROW
#undef FIXED_NAME
#undef ANSWER_ROW

TEST (RoutineNumbers, AreTheOnesThatHostsCall)
{
    ASSERT_EQ (std::size (tableRows), std::size (promisedRows));

    for (std::size_t i = 0; i < std::size (promisedRows); ++i)
    {
        EXPECT_EQ (tableRows[i].selector, promisedRows[i].selector) << promisedRows[i].name;
        EXPECT_EQ (tableRows[i].name, promisedRows[i].name) << promisedRows[i].selector;
    }
}

TEST (RoutineNumbers, OfFixedAnswers)
{
    // clang-format off
    const std::set<std::string_view> expected {
        "GetControlUnitsString", "ReserveResources", "ReleaseResources", "NumReservedResources",
        "GetProcessGroupNameID", "GetIOModes", "SetIOMode", "GetCurrentIOMode", "GetProcessTypeNameID",
        "GetValToStringProcPtr", "GetNumAutoStates", "GetAutoState", "SetAutoState", "GetNumAutoTriggers",
        "GetAutoTrigger", "SetAutoTrigger", "GetTriggerOffset", "SetTriggerOffset",
    };
    // clang-format on
    EXPECT_EQ (fixedNames, expected);
}

TEST (RoutineNumbers, OfAnswersThatAreNotZero)
{
    const std::map<std::string_view, std::int32_t> expected {
        { "GetIndexedChunkID", ficChunkNotHandled },      { "DescribeChunk", ficChunkNotHandled },
        { "GetChunkSize", ficChunkNotHandled },           { "GetChunk", ficChunkNotHandled },
        { "GetControlValueInfo", ficNoControlValueInfo },
    };

    for (const auto& [name, answer] : answers)
        EXPECT_EQ (answer, expected.contains (name) ? expected.at (name) : 0) << name;
}
} // namespace
