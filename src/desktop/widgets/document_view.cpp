// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QPixmap>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

#include <algorithm>

namespace zor {

namespace {

/// Rendered Markdown. Pictures are no wider than the text; links are told, not followed.
class DocumentBrowser : public QTextBrowser {
  public:
    DocumentBrowser() {
        setOpenLinks(false);
        // A bar that came and went with the text would change the width in the midst of the rendering.
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    }

    void show(const QString& markdown, const QString& pictureFolder) {
        folder = pictureFolder;
        text = markdown;
        render();
        verticalScrollBar()->setValue(0);
    }

    void showHeading(const QString& heading) {
        if (heading.isEmpty()) {
            moveCursor(QTextCursor::Start);
            verticalScrollBar()->setValue(0);
            return;
        }
        for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
            if (block.blockFormat().headingLevel() > 0 && block.text() == heading) {
                setTextCursor(QTextCursor(block));
                double top = document()->documentLayout()->blockBoundingRect(block).top();
                verticalScrollBar()->setValue(static_cast<int>(top));
                return;
            }
        }
    }

    /// From the cursor to that end of the text; backwards from a fresh text's end.
    bool seek(const QString& sought, Document::Direction direction) {
        bool back = direction == Document::Direction::Backward;
        QTextCursor kept = textCursor();
        if (back && kept.atStart() && !kept.hasSelection()) {
            moveCursor(QTextCursor::End);
        }
        if (find(sought, back ? QTextDocument::FindBackward : QTextDocument::FindFlags())) {
            return true;
        }
        setTextCursor(kept);
        return false;
    }

  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::ImageResource) {
            return {};
        }
        QPixmap picture(QDir(folder).filePath(name.toString()));
        int room = std::max(200, viewport()->width() - 40);
        return picture.width() > room ? picture.scaledToWidth(room, Qt::SmoothTransformation) : picture;
    }

    void resizeEvent(QResizeEvent* event) override {
        QTextBrowser::resizeEvent(event);
        if (event->oldSize().width() != event->size().width() && !text.isEmpty() && !rendering) {
            // The pictures take the new width; the place in the text stays.
            int place = cursorForPosition(QPoint(2, 2)).position();
            render();
            QTextCursor cursor(document());
            cursor.setPosition(std::min(place, document()->characterCount() - 1));
            double top = document()->documentLayout()->blockBoundingRect(cursor.block()).top();
            verticalScrollBar()->setValue(static_cast<int>(top));
        }
    }

  private:
    void render() {
        rendering = true;
        document()->setMarkdown(text, QTextDocument::MarkdownDialectGitHub);
        rendering = false;
    }

    QString folder;
    QString text;
    bool rendering = false;
};

} // namespace

QWidget* documentView(Document& element, int columns, int lines) {
    auto* browser = new DocumentBrowser;
    QFontMetrics metrics = browser->fontMetrics();
    browser->setMinimumSize(metrics.averageCharWidth() * columns, metrics.lineSpacing() * lines);
    auto* binding = new Binding(element, *browser);
    QObject::connect(browser, &QTextBrowser::anchorClicked, binding, [binding](const QUrl& link) {
        binding->gesture([&] { binding->element()->chooseText(fromQt(link.toString())); });
    });
    element.seeker = [browser = QPointer<DocumentBrowser>(browser)](const std::string& text,
                                                                    Document::Direction direction) {
        return browser && browser->seek(toQt(text), direction);
    };
    binding->follow(element.headingAsked, [binding, browser] {
        browser->showHeading(toQt(elementOf<Document>(*binding)->heading()));
    });
    auto shown = std::make_shared<std::string>();
    binding->onDraw([binding, browser, shown] {
        const auto& held = *elementOf<Document>(*binding);
        if (*shown != held.source()) {
            *shown = held.source();
            browser->show(toQt(held.source()), toQt(held.folder().string()));
        }
    });
    return browser;
}

} // namespace zor
