// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/form.h"
#include "elements/label.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "link/bench.h"
#include "link/port_owner.h"
#include "platform/event_loop.h"
#include "utilities/download_image.h"

#include <memory>
#include <string>

namespace zor {

/// Downloads a firmware file into a board that runs the loader: line by line at 57600 baud, each line paced
/// by the XOFF and XON that the loader answers it with.
///
///     Send --line written--> AwaitXoff --XOFF--> AwaitXon --XON--> Send
///                               |                   |
///                               |  110 ms of silence, no line left, Stop
///                               v                   v
///                               +----> Finish <-----+   port back at 19200 baud
///
/// CommState is the step. Whatever else closes the port ends the run where it stands.
class FirmLoad : public Form {
  public:
    explicit FirmLoad(Bench& ownBench);
    ~FirmLoad() override;

    Button loadeefile;
    /// The loaded file: name, lines, bytes, and whether all of it will be sent.
    Label FileInfo;
    Frame Ser_Speed;
    OptionGroup speeds;
    Option SerSpd_192;
    Option SerSpd_384;
    Option SerSpd_576;
    Button Prog;
    Button StopButton;
    /// The number of the line that was sent last, then "Load end".
    TextField state;
    /// How much of the image is sent, in percent.
    Progress ProgressBar1;
    Label ProgressText;
    /// How the last download ended.
    Label Outcome;

  protected:
    void unload() override;

  private:
    enum class Step : std::int32_t { Send = 1, AwaitXoff = 2, AwaitXon = 3, Finish = 100 };
    enum class Ending { AllSent, Silent, Stopped, PortClosed };
    struct Speed;
    static const Speed speedTable[];

    void loadeefile_Click();
    void takeFile(const std::string& name);
    void Prog_Click();
    void StopButton_Click();
    void Timer1_Timer();
    void selectSpeed(const Speed& speed);

    /// Closes the port and opens it at another speed. @return whether it is open
    bool reopen(const char* format);
    void sendLine();
    void awaitFlow(char expected, void (*seen)(FirmLoad& run));
    void startNextLine();
    void end(Ending reason);
    void finish();
    void abandon();
    void setStep(Step step) { claim.setStep(static_cast<std::int32_t>(step)); }
    void showProgress();
    void showOutcome();

    Bench& bench;
    Timer Timer1;
    PortClaim claim;
    Subscription portClosed;
    /// Loaded for the next download; a running one keeps its own.
    std::shared_ptr<const DownloadImage> loaded;
    std::shared_ptr<const DownloadImage> image;
    LineCutter cutter;
    std::string Line;
    std::size_t LineCount = 0;
    std::size_t bytesSent = 0;
    /// Ticks without the awaited character.
    int WaitTicks = 0;
    int WaitLimit = 0;
    bool running = false;
    Ending ending = Ending::Stopped;
    EventLoop::Duration begun{0};
};

} // namespace zor
