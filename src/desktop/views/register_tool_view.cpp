// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "desktop/widgets/note_line.h"
#include "desktop/widgets/script_area.h"
#include "registertool/spi.h"
#include "registertool/spi_sub2.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLayout>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTableView>

namespace zor {

namespace {

constexpr int rowsInSight = 12;

/// Both pages shall fit a main window of 1280 x 800: less room inside, none of the content gone.
QWidget* tight(QWidget* block) {
    constexpr int between = 4;
    auto* table = static_cast<QGridLayout*>(block->layout());
    table->setVerticalSpacing(between);
    table->setContentsMargins(spaceInside, between, spaceInside, spaceInside - between);
    return block;
}

/// The room that is left over goes to others.
QWidget* keptShort(QWidget* widget) {
    widget->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return widget;
}

/// As wide as needed to see how far it is.
QWidget* keptNarrow(QWidget* widget) {
    widget->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    widget->setMaximumWidth(widget->fontMetrics().averageCharWidth() * 26);
    return widget;
}

/// Words that are looked at, on two lines where they need them.
QWidget* twoLines(TextField& element) {
    auto* area = static_cast<QPlainTextEdit*>(textArea(element, 20, 2));
    area->setFont(QFont());
    constexpr int frame = 12;
    area->setFixedHeight(QFontMetrics(area->font()).lineSpacing() * 2 + frame);
    // From its beginning: it is not typed in.
    Binding::of(area)->follow(element.changed, [area] {
        const QSignalBlocker quiet(area);
        area->moveCursor(QTextCursor::Start);
    });
    return area;
}

/// What the bytes of a FIFO are as characters, worked out from their digits.
class Letters : public QStyledItemDelegate {
  public:
    Letters(QObject* parent, int hexColumn)
        : QStyledItemDelegate(parent)
        , hex(hexColumn) {}

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        bool isHex = false;
        uint code = index.siblingAtColumn(hex).data().toString().toUInt(&isHex, 16);
        option->text = isHex && code > 0x20 && code < 0x7F ? QString(QChar(code)) : QString();
        option->features |= QStyleOptionViewItem::HasDisplay;
    }

  private:
    int hex;
};

QWidget* fifoGrid(Grid& grid) {
    QWidget* whole = captionedGrid(grid, rowsInSight);
    auto* table = whole->findChild<QTableView*>();
    auto letters = static_cast<int>(grid.column("ASCII").value());
    table->setItemDelegateForColumn(letters,
                                    new Letters(table, static_cast<int>(grid.column("Hex").value())));
    return whole;
}

QWidget* registerGroup(RegisterEditor& e, EditorNotes& notes) {
    return group("Register",
                 {
                     line(field(e.Address, 4), textField(e.Name1, 12), noteLine(notes.DefaultNote, 11)),
                     line(label(e.DescriptionLabel, Tone::Soft), stretch()),
                     twoLines(e.Description),
                     bitRow(e.bit, CellShape::Tall, CellUse::Clicked, 0, e.bit.size()),
                     line(field(e.HexValue, 5), noteLine(notes.UnsentNote, 16, Tone::Reminder),
                          button(e.Read), strongButton(e.Send)),
                 });
}

QWidget* statusGroup(StatusViewer& s) {
    return group("Status register",
                 {
                     line(list(s.StatusRegCombo, 10), field(s.Hexadec, 6), stretch(), button(s.StatusRead)),
                     bitRow(s.Databit, CellShape::Tall, CellUse::Shown, 8, 8),
                     bitRow(s.Databit, CellShape::Tall, CellUse::Shown, 0, 8),
                 });
}

QWidget* macroGroup(MacroRows& macros, BatchPage& batch) {
    auto* box = new QGroupBox(QStringLiteral("Macro rows"));
    auto* table = new QGridLayout(box);
    table->setContentsMargins(spaceInside, 4, spaceInside, 6);
    table->setHorizontalSpacing(spaceBetween);
    table->setVerticalSpacing(2);
    int column = 0;
    for (const char* title : {"Name", "Addr.", "Hex", "Bits 7 to 0"}) {
        table->addWidget(remark(QString::fromLatin1(title)), 0, column++);
    }
    int at = 1;
    for (MacroRow& row : macros.rows) {
        table->addWidget(list(row.M_Name, 13), at, 0);
        table->addWidget(field(row.M_Address, 4), at, 1);
        table->addWidget(field(row.M_Hexvalue, 4), at, 2);
        table->addWidget(bitRow(row.M_bit, CellShape::Flat, CellUse::Clicked, 0, row.M_bit.size()), at, 3);
        table->addWidget(smallButton(row.M_Read), at, 4);
        table->addWidget(smallButton(row.M_Send), at, 5);
        int place = 6;
        for (Button& collector : batch.M_Batch[static_cast<std::size_t>(at) - 1]) {
            table->addWidget(smallButton(collector), at, place++);
        }
        ++at;
    }
    table->setColumnStretch(3, 1);
    table->setRowStretch(at, 1);
    return box;
}

/// A page's lines; the one at `grows` takes the height that is left over.
QWidget* pageOf(Frame& frame, Lines lines, int grows) {
    QWidget* block = window(std::move(lines), grows);
    block->layout()->setContentsMargins(0, 0, 0, 0);
    new Binding(frame, *block);
    return block;
}

QWidget* listPage(SPI& s) {
    RegisterFilter& f = s.filter;
    QWidget* choice = plain({line(
        labelled("Search", textField(s.search.Search, 14)), caption("Order by"), option(f.ByAddress),
        option(f.ByName), caption("Register Filter"), tick(f.ENRF), tick(f.ENTest), tick(f.ENDigital),
        tick(f.ENMisc), button(f.ViewAll), labelled("Show", list(s.differences.Show, 14)),
        button(s.differences.CompareFile), noteLine(s.search.ShownCount, 9, Tone::Soft, Qt::AlignRight))});
    TextFiles& files = s.files;
    QWidget* body = across({gridView(s.editor.SettingsDataGrid, rowsInSight),
                            column({tight(registerGroup(s.editor, s.notes)), tight(statusGroup(s.status))})},
                           0);
    QWidget* notes = plain({label(s.GuiNotesLabel), line(textField(s.GuiNotes, 16)),
                            line(button(files.LoadGUI), button(files.SaveGUI), stretch())});
    QWidget* supply =
        group(s.supply.SupplyFrame,
              {line(field(s.supply.Voltage, 5), caption("V"), button(s.supply.PB_Voltage), stretch())});
    QWidget* lower = across({macroGroup(s.macros, s.batch), column({notes, supply})}, 0);
    return pageOf(s.Frame_tabs[0], {choice, body, lower}, 1);
}

QWidget* batchGroup(Batch& batch) {
    return plain({
        line(textField(batch.BatchName, 12), button(batch.BatchRun)),
        scriptArea(batch.BatchCommands, 22, 7, batch.BatchLine, [&batch] { return batch.runningLine; }),
        line(tick(batch.EnLoop), noteLine(batch.BatchLine, 12, Tone::Reminder, Qt::AlignRight)),
    });
}

QWidget* batchControls(BatchPage& b) {
    QWidget* loop =
        plain(b.LoopFrame, {label(b.LoopControlLabel),
                            line(labelled(b.LoopCountLabel, field(b.LoopCount, 6)), button(b.Reset),
                                 stretch(), tick(b.ENLimit), field(b.LoopLimit, 6))});
    std::vector<Cell> choices;
    for (Batch& batch : b.batches) {
        choices.emplace_back(option(batch.BatchSel));
    }
    choices.push_back(stretch());
    QWidget* files = plain(b.SaveLoadFrame,
                           {label(b.SaveLoadLabel), Line(std::move(choices)),
                            line(button(b.LoadBach), button(b.SaveBatch), stretch(), button(b.AddCommand))});
    return column({loop, files});
}

QWidget* fifoControls(SPI& s) {
    FifoTest& f = s.fifoTest;
    return group(f.FifoFrame,
                 {
                     line(button(f.WriteTXff), button(f.ReadRXff), stretch(), button(f.ResetBER)),
                     across({plain({labelled(f.PacketsLabel, field(f.Packets)),
                                    labelled(f.PacketLostLabel, field(f.PacketLost)),
                                    labelled(f.PERLabel, field(f.PER))}),
                             plain({labelled(f.ErrorsLabel, field(f.Errors)),
                                    labelled(f.DatabitsLabel, field(f.Databits)),
                                    labelled(f.BERLabel, field(f.BER))})}),
                 });
}

QWidget* ratesGroup(ErrorRates& r) {
    QWidget* block = window(
        {
            plot(r.RatePlot, 36, 10),
            line(list(r.RateKind, 16), list(r.RateAxis, 8), stretch()),
            line(tick(r.RateLogScale), stretch(), button(r.SaveRates)),
        },
        0);
    block->layout()->setContentsMargins(0, 0, 0, 0);
    return block;
}

QWidget* fifoPage(SPI& s) {
    RegisterFilter& f = s.filter;
    TextFiles& files = s.files;
    QWidget* choice =
        group("Register list", {
                                   line(caption("Order by"), option(f.ByAddress2), option(f.ByName2)),
                                   line(caption("Register Filter"), stretch(), button(f.ViewAll2)),
                                   line(tick(f.ENRF2), tick(f.ENTest2), tick(f.ENDigital2), tick(f.ENMisc2)),
                               });
    QWidget* transmit =
        window({fifoGrid(s.fifo.TXFIFO), line(button(files.OpenTXff), button(files.SaveTXff), stretch())}, 0);
    QWidget* receive =
        window({fifoGrid(s.fifo.RXFIFO), line(button(files.OpenRXff), button(files.SaveRXff), stretch())}, 0);
    QWidget* middle = window({fifoControls(s), ratesGroup(s.rates), choice}, 1);
    std::vector<QWidget*> scripts;
    for (Batch& batch : s.batch.batches) {
        scripts.push_back(batchGroup(batch));
    }
    QWidget* right = window(
        {across({scripts[0], scripts[1]}), across({scripts[2], scripts[3]}), batchControls(s.batch)}, 0);
    static_cast<QGridLayout*>(right->layout())->setRowStretch(1, 1);
    for (QWidget* block : {transmit, receive, middle, right}) {
        block->layout()->setContentsMargins(0, 0, 0, 0);
    }
    return pageOf(s.Frame_tabs[1], {across({transmit, receive, middle, right}, 3)}, 0);
}

} // namespace

QWidget* registerToolView(Form& form) {
    auto& s = static_cast<SPI&>(form);
    TextFiles& files = s.files;
    return window(
        {
            line(labelled("Chip", list(s.ChipSelect, 20)), labelled(s.ProjectLabel, field(s.Text3, 8)),
                 labelled(s.NotesLabel, textField(s.Notes, 16)), button(files.LoadSettings),
                 button(files.SaveSettings), button(files.Command4), button(s.differences.SaveListed),
                 button(s.tables.Import), button(s.tables.Export)),
            tabs(s.TabStrip1, {listPage(s), fifoPage(s)}),
            line(button(s.whole.RefreshTable), button(s.whole.UpdateChip), button(s.whole.Defaults),
                 keptNarrow(progress(s.whole.ProgressBar1)), noteLine(s.report.Doing, 24),
                 keptShort(noteLine(s.differences.ComparedFile, 16, Tone::Soft, Qt::AlignRight)),
                 smallButton(s.Command1), smallButton(s.Command2), smallButton(s.Command3), swatch(s.One),
                 swatch(s.Zero), swatch(s.nodata), swatch(s.Blue), swatch(s.LightGray), button(s.Stop)),
        },
        1);
}

QWidget* addCommandView(Form& form) {
    auto& s = static_cast<SPIsub2&>(form);
    Lines channels;
    for (std::size_t channel = 0; channel < s.SetHigh.size(); ++channel) {
        std::vector<Cell> cells{label(s.ChName[channel]), button(s.SetHigh[channel]),
                                button(s.SetLow[channel]), button(s.SetZ[channel])};
        if (channel < s.ChLabel.size()) {
            cells.emplace_back(label(s.ChLabel[channel], Tone::Soft));
        }
        cells.push_back(stretch());
        channels.emplace_back(std::move(cells));
    }
    Lines macros;
    for (Button& macro : s.MacroCmd) {
        macros.emplace_back(button(macro));
    }
    return window({group(s.ChannelFrame, std::move(channels)), group(s.MacroFrame, std::move(macros))});
}

} // namespace zor
