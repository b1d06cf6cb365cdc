// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The whole face of the plug-in: the one panel that carries every control.

#pragma once

#include "BrushedGround.h"
#include "CrzLayoutManager.h"
#include "InfoLine.h"
#include "ManagePresetsComponent.h"
#include "engine/CrzStereoVuVisuals.h"
#include "engine/ParameterTable.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <bitset>
#include <memory>

class CrzParameter;
class CrzParameterManager;
class CrzPresetNameLabel;
class CrzQ7StereoVuMeterComponent;
class CrzRotarySlider;
class InfoComponent;
class PopupCallbackReceiver;
class StereoComponent;
class WideLoomAudioProcessor;
class WideLoomAudioProcessorEditor;
enum class ShownWhen;

/** Fills the editor's window. It writes parameters through the processor and learns of every change, its own
    included, by polling the parameter table's flags, so automation, presets and undo take the same road.
    All values are normalised, 0..1. Each control carries its field's name as its component ID. [message] */
class MainEditorComponent : public juce::Component,
                            public juce::Slider::Listener,
                            public juce::Button::Listener,
                            public juce::Label::Listener,
                            public juce::Timer,
                            public ManagePresetsComponent::Owner
{
public:
    /** Neither is owned; both must outlive the panel. Without an editor there is no layout manager, and the
        buttons that it would place have no bounds. */
    MainEditorComponent (WideLoomAudioProcessor* processor, WideLoomAudioProcessorEditor* editor);

    /** Ends the gestures of knobs that are being dragged at this moment. */
    ~MainEditorComponent() override;

    //==================================================================================================
    // What the window calls

    void setInputVuMeterVisuals (CrzStereoVuVisuals reading);
    void setOutputVuMeterVisuals (CrzStereoVuVisuals reading);

    /** While the corner is dragged the panel shows only its bars, and the window's ground shows through. */
    void resizingStarted();
    void resizingStopped();

    //==================================================================================================
    // What the settings menu, the info screen and the preset saving panel call

    /** Gives the window the default height. */
    void resizeToDefault();

    void showInfoComponent();
    void hideInfoComponent();

    void showManagePresetsComponent();
    void saveUserPreset() override;
    void cancelUserPresetSaving() override;

    void loadFactoryPresetWithID (int index);
    void loadUserPresetWithID (int index);
    void revealUserPresetsFolder() const;

    void useDarkClassicColourScheme();
    void useBrightEyesColourScheme();

    void createAndShowSettingsPopupMenu();
    void setSettingsPopupMenuIsActive (bool isActive);

    /** Enables the two arrows; the info screen's buttons follow. */
    void setUndoButtons (bool canUndo, bool canRedo);
    void updateUndoButtons();

    /** An important text stands 3 seconds against all others, a plain one 6 seconds after the last change. */
    void setNewInfoText (const juce::String& text, bool important);

    //==================================================================================================
    // Bringing the panel in line with the processor

    /** After everything that replaces state at once. */
    void updateAll();
    void updateAllParameters();

    /** Shows `value` for the parameter at `index`, without telling anybody. Ignores an unknown index. */
    void setEditorParameterValue (int index, float value);

    /** One tick of the timer, `now` being the time: fetches what has changed, clears an old info text and
        closes a menu that the mouse has left. */
    void poll (juce::Time now);

    /** What the mouse does, with the component that is under it, which may be null. */
    void componentHovered (juce::Component* component);
    void componentPressed (juce::Component* component);

    /** Whether a component, which may be null, belongs to an open menu. */
    static bool belongsToMenu (const juce::Component* component);

    /** Shows the panel as for a channel layout that can, or cannot, be processed, until updateAll() asks the
        processor again. */
    void setStereoConfig (bool canBeProcessed);

    //==================================================================================================
    // JUCE's callbacks

    void mouseMove (const juce::MouseEvent&) override;
    void mouseDown (const juce::MouseEvent&) override;
    void paint (juce::Graphics&) override;
    void resized() override;
    void sliderValueChanged (juce::Slider*) override;
    void sliderDragStarted (juce::Slider*) override;
    void sliderDragEnded (juce::Slider*) override;
    void buttonClicked (juce::Button*) override;
    void labelTextChanged (juce::Label*) override;
    void editorShown (juce::Label*, juce::TextEditor&) override;
    void timerCallback() override;

private:
    friend struct PanelTables; // names the fields below

    /** Everything outside of the controls that the picture depends on. */
    struct Picture
    {
        bool isStereoConfig, isResizing, isSavingPreset, bypassOn, muteAllOn, expertMode, monoOn, safeBassOn,
            hasChannelName;

        bool operator== (const Picture&) const = default;
    };

    // Building, in the calling order of the constructor: later ones lie above earlier ones.
    void initFonts();
    void initSvgElements();
    void addSettingsPopupButton();
    void addMainLabels();
    void addAllTextButtons();
    void addAllRadioButtons();
    void addLevelMeters();
    void addAllSliders();
    void addStereoComponent();
    void addAllDrawableButtons();
    void addManagePresetsComponent();
    void addInfoComponent();

    void addButton (juce::Button*, float x, float y, float width, float height, CrzLayoutManager::Align);
    std::unique_ptr<CrzRotarySlider> addRotarySlider (CrzParameter*,
                                                      juce::Slider::TextEntryBoxPosition,
                                                      const juce::String& tooltip);
    void addSliderLabel (juce::Label*);

    // From the controls to the processor.
    bool handleCommand (juce::Button*);
    bool handleSwitch (juce::Button*);
    bool handleChoice (juce::Button*);
    void applyExpertMode (bool isExpert);
    void toggleMuteMid();
    void toggleMuteSide();
    void presetNameTyped (const juce::String& text);
    void valueTyped (ParameterId, const juce::String& text);
    void endGesture (int parameterIndex);
    void endOpenGestures();

    // From the processor to the controls.
    void showContinuousValue (ParameterId, float value);
    void showChoice (ParameterId, float value);
    void showValueText (ParameterId, float value, juce::Label&);
    void setMonoState (bool isOn);
    void setNewStereoWidth (float value);
    void setNewStereoWidthLabelValue (float value);
    void setNewPan (float value);
    void setSafeBassState (bool isOn);
    void setBypassState (bool isOn);
    void setMuteAllState (bool isOn);
    void setMuteMidState (bool isOn);
    void setChannelName (const juce::String& name);
    void updatePresetNameFromPluginProcessor();
    void updateExpertModeFromPluginProcessor();
    void updateInfoTextLabel (const juce::MouseEvent&);
    void showInfoText();
    void watchSettingsPopupMenu (juce::Time now);
    bool componentUnderMouseIsOK() const;

    // What is visible.
    bool isShown (ShownWhen) const;
    void applyVisibility (juce::Component*, ShownWhen);
    void updateVisibilityOfAllComponents();
    void updatePhaseAlignSideSignalButton();
    void updateVisibilityOfExpertOptions();
    Picture currentPicture() const;
    void repaintIfPictureChanged();

    // The colour scheme.
    void setColourSchemeBrightness (float brightness);
    void changeButtonNormalColour (juce::Button*, juce::Colour);

    // Places.
    void setKnobTextBox (CrzRotarySlider&, bool isReadOnly);

    // The picture.
    float panelWidth() const noexcept;
    juce::Colour channelNameColour() const;
    void drawBackground (juce::Graphics&);
    void drawLabelBackground (
        juce::Graphics&, float x, float y, float width, float height, juce::Colour, bool gradient) const;
    void drawPluginBorder (juce::Graphics&) const;
    void drawThePresentsText (juce::Graphics&) const;
    void drawOtherCaptions (juce::Graphics&) const;
    void drawInputAndOutputSections (juce::Graphics&) const;
    void drawChannelNameBorderAndBg (juce::Graphics&) const;
    void drawQuorvexLogoAndText (juce::Graphics&) const;
    void drawDorianVellLogo (juce::Graphics&) const;
    void drawUpperBar (juce::Graphics&) const;
    void drawSections (juce::Graphics&) const;
    void drawWarning (juce::Graphics&) const;

    WideLoomAudioProcessor* processor;
    WideLoomAudioProcessorEditor* editor;
    CrzParameterManager* parameterManager = nullptr;
    CrzLayoutManager* layoutManager = nullptr;
    juce::String versionText;
    bool isStereoConfig = true;
    float panelHeight = 0.0f; ///< pixels
    int desktopHeight = 0;    ///< pixels of the main display's user area
    float panelScale = 0.0f;  ///< 2 * panelHeight / desktopHeight
    bool isResizing = false;
    juce::Colour lightGrey;
    float colourSchemeBrightness = 0.0f;
    juce::Time settingsPopupCheckTime; ///< when the mouse was last seen on the open menu
    bool bypassOn = false;
    bool muteAllOn = false;
    bool safeBassOn = false;
    float safeBassFreq = 0.0f; ///< kept while the knob shows 0
    bool monoOn = false;
    float stereoWidth = 0.0f; ///< kept while the knob shows 0
    juce::String stereoWidthTooltip;
    bool expertMode = false;
    bool muteMidOn = false;
    bool isSavingPreset = false;
    std::unique_ptr<juce::Font> mainFont, italicFont;
    std::unique_ptr<juce::Drawable> dorianVellLogo, undoImage, redoImage, dropDownImage, quorvexLogo,
        nextImage, prevImage;
    std::unique_ptr<juce::DrawableButton> nextButton, prevButton, undoButton, redoButton;
    std::unique_ptr<juce::Label> bottomInfoLabel;
    InfoLine infoLine;
    std::unique_ptr<juce::Label> titleLabel, stereoWidthLabel, panLabel;
    juce::TextButton muteAllButton, muteMidButton, muteSideButton, bypassButton, safeBassButton, swapLrButton,
        phaseFlipButton, monoButton, easyModeButton, expertModeButton, saveButton;
    std::unique_ptr<juce::DrawableButton> settingsPopupButton;
    juce::Component panLawGroup;
    juce::ToggleButton panLaw0Button, panLaw3Button, panLaw6Button;
    juce::Component panCurveGroup;
    juce::ToggleButton panCurveLinearButton, panCurveLogButton, panCurveSinCosButton;
    juce::Component msModeGroup;
    juce::ToggleButton fixMidLevelButton, bindMsLevelsButton;
    juce::Component panModeGroup;
    juce::ToggleButton dualPanButton, balanceButton;
    juce::ToggleButton alignPhaseButton;
    std::unique_ptr<CrzPresetNameLabel> presetNameLabel;
    std::unique_ptr<StereoComponent> stereoComponent;
    std::unique_ptr<CrzRotarySlider> stereoWidthSlider, panSlider, inputGainSlider, outputGainSlider,
        safeBassFreqSlider;
    std::unique_ptr<InfoComponent> infoComponent;
    std::unique_ptr<ManagePresetsComponent> managePresetsComponent;
    std::unique_ptr<juce::Label> channelNameLabel;
    bool hasChannelName = false;
    std::unique_ptr<CrzQ7StereoVuMeterComponent> inputVuMeter, outputVuMeter;
    bool settingsPopupMenuIsActive = false;

    /** The receiver of the menu that is open or was open last. The modal manager deletes it with its menu, so
        this is never dereferenced. */
    PopupCallbackReceiver* settingsPopupCallback = nullptr;

    BrushedGround brushedGround;
    Picture shownPicture {};
    std::bitset<numParameters> openGestures;
    bool presetNameIsStale = false; ///< a new name came while the user was typing one

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MainEditorComponent)
};
