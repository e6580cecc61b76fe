// SPDX-License-Identifier: MIT
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "elements/kept_text.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextCursor>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <utility>

namespace zor {

namespace {

using std::chrono::milliseconds;

/// What has come is shown at most so often, however many characters it is.
constexpr milliseconds showingInterval{30};
/// A line longer than this goes on in a new row of the view: laying out one endless line costs its whole
/// length for each character.
constexpr int longestRow = 1'000;

/// The newest text of a monitor. What it shows is bounded, and so is what waits to be shown.
class MonitorView : public QPlainTextEdit {
  public:
    MonitorView(Monitor& element, int columnCount, int lineCount)
        : columns(columnCount)
        , rows(lineCount) {
        setReadOnly(true);
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        setUndoRedoEnabled(false);
        setMaximumBlockCount(monitorLines);
        setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        setLineWrapMode(QPlainTextEdit::WidgetWidth);
        setWordWrapMode(QTextOption::WrapAnywhere);
        timer.setSingleShot(true);
        timer.setInterval(showingInterval);
        connect(&timer, &QTimer::timeout, this, [this] { showWaiting(); });

        binding = new Binding(element, *this);
        binding->followFocus();
        appended = element.appended.subscribe([this](std::string_view text) { take(text); });
        if (KeptText* kept = keptText()) {
            binding->follow(kept->remarked, [this] { takeRemark(); });
        }
        binding->onDraw([this] { showAnew(); });
    }

    [[nodiscard]] QSize sizeHint() const override {
        QFontMetrics metrics(font());
        return {metrics.horizontalAdvance(QLatin1Char('0')) * columns + 30,
                metrics.lineSpacing() * rows + 12};
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
            QPlainTextEdit::keyPressEvent(event);
            return;
        }
        int step = event->key() == Qt::Key_Up ? -1 : event->key() == Qt::Key_Down ? 1 : 0;
        if (KeptText* kept = keptText(); step != 0 && kept != nullptr && kept->onRecall) {
            binding->gesture([&] { kept->recall(step); });
            return;
        }
        char key = keyOf(*event);
        if (key == 0) {
            QPlainTextEdit::keyPressEvent(event);
            return;
        }
        binding->gesture([&] { binding->element()->press(key); });
    }

    void changeEvent(QEvent* event) override {
        QPlainTextEdit::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && binding != nullptr && keptText() != nullptr &&
            !keptText()->remarks().empty()) {
            seen = std::string::npos;
            showAnew();
        }
    }

  private:
    /// nullptr for a monitor of another kind, and once the form has gone.
    [[nodiscard]] KeptText* keptText() const { return dynamic_cast<KeptText*>(binding->element()); }

    static char keyOf(const QKeyEvent& event) {
        if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
            return '\r';
        }
        if (event.key() == Qt::Key_Backspace) {
            return '\b';
        }
        QChar typed = event.text().isEmpty() ? QChar() : event.text().front();
        return typed.isPrint() && typed.unicode() < 0x100 ? typed.toLatin1() : '\0';
    }

    void take(std::string_view text) {
        if (elementOf<Monitor>(*binding)->contents().size() != seen + text.size()) {
            // Whoever heard of it first has shortened the text already.
            showAnew();
            return;
        }
        seen += text.size();
        waiting += text;
        // Twice the bound is let through so that each batch, not each character, moves what is left.
        if (waiting.size() > 2 * std::size_t{monitorCharacters}) {
            keepNewest();
        }
        if (!timer.isActive()) {
            timer.start();
        }
    }

    void takeRemark() {
        remarks.push_back(keptText()->remarks().back());
        if (!timer.isActive()) {
            timer.start();
        }
    }

    void keepNewest() {
        if (waiting.size() > std::size_t{monitorCharacters}) {
            waiting.erase(0, waiting.size() - std::size_t{monitorCharacters});
        }
    }

    /// Needed after the text became shorter; while it only grows `take` has it all.
    void showAnew() {
        const std::string& all = elementOf<Monitor>(*binding)->contents();
        bool withoutRemarks = showsRemarks && (keptText() == nullptr || keptText()->remarks().empty());
        if (all.size() == seen && !withoutRemarks) {
            return;
        }
        seen = all.size();
        clear();
        showsRemarks = false;
        rowLength = 0;
        std::size_t newest = std::min(all.size(), std::size_t{monitorCharacters});
        waiting.assign(all, all.size() - newest, newest);
        remarks.clear();
        if (const KeptText* kept = keptText()) {
            const std::deque<KeptText::Remark>& said = kept->remarks();
            auto first = std::find_if(said.begin(), said.end(), [&](const KeptText::Remark& remark) {
                return remark.position >= all.size() - newest;
            });
            remarks.assign(first, said.end());
        }
        showWaiting();
    }

    void showWaiting() {
        timer.stop();
        keepNewest();
        bool replaces = waiting.size() >= std::size_t{monitorCharacters};
        QScrollBar& bar = *verticalScrollBar();
        bool atEnd = bar.value() >= bar.maximum() - 1;
        if (replaces && remarks.empty()) {
            setPlainText(screenText(waiting));
        } else {
            if (replaces) {
                clear();
            }
            insertWaiting();
            dropOldest();
        }
        waiting.clear();
        if (atEnd || replaces) {
            bar.setValue(bar.maximum());
        }
    }

    /// With the remarks, each at its place.
    void insertWaiting() {
        QTextCursor cursor(document());
        cursor.movePosition(QTextCursor::End);
        cursor.beginEditBlock();
        std::string_view rest = waiting;
        for (const KeptText::Remark& remark : std::exchange(remarks, {})) {
            std::size_t position = seen - rest.size();
            if (remark.position < position) {
                // What it stood in is not shown any more.
                continue;
            }
            std::size_t length = std::min(remark.position - position, rest.size());
            cursor.insertText(screenText(rest.substr(0, length)), QTextCharFormat());
            cursor.insertText(screenText(remark.text), remarkFormat());
            rest.remove_prefix(length);
            showsRemarks = true;
        }
        cursor.insertText(screenText(rest), QTextCharFormat());
        cursor.endEditBlock();
    }

    /// Told from the text by its slant too.
    [[nodiscard]] QTextCharFormat remarkFormat() const {
        QTextCharFormat format;
        format.setForeground(roles(palette()).softText);
        format.setFontItalic(true);
        return format;
    }

    void dropOldest() {
        int surplus = document()->characterCount() - monitorCharacters;
        if (surplus > 0) {
            QTextCursor cursor(document());
            // A quarter more, so that this is not done for each batch.
            cursor.setPosition(std::min(surplus + monitorCharacters / 4, document()->characterCount() - 1),
                               QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
        }
    }

    /// Line ends are the carriage return's line feed; other control characters show as their pictures.
    QString screenText(std::string_view bytes) {
        QString text;
        text.reserve(static_cast<qsizetype>(bytes.size()));
        for (char c : bytes) {
            auto code = static_cast<unsigned char>(c);
            if (c == '\r') {
                continue;
            }
            if (c == '\n' || rowLength >= longestRow) {
                text += QLatin1Char('\n');
                rowLength = 0;
            }
            if (c != '\n') {
                text += code < 0x20 && c != '\t' ? QChar(0x2400 + code) : QChar(code);
                ++rowLength;
            }
        }
        return text;
    }

    int columns;
    int rows;
    Binding* binding = nullptr;
    Subscription appended;
    std::string waiting;
    /// To be shown in or behind what waits.
    std::deque<KeptText::Remark> remarks;
    bool showsRemarks = false;
    std::size_t seen = 0;
    int rowLength = 0;
    QTimer timer;
};

} // namespace

QWidget* monitor(Monitor& element, int columns, int lines) {
    return new MonitorView(element, columns, lines);
}

} // namespace zor
