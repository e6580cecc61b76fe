// SPDX-License-Identifier: MIT
#pragma once

#include "desk_of_test.h"
#include "elements/options.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QVBoxLayout>

#include <memory>
#include <utility>
#include <vector>

namespace zor {

/// A bound widget alone, in a window with a second place for the focus.
class WidgetOfTest : public testing::Test {
  protected:
    /// Shows a widget of the form under test, with a second place for the focus to go to.
    template <class Widget>
    Widget& show(QWidget* widget) {
        auto* layout = new QVBoxLayout(&host);
        layout->addWidget(widget);
        layout->addWidget(&elsewhere);
        form->show();
        host.show();
        host.activateWindow();
        widget->setFocus();
        QCoreApplication::processEvents();
        return dynamic_cast<Widget&>(*widget);
    }

    /// An element of the form under test; it goes with the form, after the widgets.
    template <class Kind, class... Arguments>
    Kind& add(Arguments&&... arguments) {
        auto element = std::make_shared<Kind>(*form, std::forward<Arguments>(arguments)...);
        Kind& added = *element;
        elements.push_back(std::move(element));
        return added;
    }

    DeskOfTest test;
    std::unique_ptr<Form> form = std::make_unique<Form>(test.desk, "Panel", "Panel");
    OptionGroup bands;
    std::vector<std::shared_ptr<Element>> elements;
    QWidget host;
    QLineEdit elsewhere;
};

} // namespace zor
