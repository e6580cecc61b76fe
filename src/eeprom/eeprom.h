// SPDX-License-Identifier: MIT
#pragma once

#include "eeprom/image.h"
#include "elements/button.h"
#include "elements/cell_picture.h"
#include "elements/form.h"
#include "elements/history.h"
#include "elements/label.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "link/bench.h"
#include "link/exchange.h"
#include "link/port_owner.h"
#include "platform/event_loop.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace zor {

/// Reads, writes and verifies the serial EEPROM of a demonstration board, one exchange a tick. It holds one
/// image, as text that can be edited, and keeps it in ASCII-hex files.
///
/// A run owns the port; its step is what everybody sees as CommState:
///
///     Prog        askBeforePage <--busy, or a page written-- takeStatus --pages done--> programEnd
///                       |                                        ^                         |
///                       +----------------------------------------+             (verify asked for)
///                                                                                          v
///     Verify      askVerify <--> takeVerify;  past the last byte --> verifyEnd    <-- settleAsk <-->
///     settleTake Read        askRead   <--> takeRead;    past the last byte --> readEnd Update askStatus -->
///     showStatus --> updateEnd
///
///     StopButton, from any step --> stopped --> stopTold
///     a tick without the success prompt --> lost; a second one in a row ends the run
class Eeprom : public Form, public Undoable {
  public:
    explicit Eeprom(Bench& ownBench);
    ~Eeprom() override;

    Button loadeefile;
    Button SaveEEFile;
    Button Import;
    Button Export;
    Label Label5;
    /// The file's title.
    Label Label7;
    Label Label2;
    /// Its size in bytes.
    Label Label3;
    TickBox EditorWindow;
    /// The image: hexadecimal digits count, everything else is for the eye.
    TextField WorkSheet;
    /// The image beside what the device was found to hold, a cell a byte and a page a row.
    CellPicture MemoryPicture;
    /// Both bytes at the caret.
    Label MemoryCaret;
    Button Prog;
    Button Verify;
    Button Read;
    Button Command1;
    /// Programming goes on into the verification of what it wrote.
    TickBox VerifyAfterProgramming;
    Label Label1;
    TextField StatusMsg;
    Progress ProgressBar1;
    /// How far a run is, and how long it may still take.
    Label RunProgress;
    Button StopButton;

    // What can be undone: the image's text, and which file it came from.
    [[nodiscard]] Aspects keptAspects(const Element& element) const override;
    [[nodiscard]] bool isSetting(const Element& element) const override { return &element == &WorkSheet; }
    [[nodiscard]] KeptParts keptParts() override { return {keptPart(Filepreamble)}; }
    [[nodiscard]] std::string settingCaption(const Element&) const override { return "Text"; }
    [[nodiscard]] std::string actionName() override { return std::exchange(nameOfAction, {}); }
    [[nodiscard]] bool buttonsNameSteps() const override { return true; }

    /// loadeefile's action. @return whether a file was loaded; if not, the reason was told
    bool loadFile();
    /// SaveEEFile's action. @return whether a file was written
    bool saveFile();
    /// Puts an image there from elsewhere, with no file behind it.
    /// @param text  as WorkSheet shows it
    void takeImage(std::string text) { WorkSheet.setText(std::move(text)); }
    /// Enables what needs an image, or leaves that to the end of a run that has disabled it.
    void enableForImage();
    /// An operation has the port.
    [[nodiscard]] bool running() const { return claim.held(); }

  protected:
    void unload() override;

  private:
    enum Step : std::int32_t {
        askBeforePage = 1,
        takeStatus = 2,
        askStatus = 10,
        showStatus = 11,
        askVerify = 20,
        takeVerify = 21,
        askRead = 30,
        takeRead = 31,
        programEnd = 100,
        settleAsk = 110,
        settleTake = 111,
        verifyEnd = 200,
        readEnd = 300,
        lost = 1000,
        stopped = 2000,
        stopTold = 2001,
        updateEnd = 3000,
    };

    void Prog_Click();
    void Command1_Click();
    void StopButton_Click();
    void EditorWindow_Click();
    void StartEepromRead(Step step);

    // The run.
    [[nodiscard]] std::array<Button*, 6> runButtons();
    [[nodiscard]] bool takePort(Step first);
    void openForReading(Step step);
    void beginRun(int lowest, int highest);
    void freeButtons();
    void endRun();
    void breakOff();
    Exchange SendEepromCommand(const std::string& text);
    [[nodiscard]] bool sendInRun(const std::string& text);
    void ask(const char* command, Step next);
    [[nodiscard]] std::uint32_t status() const;
    void EEprog_timer_Timer();
    void promptMissing();
    void runStep(Step step);
    void statusForPage();
    bool WriteEepromPage();
    void readStep(Step take, const char* doing, const char* done, Step end);
    void takePage(Step next);
    void showUpdate();
    void settle();
    void endProgramming();
    void endReading();
    void fillFromDevice();
    void endVerify();
    void endStopped();
    void tellStopped();

    // Files.
    /// The chosen name with that extension; nothing if the user keeps the file that is there.
    [[nodiscard]] std::optional<std::string> saveName(const FileChoice& choice,
                                                      const std::string& extension) const;
    void takeFile(std::string text, const std::string& name);
    void showFile();
    void setFileTitle(const std::string& name);
    void importFile();
    void exportFile();

    // What stands beside: the picture of the memory, and how far a run is.
    void showMemory();
    void showCaret();
    [[nodiscard]] std::string memoryText(std::size_t byte) const;
    void caretToByte(std::size_t byte);
    void showRunProgress(std::size_t done, std::size_t all);
    void forgetDevice() { deviceDigits.clear(); }

    void wire();
    void keepLeastHeight();

    Bench& bench;
    Timer EEprog_timer;
    PortClaim claim;
    Subscription closing;
    Subscription resized;
    Subscription edited;
    Subscription caretMoved;

    std::string Filepreamble{customaryPreamble};
    /// What the action in hand does to the text; empty for most.
    std::string nameOfAction;
    /// The digits that are programmed, and that a verification compares.
    std::string EEprogData;
    /// The digits read from the device.
    std::string EEreadData;
    /// The next page, from 1.
    std::int32_t PageIndex = 1;
    std::int32_t PageCount = 0;
    int TailDigits = 0;
    /// Byte address and fields of the write in hand.
    std::int32_t PageAddress = 0;
    std::int32_t PageBytes = 0;
    /// The next byte to read; at the end of a verification its verdict, 1 equal, 2 not.
    std::int32_t ReadOffset = 0;
    std::int32_t StoppedStep = 0;

    /// The first sends of a run are not over.
    /// Set around the first sends of a run: ticks wait for their end, whichever way it comes.
    bool starting = false;
    Twips workSheetHeight;
    /// The digits that MemoryPicture shows, in lower case, as many bytes as the device has at most.
    std::string shownDigits;
    /// What the device was found to hold by the last read or verify; empty if nothing is known.
    std::string deviceDigits;
    EventLoop::Duration runBegan{0};
};

} // namespace zor
