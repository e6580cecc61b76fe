// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/history.h"
#include "elements/label.h"
#include "elements/menu.h"
#include "elements/options.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "link/exchange.h"
#include "panels/common/code_list.h"
#include "panels/common/configuration_file.h"
#include "panels/common/control_word.h"
#include "panels/common/panel_traits.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zor {

class Forecast;

/// The engineer's view of one radio chip: settings in, control words out, status back. What all seven panels
/// share; a chip's own file adds its tables and its oddities.
///
/// Created by the panel registry, filled by load() before it is shown. Hiding keeps everything; closing
/// unloads it.
class ChipPanel : public Form, public Undoable {
    // Older than the options that join them.
    OptionGroup crystalGroup;
    OptionGroup bandGroup;

  public:
    ChipPanel(Bench& ownBench, const PanelTraits& ownTraits);
    ~ChipPanel() override;

    // The keys of its buttons, wherever the focus is.
    static constexpr const char* updateKey = "F5";
    static constexpr const char* readStatusKey = "F7";
    static constexpr const char* loadKey = "Ctrl+O";
    static constexpr const char* saveKey = "Ctrl+S";

    enum class AutoLoad { AsPreferred, Never };
    /// Sets and commits every default, loads a configuration if the preferences say so. Called once, before
    /// show().
    void load(AutoLoad autoLoad = AutoLoad::AsPreferred);
    /// Adapts the panel to the regional low-power variant; runs at each showing.
    virtual void SetFrameMode() {}
    /// Crystal frequency in Hz.
    [[nodiscard]] std::int32_t GetXtalFrequency() const;
    /// The centre frequency of a frequency parameter at the panel's crystal, in MHz.
    /// @param bandField  the band as the configuration word has it
    [[nodiscard]] std::string frequencyText(int parameter, int bandField) const;
    /// The band as the configuration word has it now.
    [[nodiscard]] std::int32_t bandField() const { return BandCode; }
    /// The time of a wake-up setting at the panel's crystal, with its unit.
    [[nodiscard]] std::string wakeUpText(const WakeUpSetting& setting) const;
    /// The registry took the panel off the screen: repeats of the status read end, the rest stays.
    void hidden();

    /// The bytes of a configuration file with the present settings.
    [[nodiscard]] std::string savedConfiguration();
    /// Puts a configuration file's settings in force and sends the supply that it names. Throws ToolError;
    /// what was read until then stays.
    void takeConfiguration(std::string bytes);
    /// Puts them in force alone: nothing is sent.
    void readConfiguration(std::string bytes);
    /// Loads a file as `Load...` does once its dialog has named it; what goes wrong is told in a box.
    void loadFile(const std::string& path);
    /// The file that the settings were loaded from or saved to last, and what they were then.
    struct UsedFile {
        std::string path;
        std::string content;
    };
    [[nodiscard]] const UsedFile& usedFile() const { return used; }
    void setUsedFile(UsedFile file);
    /// What the settings come to; there once the panel has been loaded.
    [[nodiscard]] Forecast& forecast() const { return *ownForecast; }

    // What of the panel can be undone.
    [[nodiscard]] Aspects keptAspects(const Element& element) const override;
    [[nodiscard]] bool isSetting(const Element& element) const override;
    [[nodiscard]] KeptParts keptParts() override;
    [[nodiscard]] std::string settingCaption(const Element& element) const override;
    [[nodiscard]] std::string actionName() override;
    void putElement(Element& element, const ElementState& state, Aspects aspects) override;
    void elementsPutBack(const std::vector<Element*>& elements) override;
    [[nodiscard]] Marks takeMarks() const override;
    void putMarks(const Marks& marks) override;

    /// The chip that the panel shows now ("KT1100B").
    [[nodiscard]] std::string chip() const { return title().substr(0, title().find(' ')); }

    // Commit actions, for others than the fields too.
    void FreqCenter_LostFocus();
    void LBD_LostFocus();
    void WKUPM_LostFocus();

    TextField Statusline;
    Label LabelUpdate;
    Label LabelCalibration;
    Button Update;
    Button CalibratePLL;
    Button ConfLoad;
    Button ConfSave;
    Button ReadStatus;
    Button ShowStatus;
    /// The words on the clipboard, a line each: what stands in the word, its name; or as an array in C.
    MenuEntry CopyWords;
    MenuEntry CopyArray;
    /// Opens the window that sets the panel from a header.
    MenuEntry SetFromHeader;
    Swatch OnColor;
    Swatch OffColor;
    Lamp IRQ;
    Button IRQpoll;

    Option StdCrystal;
    Option NonStdCrystal;
    TextField Crystalfreq;
    CodeList Cxtal;
    /// Only the bands that the chip has; `band` finds one.
    [[nodiscard]] Option* band(Band which) const;
    TextField FreqCenter;
    TextField FreqStep;
    TextField PowerSupply;
    Button PB_PowerSupply;

    ScaledList CLKout;
    CodeList Revision;
    TextField LBD;
    TextField LBDV;
    TextField WKUPM;
    TextField WKUPR;
    TextField WKUPTIME;
    /// The unit of WKUPTIME.
    Label Label8;
    /// Why the low battery detector's, the wake-up timer's settings are disabled.
    Label Label38;
    Label Label39;

    ControlWord Ctrlw;
    ControlWord Freqw;
    ControlWord LBDw;
    ControlWord Wkupw;

    /// Indicator of a status bit, from 1.
    [[nodiscard]] Lamp& status(int index) const { return *statusLamps[static_cast<std::size_t>(index - 1)]; }
    [[nodiscard]] int statusCount() const { return static_cast<int>(statusLamps.size()); }

    /// What a line that carries a word of this chip means; empty for any other line.
    [[nodiscard]] std::string meaningOfLine(std::string_view line) const;
    /// All control words in the order in which Update sends them; then those it does not send.
    [[nodiscard]] const std::vector<ControlWord*>& words() const { return allWords; }
    /// Opens the window that sets a word's settings from a value, for the word of that place.
    [[nodiscard]] MenuEntry& setFromWord(std::size_t place) const { return *setFromEntries[place]; }
    /// The word whose entry the user chose last; nullptr for none, or for the header's.
    [[nodiscard]] const ControlWord* wordToSet() const { return askedWord; }
    /// A status read has the chip, and with it some of the settings for a moment.
    [[nodiscard]] bool readingStatus() const { return chipSelected || statusRead.claim.held(); }
    [[nodiscard]] const PanelTraits& traits() const { return ownTraits; }
    /// The status area is folded out.
    [[nodiscard]] bool statusShown() const { return extent().height != ownTraits.foldedHeight; }
    /// Folds it out or in.
    void showStatusArea(bool shown);

  protected:
    // Steps that a chip fills in.

    /// Fills the chip's own lists and sets and commits its defaults.
    virtual void setDefaults() = 0;
    /// The words that depend on the crystal beyond the lists; runs at the end of the recompute chain.
    virtual void crystalChanged() {}
    /// The wake-up settings as the chip's fields have them; writes back what the commit made of them.
    virtual WakeUpSetting commitWakeUpFields();
    /// What else follows a wake-up commit.
    virtual void wakeUpCommitted() {}
    /// After each word of Update.
    virtual void wordSent(const ControlWord&) {}
    /// The steps of a calibration; the port is open.
    virtual void calibrate() = 0;
    /// The lines of the panel's configuration files behind the banner, in their order.
    [[nodiscard]] virtual ConfigurationLines configuration() = 0;
    /// All lines of a file have been read: the commits of the fields that were only filled, and the status
    /// line.
    virtual void configurationRead() = 0;
    /// A file may have brought what the panel's present form does not offer: sets that right. Runs behind
    /// each load, a broken one too.
    virtual void excludeForeignSettings() {}
    /// Around the transfers of a status read: before the first, and after the last.
    virtual void beforeStatusRead() {}
    virtual void afterStatusRead() {}
    /// A status read ended before its last transfer because the port was gone.
    virtual void statusReadCutShort() {}
    /// Shows a status byte.
    /// @param index  0 the first byte, 1 the second
    virtual void showStatusByte(int index, std::uint32_t byte);
    /// What closing sends before the panel is given up.
    virtual void sendFarewell() {}
    void unload() override;

    /// The words in Update's order; called once by a chip's constructor.
    void setWords(std::vector<ControlWord*> sentByUpdate, std::vector<ControlWord*> notSent = {});
    /// The lists that a new crystal rebuilds, in that order, CLKout included.
    void setScaledLists(std::vector<ScaledList*> lists) { scaledLists = std::move(lists); }
    /// Makes a list's or a tick's action rebuild a word.
    static void feed(CodeList& list, ControlWord& word);
    static void feed(TickBox& tick, ControlWord& word);

    /// The three crystal lines with which every configuration begins.
    [[nodiscard]] ConfigurationLines crystalLines();
    /// The lines of the band options, in their order.
    [[nodiscard]] ConfigurationLines bandLines();
    /// The line of the supply voltage that everybody shares.
    [[nodiscard]] ConfigurationLine supplyLine();
    void Crystalfreq_LostFocus();

    void clearNotice() { Statusline.setText(" "); }
    void notice(std::string text) { Statusline.setText(std::move(text)); }
    /// Tells in the status line and in a box that there is no port. @return true if there is one
    bool portReady(const char* boxText);
    Exchange sendLine(const char* line);
    Exchange sendWord(ControlWord& word);
    void reading();
    void recomputeChain();
    void bandChosen(Band which);
    /// Titles the panel as the chip or as its regional variant, which has Band315 alone and no revisions.
    void showVariant(const char* variantTitle);
    /// Shows another value of a word than the settings say, and sends it.
    void sendStep(ControlWord& word, std::uint32_t value);
    /// Paints a status byte's bits: bit 0 at the given indicator, each higher bit one before it.
    void paintStatus(int lastIndicator, std::uint32_t byte);
    /// Enables what a tick governs, or shows the label that says why not.
    static void govern(bool on, const std::vector<Element*>& governed, Label& reason);
    // Fields of the words that several chips hold, at their places.
    [[nodiscard]] BitField bandBits(int lowBit = 11);
    [[nodiscard]] BitField capacitanceBits(int lowBit = 4);
    /// The low battery threshold, down to bit 0.
    [[nodiscard]] BitField thresholdBits(int highBit);
    /// M of the wake-up timer, whose bits stand in two words on some chips, and R.
    [[nodiscard]] WordSetting wakeUpMantissa();
    [[nodiscard]] WordSetting wakeUpExponent();
    [[nodiscard]] FrequencyScale frequencyScale() const;
    /// Caption of the chosen band.
    [[nodiscard]] std::string bandCaption() const;

    Bench& bench;
    float CrystalRatio = 1.0F;
    std::int32_t BandMultiplier = 1;
    std::int32_t BandBase = 31;
    std::int32_t BandCode = 0;
    float FreqCode = 2000;
    WakeUpSetting wakeUp;
    std::int32_t lowBattery = 0;

  private:
    enum Step : std::int32_t { begin = 1, firstByte = 2, secondByte = 3, finish = 100 };

    void wireCommon();
    void setTips();
    [[nodiscard]] std::string wordLines() const;
    [[nodiscard]] std::string wordArray() const;
    /// From now on a committed field whose text is only in part a number says so at the foot.
    void tellReadings();
    void makeBands();
    void makeStatus();
    void Update_Click();
    void CalibratePLL_Click();
    void ConfLoad_Click();
    void ConfSave_Click();
    /// The name that a file dialog gave; nothing if it was cancelled.
    [[nodiscard]] std::optional<std::string> chooseFile(FileRequest::Mode mode);
    void sendLoadedSupply();
    void takeFile(const std::string& path);
    /// The title bar names the file, and says when the settings are not those in it.
    void showUsedFile();
    /// Looks again once the action that changed a setting is over.
    void watchSettings();
    void StdCrystal_Click();
    void NonStdCrystal_Click();
    void showFrequency();
    void showStep();
    void PowerSupply_LostFocus();
    void LBDV_LostFocus();
    void ShowStatus_Click();
    void ReadStatus_Click();
    void StartStatusRead();
    void IRQpoll_Click();
    [[nodiscard]] bool sequenceMayBegin();
    void Timer3_Timer();
    void Timer1_Timer();
    /// A sequence over several ticks: its timer, its right to the port, and the last value it asked for.
    struct Sequence {
        Timer timer;
        PortClaim claim;
        Exchange asked;
        void end();
    };
    void readStatusStep(Step step);
    /// A status read that ends with its panel must not leave the chip selected, nor its frequency control
    /// off.
    void releaseChip();
    /// What is left of an action ends with the panel; only its farewell goes out behind that.
    void dropIfClosed() const;
    void RepStatusReadTimer_Timer();
    void SRVisualTimer_Timer();

    const PanelTraits& ownTraits;
    std::vector<std::unique_ptr<Option>> bandOptions;
    std::vector<std::unique_ptr<Lamp>> statusLamps;
    std::vector<ControlWord*> updateWords;
    std::vector<ControlWord*> allWords;
    std::vector<ScaledList*> scaledLists;
    std::vector<Subscription> wordSubscriptions;
    UsedFile used;
    /// What the action in hand is called beside the settings that it changes; empty for most.
    std::string nameOfAction;
    /// How often the chip was calibrated, and in which band it was last.
    std::uint64_t calibrations = 0;
    std::int32_t calibratedBand = 0;
    std::vector<Subscription> settingSubscriptions;
    /// A look at the settings is due; lets it notice that the panel has gone.
    std::shared_ptr<bool> lookDue = std::make_shared<bool>(false);
    Subscription portClosing;
    /// What Crystalfreq showed before the user changed it.
    std::string crystalShown = "10";
    Sequence interruptSample;
    Sequence statusRead;
    /// From the selection of the chip for a status read to its end.
    bool chipSelected = false;
    /// The click that ended the repeats came in the midst of one; another read follows it.
    bool readOnceMore = false;
    bool sayingFarewell = false;
    std::vector<std::unique_ptr<MenuEntry>> setFromEntries;
    const ControlWord* askedWord = nullptr;
    Timer RepStatusReadTimer;
    Timer SRVisualTimer;
    std::unique_ptr<Forecast> ownForecast;
};

} // namespace zor
