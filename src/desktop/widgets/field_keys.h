// SPDX-License-Identifier: MIT
// What keys do in a text field beside typing.
#pragma once

#include "desktop/widgets/binding.h"
#include "elements/text_field.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QObject>

#include <string>

namespace zor {

[[nodiscard]] bool isEnter(const QKeyEvent& key);
/// The key that a locked field is asked about; 0 for one that only moves or copies.
/// @param codes  so many characters, from 0, are one byte in the field
[[nodiscard]] char typedKey(const QKeyEvent& key, char16_t codes);

/// A line edit as wide as so many digits, at any font size.
class LineField : public QLineEdit {
  public:
    explicit LineField(int columnCount);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// The text that Escape brings back.
    std::string kept;

  private:
    int columns;
};

/// Numbers have a decimal point; on many keyboards, and on the number pad of more, a comma sits in its place.
class CommaKey : public QObject {
  public:
    explicit CommaKey(LineField& line);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// While something is being typed, the field takes it back key by key itself. At any other time the keys for
/// it go on to the window's own steps.
class UndoKeys : public QObject {
  public:
    UndoKeys(QWidget& owner, Binding& fieldBinding);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Binding& binding;
};

/// Leads keys in a locked field, and double clicks, to the element's actions for them. The action may take
/// the widget away.
class LockedFieldActions : public QObject {
  public:
    LockedFieldActions(QWidget& owner, QWidget& eventSource, Binding& fieldBinding);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Binding& binding;
};

/// Enter, Escape and the text to come back to.
class FieldKeys : public QObject {
  public:
    FieldKeys(LineField& lineField, Binding& fieldBinding);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] TextField* field() const { return elementOf<TextField>(binding); }

    void commit();

    LineField& line;
    Binding& binding;
};

} // namespace zor
