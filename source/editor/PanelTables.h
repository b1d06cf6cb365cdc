// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Every control of the panel, once: its field, texts, place, group and the states in which it is shown.

#pragma once

#include "CrzLayoutManager.h"
#include "CrzPresetNameLabel.h"
#include "CrzQ7StereoVuMeterComponent.h"
#include "CrzRotarySlider.h"
#include "MainEditorComponent.h"
#include "StereoComponent.h"
#include "engine/ParameterTable.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <array>
#include <memory>

/** Window width through window height. */
inline constexpr float panelAspectRatio = 1.5f;

/** The states in which a control shows. Each kind but the last asks for a layout that can be processed. */
enum class ShownWhen
{
    notResizing,
    notSaving,    ///< and not resizing
    notBypassed,  ///< and not saving
    fullyOn,      ///< and nothing muted: neither bypass nor mute all, not saving, not resizing
    midIsMuted,   ///< fully on, and MUTE MID is on
    inExpertMode, ///< fully on, and the expert options are wanted
    always
};

/** Four fractions: of the panel's size, or of the parent group's, unless a row says otherwise. */
struct RelativeBounds
{
    float x, y, width, height;
};

/** The control that a member of the panel holds, by value or by pointer; null before it is made. */
template <typename Control, auto member>
Control* controlIn (MainEditorComponent& panel)
{
    auto& held = panel.*member;

    if constexpr (requires { held.get(); })
        return held.get();
    else
        return &held;
}

struct PanelTables
{
    using Panel = MainEditorComponent;

    template <auto member>
    static constexpr auto component = &controlIn<juce::Component, member>;
    template <auto member>
    static constexpr auto button = &controlIn<juce::Button, member>;
    template <auto member>
    static constexpr auto label = &controlIn<juce::Label, member>;

    /** Placed by the layout manager: x and y are fractions of the window, counted from the aligned edges;
       width and height are fractions of twice its height. */
    struct TextButtonRow
    {
        const char* id;
        juce::TextButton Panel::*button;
        const char* caption;
        const char* tooltip;
        RelativeBounds bounds;
        CrzLayoutManager::Align align;
        int radioGroup; ///< 0 for none
        ShownWhen shown;
    };

    /** Placed as the text buttons are. */
    struct ImageButtonRow
    {
        const char* id;
        std::unique_ptr<juce::DrawableButton> Panel::*button;
        const char* name;
        std::unique_ptr<juce::Drawable> Panel::*image;
        const char* tooltip;
        RelativeBounds bounds;
        CrzLayoutManager::Align align;
        ShownWhen shown;
    };

    struct GroupRow
    {
        const char* id;
        juce::Component Panel::*group;
        RelativeBounds bounds;
    };

    /** One choice of an expert group, and the parameter value that it stands for. */
    struct ToggleRow
    {
        const char* id;
        juce::ToggleButton Panel::*toggle;
        juce::Component Panel::*group;
        const char* caption;
        const char* tooltip;
        RelativeBounds bounds;
        int radioGroup;
        bool startsOn;
        ParameterId parameter;
        float value;
    };

    struct SliderRow
    {
        const char* id;
        std::unique_ptr<CrzRotarySlider> Panel::*slider;
        ParameterId parameter;
        const char* tooltip;
        RelativeBounds bounds;
        juce::Slider::TextEntryBoxPosition textBox;
        ShownWhen shown;
    };

    struct LabelRow
    {
        const char* id;
        juce::Label* (*label) (Panel&);
        const char* name;
        const char* text;
        const char* tooltip;
        int justification; ///< flags of juce::Justification
        bool editOnSingleClick, editOnDoubleClick, lossOfFocusDiscards;
        RelativeBounds bounds;
        ShownWhen shown;
    };

    struct DisplayRow
    {
        const char* id;
        juce::Component* (*component) (Panel&);
        RelativeBounds bounds;
        ShownWhen shown;
    };

    /** A button that mirrors a parameter which is on above 0.5, and what else follows when it changes. */
    struct SwitchRow
    {
        juce::Button* (*button) (Panel&);
        ParameterId parameter;
        void (Panel::*setState) (bool); ///< null for none
        bool isWrittenAlone;            ///< false where a click also decides about another parameter
    };

    static constexpr auto leftTop = CrzLayoutManager::alignLeft | CrzLayoutManager::alignTop;
    static constexpr auto leftBottom = CrzLayoutManager::alignLeft | CrzLayoutManager::alignBottom;
    static constexpr auto rightBottom = CrzLayoutManager::alignRight | CrzLayoutManager::alignBottom;

    static constexpr int modeRadioGroup = 99;

    // clang-format off

    // In the order of creation.
    static constexpr auto textButtons = std::to_array<TextButtonRow> ({
        { "muteAllButton", &Panel::muteAllButton, "MUTE ALL", "MUTE ALL: this mutes the input signal",
          { 0.02f, 0.16f, 0.09f, 0.035f }, leftBottom, 0, ShownWhen::notBypassed },
        { "bypassButton", &Panel::bypassButton, "BYPASS", "BYPASS: this bypasses the whole plugin",
          { 0.14f, 0.16f, 0.09f, 0.035f }, rightBottom, 0, ShownWhen::notSaving },
        { "safeBassButton", &Panel::safeBassButton, "SAFE BASS", "SAFE BASS: this activates the 'SAFE BASS' algorithm",
          { 0.72f, 0.19f, 0.09f, 0.035f }, leftTop, 0, ShownWhen::fullyOn },
        { "swapLrButton", &Panel::swapLrButton, "SWAP L-R", "SWAP L-R: this swaps LEFT and RIGHT channel of the input signal",
          { 0.16f, 0.19f, 0.09f, 0.035f }, leftTop, 0, ShownWhen::fullyOn },
        { "phaseFlipButton", &Panel::phaseFlipButton, "PHASE FLIP", "PHASE FLIP: this flips / inverts the phase of the input signal",
          { 0.16f, 0.325f, 0.09f, 0.035f }, leftTop, 0, ShownWhen::fullyOn },
        { "monoButton", &Panel::monoButton, "MONO", "MONO: this converts the input signal to mono, panning is still possible",
          { 0.16f, 0.46f, 0.09f, 0.035f }, leftTop, 0, ShownWhen::fullyOn },
        { "muteMidButton", &Panel::muteMidButton, "MUTE MID", "MUTE MID: this mutes only the MID signal of the output",
          { 0.72f, 0.64f, 0.09f, 0.035f }, leftTop, 0, ShownWhen::fullyOn },
        { "muteSideButton", &Panel::muteSideButton, "MUTE SIDE", "MUTE SIDE: this mutes only the SIDE signal of the output",
          { 0.72f, 0.74f, 0.09f, 0.035f }, leftTop, 0, ShownWhen::fullyOn },
        { "easyModeButton", &Panel::easyModeButton, "EASY MODE", "EASY MODE: this mode HIDES the expert options",
          { 0.16f, 0.64f, 0.09f, 0.035f }, leftTop, modeRadioGroup, ShownWhen::fullyOn },
        { "expertModeButton", &Panel::expertModeButton, "EXPERT MODE", "EXPERT MODE: this mode SHOWS the expert options",
          { 0.16f, 0.74f, 0.09f, 0.035f }, leftTop, modeRadioGroup, ShownWhen::fullyOn },
        { "saveButton", &Panel::saveButton, "SAVE", "SAVE: click to save as user preset",
          { 0.16f, 0.097f, 0.045f, 0.02275f }, leftTop, 0, ShownWhen::fullyOn },
    });

    // In the order of creation.
    static constexpr auto imageButtons = std::to_array<ImageButtonRow> ({
        { "undoButton", &Panel::undoButton, "UNDO", &Panel::undoImage, "UNDO: takes back the latest parameter change",
          { 0.645f, 0.017f, 0.028f, 0.028f }, leftTop, ShownWhen::notSaving },
        { "redoButton", &Panel::redoButton, "REDO", &Panel::redoImage, "REDO: takes back the latest UNDO command",
          { 0.685f, 0.017f, 0.028f, 0.028f }, leftTop, ShownWhen::notSaving },
        { "nextButton", &Panel::nextButton, "NEXT", &Panel::nextImage, "NEXT PRESET: loads the next preset",
          { 0.775f, 0.097f, 0.045f, 0.02275f }, leftTop, ShownWhen::fullyOn },
        { "prevButton", &Panel::prevButton, "PREV", &Panel::prevImage, "PREV PRESET: loads the previous preset",
          { 0.71f, 0.097f, 0.045f, 0.02275f }, leftTop, ShownWhen::fullyOn },
    });

    // The one image button that lies in fractions of the panel.
    static constexpr DisplayRow settingsPopupButton {
        "settingsPopupButton", component<&Panel::settingsPopupButton>,
        { 0.9526667f, 0.017f, 0.0373333f, 0.056f }, ShownWhen::notSaving
    };

    static constexpr auto groups = std::to_array<GroupRow> ({
        { "panLawGroup",   &Panel::panLawGroup,   { 0.568f, 0.585f, 0.132f, 0.15f } },
        { "panCurveGroup", &Panel::panCurveGroup, { 0.3f,   0.585f, 0.132f, 0.15f } },
        { "msModeGroup",   &Panel::msModeGroup,   { 0.3f,   0.76f,  0.132f, 0.15f } },
        { "panModeGroup",  &Panel::panModeGroup,  { 0.568f, 0.76f,  0.132f, 0.15f } },
    });

    static constexpr RelativeBounds firstOfThree  { 0.05f, 0.0625f,     0.92f, 0.25f };
    static constexpr RelativeBounds secondOfThree { 0.05f, 0.375f,      0.92f, 0.25f };
    static constexpr RelativeBounds thirdOfThree  { 0.05f, 0.6875f,     0.92f, 0.25f };
    static constexpr RelativeBounds firstOfTwo    { 0.05f, 0.16666667f, 0.92f, 0.25f };
    static constexpr RelativeBounds secondOfTwo   { 0.05f, 0.5833334f,  0.92f, 0.25f };

    // A parameter's rows stand together, by value.
    static constexpr auto toggles = std::to_array<ToggleRow> ({
        { "panLaw0Button", &Panel::panLaw0Button, &Panel::panLawGroup, "PAN LAW -0 dB",
          "PAN LAW -0dB: how much the mid signal is faded relative to hard left or right",
          firstOfThree, 1, true, ParameterId::panLaw, choice::first },
        { "panLaw3Button", &Panel::panLaw3Button, &Panel::panLawGroup, "-3 dB slope",
          "PAN LAW -3dB: how much the mid signal is faded relative to hard left or right",
          secondOfThree, 1, false, ParameterId::panLaw, choice::second },
        { "panLaw6Button", &Panel::panLaw6Button, &Panel::panLawGroup, "-6 dB slope",
          "PAN LAW -6dB: how much the mid signal is faded relative to hard left or right",
          thirdOfThree, 1, false, ParameterId::panLaw, choice::third },
        { "panCurveLinearButton", &Panel::panCurveLinearButton, &Panel::panCurveGroup, "linear",
          "PAN CURVE: 'LINEAR' scale, how the pan slider affects the panning",
          firstOfThree, 2, true, ParameterId::panCurve, choice::first },
        { "panCurveLogButton", &Panel::panCurveLogButton, &Panel::panCurveGroup, "logarithmic",
          "PAN CURVE: 'LOGARITHMIC' scale, how the pan slider affects the panning",
          secondOfThree, 2, false, ParameterId::panCurve, choice::second },
        { "panCurveSinCosButton", &Panel::panCurveSinCosButton, &Panel::panCurveGroup, "sin / cos",
          "PAN CURVE: 'SIN / COS' scale, how the pan slider affects the panning",
          thirdOfThree, 2, false, ParameterId::panCurve, choice::third },
        { "fixMidLevelButton", &Panel::fixMidLevelButton, &Panel::msModeGroup, "fix MID level",
          "STEREOMODE: 'FIX MID LEVEL'= MID level is fixed, only SIDE level gets affected",
          firstOfTwo, 3, true, ParameterId::msMode, choice::first },
        { "bindMsLevelsButton", &Panel::bindMsLevelsButton, &Panel::msModeGroup, "bind M/S levels",
          "STEREOMODE: 'BIND M/S LEVELS'= MID and SIDE levels get affected relatively",
          secondOfTwo, 3, false, ParameterId::msMode, choice::second },
        { "dualPanButton", &Panel::dualPanButton, &Panel::panModeGroup, "dual pan",
          "PAN MODE: 'DUAL PAN'= L and R channels get panned separately",
          firstOfTwo, 4, true, ParameterId::panMode, choice::first },
        { "balanceButton", &Panel::balanceButton, &Panel::panModeGroup, "balance",
          "PAN MODE: 'BALANCE'= L and R channels get adjusted in volume relatively",
          secondOfTwo, 4, false, ParameterId::panMode, choice::second },
    });

    static constexpr DisplayRow alignPhaseButton {
        "alignPhaseButton", component<&Panel::alignPhaseButton>,
        { 0.73f, 0.825f, 0.0966f, 0.0375f }, ShownWhen::midIsMuted
    };

    static constexpr auto sliders = std::to_array<SliderRow> ({
        { "inputGainSlider", &Panel::inputGainSlider, ParameterId::inputGain,
          "INPUT GAIN: this controls the level of the input signal",
          { 0.05f, 0.15f, 0.06f, 0.16f }, juce::Slider::TextBoxBelow, ShownWhen::notBypassed },
        { "outputGainSlider", &Panel::outputGainSlider, ParameterId::outputGain,
          "OUTPUT GAIN: this controls the level of the output signal",
          { 0.89f, 0.15f, 0.06f, 0.16f }, juce::Slider::TextBoxBelow, ShownWhen::fullyOn },
        { "safeBassFreqSlider", &Panel::safeBassFreqSlider, ParameterId::safeBassFreq,
          "SAFE BASS FREQUENCY: all frequencies below this gets MONO",
          { 0.75f, 0.37f, 0.06f, 0.16f }, juce::Slider::TextBoxBelow, ShownWhen::fullyOn },
        { "stereoWidthSlider", &Panel::stereoWidthSlider, ParameterId::stereoWidth,
          "STEREO WIDTH: =100% is normal, >100% is WIDER than normal stereo",
          { 0.445f, 0.76f, 0.11f, 0.18f }, juce::Slider::NoTextBox, ShownWhen::fullyOn },
        { "panSlider", &Panel::panSlider, ParameterId::pan,
          "PAN: this controls the stereo panorama or balance",
          { 0.47f, 0.615f, 0.06f, 0.16f }, juce::Slider::NoTextBox, ShownWhen::fullyOn },
    });

    // Where text and tooltip are null the version text takes their place.
    static constexpr auto labels = std::to_array<LabelRow> ({
        { "titleLabel", label<&Panel::titleLabel>, "Title Label", "WideLoom", nullptr,
          juce::Justification::centred, false, false, false,
          { 0.375f, 0.002f, 0.25f, 0.0856f }, ShownWhen::always },
        { "bottomInfoLabel", label<&Panel::bottomInfoLabel>, "Bottom Info Label", nullptr, "",
          juce::Justification::bottomLeft, false, false, false,
          { 0.016f, 0.923f, 0.7f, 0.06f }, ShownWhen::always },
        { "channelNameLabel", label<&Panel::channelNameLabel>, "Channel Name Label", "",
          "CHANNEL NAME: this can be used to set a name for this plugin channel",
          juce::Justification::centred, true, true, true,
          { 0.72816676f, 0.015f, 0.22f, 0.06f }, ShownWhen::notResizing },
        { "presetNameLabel", label<&Panel::presetNameLabel>, "Preset Name Label", "insert your preset name here",
          "PRESET NAME: this is the name of the current preset, double-click to edit",
          juce::Justification::centred, false, true, true,
          { 0.3f, 0.095f, 0.4f, 0.05f }, ShownWhen::fullyOn },
        { "stereoWidthLabel", label<&Panel::stereoWidthLabel>, "Stereo Width Label ", "",
          "STEREO WIDTH: Use slider below or double-click here to enter a value...",
          juce::Justification::left, false, true, true,
          { 0.32f, 0.218f, 0.075f, 0.065f }, ShownWhen::fullyOn },
        { "panLabel", label<&Panel::panLabel>, "Pan", "",
          "PAN: Use slider below or double-click here to enter a value...",
          juce::Justification::right, false, true, true,
          { 0.605f, 0.218f, 0.075f, 0.065f }, ShownWhen::fullyOn },
    });

    static constexpr auto displays = std::to_array<DisplayRow> ({
        { "stereoComponent", component<&Panel::stereoComponent>, { 0.3f,  0.16f, 0.4f,  0.4f }, ShownWhen::notResizing },
        { "inputVuMeter",    component<&Panel::inputVuMeter>,    { 0.02f, 0.32f, 0.12f, 0.5f }, ShownWhen::notResizing },
        { "outputVuMeter",   component<&Panel::outputVuMeter>,   { 0.86f, 0.32f, 0.12f, 0.5f }, ShownWhen::notResizing },
    });

    /** Where the preset saving panel lies; it has a rule of its own. */
    static constexpr RelativeBounds managePresetsBounds { 0.3f, 0.16f, 0.4f, 0.4f };

    static constexpr auto switches = std::to_array<SwitchRow> ({
        { button<&Panel::bypassButton>,     ParameterId::bypass,         &Panel::setBypassState,   true },
        { button<&Panel::muteAllButton>,    ParameterId::muteAll,        &Panel::setMuteAllState,  true },
        { button<&Panel::muteMidButton>,    ParameterId::muteMid,        &Panel::setMuteMidState,  false },
        { button<&Panel::muteSideButton>,   ParameterId::muteSide,       nullptr,                  false },
        { button<&Panel::alignPhaseButton>, ParameterId::phaseAlignSide, nullptr,                  true },
        { button<&Panel::swapLrButton>,     ParameterId::swapLR,         nullptr,                  true },
        { button<&Panel::phaseFlipButton>,  ParameterId::phaseFlip,      nullptr,                  true },
        { button<&Panel::monoButton>,       ParameterId::mono,           &Panel::setMonoState,     true },
        { button<&Panel::safeBassButton>,   ParameterId::safeBass,       &Panel::setSafeBassState, true },
    });

    // clang-format on
};
