// SPDX-License-Identifier: MIT
#pragma once

#include "elements/signal.h"
#include "elements/watched_dialogs.h"
#include "transcript/scene.h"

#include <deque>
#include <utility>

namespace zor::transcript {

/// The program on the bench as it stands: real time, whatever board is connected. As long as it lives it
/// answers boxes and file dialogs in the user's place.
class LiveScene : public Scene {
  public:
    /// @param ownFolder  names of files are meant in here
    LiveScene(MainWindow& program, WatchedDialogs& dialogs, std::filesystem::path ownFolder);
    ~LiveScene() override;

    [[nodiscard]] MainWindow& program() const override;
    [[nodiscard]] EventLoop& loop() override;
    [[nodiscard]] ScriptedDialogs& dialogs() override { return answering; }
    [[nodiscard]] std::filesystem::path folder() const override { return ownFolder; }
    void letPass(EventLoop::Duration time) override;
    bool waitFor(const std::function<bool()>& condition, EventLoop::Duration time) override;
    [[nodiscard]] std::vector<std::string> sentLines(std::optional<int> port) const override;
    void forgetSent(std::optional<int> port) override;
    [[nodiscard]] std::string lineFormat() const override;

    /// Every wait of a statement's own ends, and what waits for its time is not carried out any more.
    void stop();
    [[nodiscard]] bool stopped() const { return isStopped; }

    /// Whether it answers; else the user does.
    void setAnswering(bool answers);

  protected:
    [[nodiscard]] bool lingerEnds() const override { return isStopped; }

  private:
    MainWindow& main;
    WatchedDialogs& watched;
    Dialogs* before;
    std::filesystem::path ownFolder;
    ScriptedDialogs answering;
    std::deque<std::pair<int, std::string>> lines;
    bool isStopped = false;
    Subscription exchanges;
};

} // namespace zor::transcript
