// SPDX-License-Identifier: MIT
// One function a window. Each takes the form that its row in the registry names.
#pragma once

class QMainWindow;
class QWidget;

namespace zor {

class Form;
class MainWindow;
class ReceivedPackets;
struct Docking;

/// The three bars of the main window.
void addMainBars(QMainWindow& window, MainWindow& main);

[[nodiscard]] QWidget* aboutView(Form& form);
[[nodiscard]] QWidget* amberView(Form& form);
[[nodiscard]] QWidget* berylLinkView(Form& form);
[[nodiscard]] QWidget* berylView(Form& form);
[[nodiscard]] QWidget* commandEditorView(Form& form);
[[nodiscard]] QWidget* contentEditorView(Form& form);
[[nodiscard]] QWidget* compareView(Form& form);
[[nodiscard]] QWidget* setFromView(Form& form);
[[nodiscard]] QWidget* coralView(Form& form);
[[nodiscard]] QWidget* topazView(Form& form);
[[nodiscard]] QWidget* carrierView(Form& form);
[[nodiscard]] QWidget* dataFilterHelpView(Form& form);
[[nodiscard]] QWidget* firmLoadView(Form& form);
[[nodiscard]] QWidget* eepromView(Form& form);
[[nodiscard]] QWidget* guideView(Form& form);
[[nodiscard]] QWidget* headerView(Form& form);
[[nodiscard]] QWidget* dataOutputView(Form& form);
[[nodiscard]] QWidget* jadeView(Form& form);
[[nodiscard]] QWidget* macSnifferView(Form& form);
[[nodiscard]] QWidget* onyxView(Form& form);
[[nodiscard]] QWidget* opalTestView(Form& form);
[[nodiscard]] QWidget* opalView(Form& form);
[[nodiscard]] QWidget* wireLogView(Form& form);
/// The wire log may stand at an edge of the main window.
extern const Docking wireLogDocking;
[[nodiscard]] QWidget* playView(Form& form);
[[nodiscard]] QWidget* powerSupplyView(Form& form);
[[nodiscard]] QWidget* preferencesView(Form& form);
[[nodiscard]] QWidget* productsView(Form& form);
[[nodiscard]] QWidget* receiverLinkView(Form& form);
[[nodiscard]] QWidget* registerToolView(Form& form);
[[nodiscard]] QWidget* addCommandView(Form& form);
[[nodiscard]] QWidget* splashView(Form& form);
[[nodiscard]] QWidget* testFunctionsView(Form& form);
[[nodiscard]] QWidget* terminalView(Form& form);
[[nodiscard]] QWidget* txSearchView(Form& form);

/// The table of received packets with its buttons, and the strip of their lengths with its figures: parts of
/// every window that receives.
[[nodiscard]] QWidget* receivedTable(ReceivedPackets& received, int rows);
[[nodiscard]] QWidget* receivedLengths(ReceivedPackets& received);

} // namespace zor
