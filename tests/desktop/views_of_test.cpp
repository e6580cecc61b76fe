// SPDX-License-Identifier: MIT
#include "views_of_test.h"

#include "desktop/views/registry.h"
#include "desktop/widgets/binding.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QStackedLayout>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <algorithm>

#include <stdexcept>

namespace zor {

QString name(const Element& element) {
    return QString::fromStdString(element.name());
}

QStringList unseenElements(const Form& form, const QWidget& root) {
    QStringList unseen;
    for (const Element* element : form.elements()) {
        auto bindings = root.findChildren<Binding*>();
        bool seen = std::any_of(bindings.begin(), bindings.end(),
                                [&](const Binding* binding) { return binding->element() == element; });
        if (!seen) {
            unseen += name(*element);
        }
    }
    return unseen;
}

bool onPageThatIsDown(const QWidget& widget) {
    for (const QWidget* at = &widget; at->parentWidget() != nullptr; at = at->parentWidget()) {
        auto* pages = qobject_cast<QStackedLayout*>(at->parentWidget()->layout());
        if (pages != nullptr && pages->currentWidget() != at) {
            return true;
        }
    }
    return false;
}

QStringList wronglyHidden(const QWidget& root) {
    QStringList hidden;
    for (const Binding* binding : root.findChildren<Binding*>()) {
        const QWidget* widget = binding->widget();
        if (widget != nullptr && binding->element() != nullptr && binding->element()->shown() &&
            !onPageThatIsDown(*widget) && !widget->isVisibleTo(&root)) {
            hidden += name(*binding->element());
        }
    }
    return hidden;
}

QStringList clippedTexts(const QWidget& root) {
    QStringList clipped;
    auto check = [&clipped](const QWidget& widget, const QString& text, const QSize& needed) {
        bool fits = widget.width() >= needed.width() && widget.height() >= needed.height();
        if (widget.isVisible() && !text.isEmpty() && !fits) {
            clipped += text;
        }
    };
    for (const auto* label : root.findChildren<QLabel*>()) {
        QSize needed =
            label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
        check(*label, label->text(), needed);
    }
    for (const auto* button : root.findChildren<QAbstractButton*>()) {
        check(*button, button->text(), button->minimumSizeHint());
    }
    for (const auto* list : root.findChildren<QComboBox*>()) {
        QStyleOptionComboBox look;
        look.initFrom(list);
        QRect room =
            list->style()->subControlRect(QStyle::CC_ComboBox, &look, QStyle::SC_ComboBoxEditField, list);
        QSize needed(list->fontMetrics().horizontalAdvance(list->currentText()) + list->width() -
                         room.width(),
                     list->minimumSizeHint().height());
        check(*list, list->currentText(), needed);
    }
    for (const auto* field : root.findChildren<QLineEdit*>()) {
        int margins = field->width() - field->contentsRect().width();
        QSize needed(field->fontMetrics().horizontalAdvance(field->text()) + margins,
                     field->fontMetrics().height());
        check(*field, field->text(), needed);
    }
    return clipped;
}

QStringList labelTexts(const QWidget& root) {
    QStringList texts;
    for (const auto* label : root.findChildren<QLabel*>()) {
        texts += label->text();
    }
    return texts;
}

void openForm(Program& program, const std::string& formName, std::unique_ptr<Form>& own) {
    std::map<std::string, std::function<void()>> ways{
        {"Help_R1", [&] { own = std::make_unique<DataFilterHelp>(program.main.bench()); }},
        {"frm_Splash", [&] { own = std::make_unique<Splash>(program.main.bench()); }},
        {"frmAbout", [&] { program.main.menu.mnuHelpAbout.click(); }},
        {"Preferences", [&] { program.main.menu.mnuFilePreferences.click(); }},
        {"Products", [&] { program.main.menu.mnuHelpProducts.click(); }},
        {"frm_Play", [&] { program.main.menu.mnuFilePlay.click(); }},
        {"Terminal", [&] { program.main.menu.mnutoolsTerminal.click(); }},
        {"eeprom",
         [&] {
             program.main.menu.mnutoolsEEPROM.click();
             // The image and its picture are folded away at first.
             program.desk.find("eeprom")->find("EditorWindow")->click();
         }},
    };
    for (const ToolRow& row : toolRows()) {
        if (row.make != nullptr) {
            ways.emplace(row.form, [&program, &row] { program.main.bench().tools.open(row.tool); });
        }
    }
    for (const PanelRow& row : panelRows()) {
        ways[row.name] = [&program, &row] {
            (program.main.menu.*row.view).click();
            // The indicators are folded away at first.
            program.desk.find(row.name)->find("ShowStatus")->click();
        };
    }
    auto way = ways.find(formName);
    ASSERT_NE(way, ways.end()) << "the test does not know how to open " << formName;
    way->second();
    if (own) {
        own->show();
    }
}

OpenView::OpenView(const std::string& ownName)
    : formName(ownName) {
    program.start();
    openForm(program, formName, own);
}

Form& OpenView::form() const {
    Form* found = program.desk.find(formName);
    if (found == nullptr) {
        throw std::logic_error(formName + " did not open");
    }
    return *found;
}

FormWindow& OpenView::window() const {
    FormWindow* found = program.window.windowOf(form());
    if (found == nullptr) {
        throw std::logic_error(formName + " has no window");
    }
    return *found;
}

ChipPanel& startWithPanel(Program& program, const std::string& panelName) {
    program.start();
    std::unique_ptr<Form> ofTheProgram;
    openForm(program, panelName, ofTheProgram);
    return dynamic_cast<ChipPanel&>(*program.desk.find(panelName));
}

void startWithTwoTools(Program& program) {
    program.start();
    program.main.menu.mnutoolsTerminal.click();
    program.main.bench().tools.open(Tool::frm_PowerSupply);
    program.window.activateWindow();
    QCoreApplication::processEvents();
}

std::vector<std::string> everyForm() {
    std::vector<std::string> names;
    for (const auto& [formName, view] : allViews()) {
        names.push_back(formName);
    }
    return names;
}

void deleteWhatHasGone() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QAction* action(const Program& program, const QString& objectName) {
    for (auto* candidate : program.window.menuBar()->findChildren<QAction*>(objectName)) {
        return candidate;
    }
    return nullptr;
}

} // namespace zor
