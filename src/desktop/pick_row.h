// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPushButton>
#include <QSize>
#include <QString>
#include <QStringList>

namespace zor {

/// What the rows of a list are laid out by, so that their remarks stand under one another.
struct PickColumns {
    /// Of the name's column where there is room.
    int characters;
    QStringList names;
    /// What of a remark is in sight however long the names are.
    QStringList remarks;
};

/// A chip or a file with a remark: the whole row is the target, and lights up under the pointer. Long names
/// have the room that the remarks leave; in a narrow list short names give theirs up.
class PickRow : public QPushButton {
  public:
    PickRow(const QString& fullName, const QString& remarkText, PickColumns listsColumns);

    /// What there is room for of either.
    [[nodiscard]] QString shownName() const;
    [[nodiscard]] QString shownRemark() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QFont bold() const;
    [[nodiscard]] int gap() const;
    [[nodiscard]] int usualNameWidth() const;
    [[nodiscard]] int wholeNameWidth() const;
    [[nodiscard]] int leastNameWidth() const;
    [[nodiscard]] int nameWidth() const;

    QString name;
    QString remark;
    PickColumns columns;
};

} // namespace zor
