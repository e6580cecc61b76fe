// SPDX-License-Identifier: MIT
// One binder an element kind: makes a widget that shows the element and forwards the user's gestures to it.
// The caller puts the widget into a layout, which owns it from then on.
#pragma once

#include "desktop/widgets/binding.h"
#include "elements/bit_cell.h"
#include "elements/button.h"
#include "elements/cell_picture.h"
#include "elements/coloured_log.h"
#include "elements/document.h"
#include "elements/grid.h"
#include "elements/label.h"
#include "elements/list_box.h"
#include "elements/menu.h"
#include "elements/monitor.h"
#include "elements/options.h"
#include "elements/plot.h"
#include "elements/range.h"
#include "elements/tab_strip.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "elements/timeline.h"

#include <QString>
#include <QWidget>

#include <deque>
#include <functional>
#include <initializer_list>
#include <vector>

class QMenuBar;
class QPushButton;

namespace zor {

class ControlWord;

/// A field for a number: right-aligned and as wide as what goes in.
/// Enter commits, Escape brings back the text that it had when it took the focus or was last committed. The
/// comma key types the decimal point; what is pasted stays as it is.
[[nodiscard]] QWidget* field(TextField& element, int columns = 8);
/// A field for words: left-aligned, and it takes what room there is from `columns` on.
[[nodiscard]] QWidget* textField(TextField& element, int columns = 16);
/// A field for text that is counted by characters: fixed-pitch and left-aligned.
[[nodiscard]] QWidget* codeField(TextField& element, int columns = 16);
/// Several lines of text. Enter makes a line.
[[nodiscard]] QWidget* textArea(TextField& element, int columns = 60, int lines = 8);
/// C text, fixed-pitch and not wrapped, its directives and comments in colours of their own.
[[nodiscard]] QWidget* sourceText(TextField& element, int columns = 80, int lines = 24);
/// A control word: fixed-pitch and centred. It is marked while `pending` says so; a change that does not
/// come from the element itself is made seen by Binding::redraw.
[[nodiscard]] QWidget* word(TextField& element, std::function<bool()> pending = {});
/// The same with the word's own mark of what was not sent yet.
[[nodiscard]] QWidget* word(ControlWord& element);
/// A text without a frame.
[[nodiscard]] QWidget* frameless(TextField& element);
/// A line of notices without a frame, at the bottom of a window; a notice is announced to who listens.
[[nodiscard]] QWidget* statusLine(TextField& element);

[[nodiscard]] QWidget* tick(TickBox& element);
/// A tick with another text beside it than its caption, which stands elsewhere.
[[nodiscard]] QWidget* tick(TickBox& element, const QString& face);
[[nodiscard]] QWidget* option(Option& element);
/// Options side by side.
template <class... Options>
[[nodiscard]] QWidget* options(Options&... elements);
[[nodiscard]] QWidget* optionRow(std::initializer_list<Option*> elements);
/// What the wheel does over a list; where it does not choose, what stands behind the list scrolls.
enum class WheelUse { ChoosesWithFocus, NeverChooses };
/// A list shows its own text also where that is no entry's.
/// @param columns  narrower entries still leave room for so many characters
[[nodiscard]] QWidget* list(ListBox& element, int columns = 4, WheelUse wheel = WheelUse::ChoosesWithFocus);

[[nodiscard]] QWidget* button(Button& element);
/// The same, no wider than its caption, for many in a row.
[[nodiscard]] QWidget* smallButton(Button& element);
/// The one strong button of a window.
[[nodiscard]] QWidget* strongButton(Button& element);
/// The same for one that is no element.
void makeStrong(QPushButton& push);

enum class Tone { Normal, Soft, Reminder, Error, Title };
/// A caption; one that acts on clicks takes them.
[[nodiscard]] QWidget* label(Button& element, Tone tone = Tone::Normal);
[[nodiscard]] QWidget* lamp(Lamp& element);
[[nodiscard]] QWidget* swatch(Swatch& element);
/// What a lit or a dark lamp looks like, and what it means; the swatch is the state's colour.
[[nodiscard]] QWidget* lampSample(Swatch& element, bool lit, const QString& meaning);
[[nodiscard]] QWidget* progress(Progress& element);

/// What a cell of that kind looks like, and what it means.
[[nodiscard]] QWidget* cellSample(CellPicture::Cell kind, const QString& meaning);
enum class CellShape {
    Tall, ///< number and digit in the cell, the name below it
    Flat, ///< the name in the cell
};
enum class CellUse { Clicked, Shown };
[[nodiscard]] QWidget* bitCell(BitCell& element, CellShape shape, CellUse use);
/// Cells side by side, the highest at the left.
[[nodiscard]] QWidget* bitRow(std::deque<BitCell>& cells, CellShape shape, CellUse use, std::size_t lowest,
                              std::size_t count);

[[nodiscard]] QWidget* slider(Slider& element);
/// Two small arrows.
[[nodiscard]] QWidget* upDown(UpDown& element);
/// A number field with its arrows at its right side.
[[nodiscard]] QWidget* spin(TextField& text, UpDown& arrows, int columns = 6);

/// Received text: fixed-pitch, its newest part only, so that a flood costs no more than it shows.
[[nodiscard]] QWidget* monitor(Monitor& element, int columns = 80, int lines = 20);
/// What a monitor's widget shows at most.
inline constexpr int monitorCharacters = 200'000;
inline constexpr int monitorLines = 5'000;

/// Values over an axis, with ticks at round numbers, as many as there is room for. Its menu copies it as a
/// picture or as values; hovering tells the nearest value.
[[nodiscard]] QWidget* plot(Plot& element, int columns = 80, int lines = 12);

/// Phases over time, painted.
[[nodiscard]] QWidget* timeline(Timeline& element);

/// A strip of tabs over its pages, all of the same size whatever page is up.
/// @param fill  how full a page is, 0 to 1, by its place from 0: shown by a thin bar under its title
[[nodiscard]] QWidget* tabs(TabStrip& element, const std::vector<QWidget*>& pages,
                            std::function<double(int page)> fill = {});

/// A table; it is `lines` rows high at first and takes what room there is.
[[nodiscard]] QWidget* gridView(Grid& element, int lines = 10);
/// The same under the grid's caption.
[[nodiscard]] QWidget* captionedGrid(Grid& element, int lines = 10);
/// A log of coloured lines.
[[nodiscard]] QWidget* logView(ColouredLog& element, int columns = 80, int lines = 6);

/// A text with headings, pictures and links, rendered.
[[nodiscard]] QWidget* documentView(Document& element, int columns = 70, int lines = 24);

/// A stretch of a text, by characters.
struct DigitStretch {
    std::size_t begin = 0;
    std::size_t count = 0;
};
/// A field of bytes or of their digits over several rows, so many characters in each. Every byte can be shown
/// and is kept.
/// @param marked  the stretch that is marked now; Binding::redraw looks again
[[nodiscard]] QWidget* byteArea(TextField& element, int columns, int rows,
                                std::function<DigitStretch()> marked = {});

/// Entries of a menu that opens over a widget by the right button or the menu key.
void addContextEntries(QWidget& widget, std::initializer_list<MenuEntry*> entries);
/// Fills a menu bar with the form's menus, or a menu with an entry's children.
void buildMenus(QMenuBar& bar, const Form& form);
/// A tool bar button with its drop-down list.
[[nodiscard]] QWidget* barButton(BarButton& element);

template <class... Options>
QWidget* options(Options&... elements) {
    return optionRow({&elements...});
}

} // namespace zor
