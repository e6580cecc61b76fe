// SPDX-License-Identifier: MIT
// The ways of the content editor's image out and in: all lead through the EEPROM programmer's window.
#include "eeprom/ecet.h"
#include "eeprom/eeprom.h"
#include "eeprom/image.h"

namespace zor {

namespace {

constexpr int bytesPerLine = 32;

Eeprom& programmer(Bench& bench) {
    return dynamic_cast<Eeprom&>(bench.tools.create(Tool::eeprom));
}

/// Keeps the programmer's window out of sight; one that was in sight comes back, whatever happens.
class OutOfSight {
  public:
    explicit OutOfSight(Form& window)
        : form(window)
        , wasInSight(window.isOpen()) {
        form.hide();
    }
    OutOfSight(const OutOfSight&) = delete;
    OutOfSight& operator=(const OutOfSight&) = delete;
    ~OutOfSight() {
        if (wasInSight) {
            form.show();
        }
    }

  private:
    Form& form;
    bool wasInSight;
};

} // namespace

void ECET::showImageInProgrammer() {
    if (bench.windows.EEPROMon) {
        programmer(bench).takeImage(FormatEEPROMText(TB_EEPROMContent.text(), bytesPerLine));
    }
}

void ECET::PB_Call_Click() {
    std::string image = TB_EEPROMContent.text();
    if (image.empty()) {
        return;
    }
    Eeprom& window = programmer(bench);
    window.takeImage(FormatEEPROMText(image, bytesPerLine));
    window.enableForImage();
    window.Label2.setVisible(true);
    window.Label3.setVisible(true);
    window.Label3.setCaption(byteCountText(image.size()) + " byte(s)");
    window.show();
}

void ECET::PB_Save_Click() {
    std::string image = TB_EEPROMContent.text();
    if (image.empty()) {
        return;
    }
    Eeprom& window = programmer(bench);
    OutOfSight hidden(window);
    window.takeImage(FormatEEPROMText(image, bytesPerLine));
    window.saveFile();
}

void ECET::PB_Load_Click() {
    Eeprom& window = programmer(bench);
    OutOfSight hidden(window);
    if (!window.loadFile()) {
        return;
    }
    std::string image = imageDigitsOf(window.WorkSheet.text()).substr(0, imageDigits);
    std::vector<std::string> routines = routinesOf(image);
    for (std::size_t event = 0; event < routines.size(); ++event) {
        tab(static_cast<int>(event)).putRoutine(std::move(routines[event]));
    }
    TB_EEPROMContent.setText(std::move(image));
}

} // namespace zor
