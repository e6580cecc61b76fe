// SPDX-License-Identifier: MIT
#pragma once

#include "compare/open_panel.h"
#include "compare/panel_setter.h"
#include "compare/panel_state.h"
#include "elements/button.h"
#include "elements/form.h"
#include "elements/grid.h"
#include "elements/label.h"
#include "elements/list_box.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zor {

class QuietPanel;

/// Puts two of these side by side for the open chip: its panel, what the chip was sent, a configuration file,
/// a C header. It shows only what differs, follows the panel while one types, and takes settings over to it.
/// It sends nothing.
class frm_Compare : public Form {
  public:
    explicit frm_Compare(Bench& ownBench);
    ~frm_Compare() override;

    Label L_Panel;
    Label LabelLeft;
    ListBox CB_Left;
    /// The file of that side.
    Label L_Left;
    Label LabelRight;
    ListBox CB_Right;
    Label L_Right;
    Grid GR_Differences;
    Label L_Count;
    Button PB_TakeLeft;
    Button PB_TakeAllLeft;
    Button PB_TakeRight;
    Button PB_TakeAllRight;
    Button PB_Save;
    /// How the last taking over ended.
    Label L_Result;

  protected:
    void unload() override;

  private:
    enum class What { Panel, Sent, File, Header };

    struct Side {
        ListBox& choice;
        Label& document;
        What what = What::Panel;
        std::string path;
        /// Of a header.
        WantedSettings wanted;
        /// A file's bytes, and the panel on which they are read.
        std::string bytes;
        std::unique_ptr<QuietPanel> reader;
        PanelState state;
    };

    void wire();
    void takePanel();
    void followPanel();
    void choose(Side& side);
    /// Asks for a file of the kind that the side is to show. @return false if nothing came of it
    bool readInto(Side& side, What what);
    bool readConfiguration(Side& side, const std::string& path);
    bool readHeader(Side& side, const std::string& path);
    [[nodiscard]] std::optional<std::string> chooseFile(What what);
    /// What tells the files' kinds apart.
    [[nodiscard]] std::string firstName(What what) const;
    /// Looks again once the action that changed something is over.
    void lookLater();
    void look();
    void read(Side& side);
    void show();
    void enableTaking();
    void take(const Side& side);
    void takeAll(const Side& side);
    void takeSetting(const Difference& row, const std::string& value);
    void set(const WantedSettings& wanted, const std::string& done);
    void PB_Save_Click();
    [[nodiscard]] std::string asText() const;
    [[nodiscard]] std::string nameOf(const Side& side) const;

    Bench& bench;
    Side left;
    Side right;
    std::vector<Difference> rows;
    OpenPanel target;
    std::vector<Subscription> following;
    Subscription sharing;
    std::shared_ptr<bool> lookDue = std::make_shared<bool>(false);
};

} // namespace zor
