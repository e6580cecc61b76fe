// SPDX-License-Identifier: MIT
#include "plain_copy.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStandardItemModel>
#include <QTableView>

#include <memory>

namespace zor::benchmarks {

namespace {

template <class Kind>
QWidget* plainButton(const Kind& original) {
    auto* button = new Kind(original.text());
    button->setChecked(original.isChecked());
    return button;
}

QWidget* plainTable(const QTableView& original) {
    auto* copy = new QTableView;
    const QAbstractItemModel& model = *original.model();
    auto* items = new QStandardItemModel(model.rowCount(), model.columnCount(), copy);
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            items->setItem(row, column, new QStandardItem(model.data(model.index(row, column)).toString()));
        }
    }
    copy->setModel(items);
    return copy;
}

/// One widget without what stands in it.
QWidget* plainWidget(const QWidget& original) {
    if (const auto* label = qobject_cast<const QLabel*>(&original)) {
        return new QLabel(label->text());
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(&original)) {
        return new QLineEdit(line->text());
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&original)) {
        auto* copy = new QComboBox;
        for (int row = 0; row < box->count(); ++row) {
            copy->addItem(box->itemText(row));
        }
        return copy;
    }
    if (const auto* tick = qobject_cast<const QCheckBox*>(&original)) {
        return plainButton(*tick);
    }
    if (const auto* radio = qobject_cast<const QRadioButton*>(&original)) {
        return plainButton(*radio);
    }
    if (const auto* button = qobject_cast<const QPushButton*>(&original)) {
        return new QPushButton(button->text());
    }
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(&original)) {
        auto* copy = new QPlainTextEdit(text->toPlainText());
        copy->setReadOnly(text->isReadOnly());
        copy->setFont(text->font());
        return copy;
    }
    if (const auto* bar = qobject_cast<const QProgressBar*>(&original)) {
        auto* copy = new QProgressBar;
        copy->setValue(bar->value());
        return copy;
    }
    if (const auto* table = qobject_cast<const QTableView*>(&original)) {
        return plainTable(*table);
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&original)) {
        return new QGroupBox(group->title());
    }
    return new QWidget;
}

QLayout* plainLayout(QLayout& original);

void addItem(QLayout& copy, QLayoutItem& item, QLayout& from, int index) {
    auto* grid = qobject_cast<QGridLayout*>(&copy);
    auto* box = qobject_cast<QBoxLayout*>(&copy);
    int row = 0;
    int column = 0;
    int rows = 1;
    int columns = 1;
    if (grid != nullptr) {
        static_cast<QGridLayout&>(from).getItemPosition(index, &row, &column, &rows, &columns);
    }
    if (item.widget() != nullptr) {
        QWidget* widget = plainCopy(*item.widget());
        grid != nullptr ? grid->addWidget(widget, row, column, rows, columns, item.alignment())
                        : box->addWidget(widget, 0, item.alignment());
    } else if (item.layout() != nullptr) {
        QLayout* inner = plainLayout(*item.layout());
        grid != nullptr ? grid->addLayout(inner, row, column, rows, columns) : box->addLayout(inner);
    } else if (box != nullptr) {
        box->addStretch(1);
    }
}

QLayout* plainLayout(QLayout& original) {
    QLayout* copy = nullptr;
    if (qobject_cast<QGridLayout*>(&original) != nullptr) {
        copy = new QGridLayout;
    } else {
        copy = new QBoxLayout(static_cast<QBoxLayout&>(original).direction());
    }
    copy->setContentsMargins(original.contentsMargins());
    copy->setSpacing(original.spacing());
    for (int index = 0; index < original.count(); ++index) {
        addItem(*copy, *original.itemAt(index), original, index);
    }
    return copy;
}

} // namespace

QWidget* plainCopy(const QWidget& original) {
    QWidget* copy = plainWidget(original);
    copy->setEnabled(original.isEnabled());
    if (original.layout() != nullptr) {
        copy->setLayout(plainLayout(*original.layout()));
    }
    copy->setHidden(original.isHidden());
    return copy;
}

} // namespace zor::benchmarks
