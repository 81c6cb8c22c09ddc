// The dialog of the report of both machines over a recording on which a second machine has run, and the tables of the
// file that comes out.
#pragma once

#include "output/FormH16.h"

#include "output/ReportFixture.h"
#include "support/Keys.h"

#include "core/NumberText.h"
#include "core/texts/FormF9Texts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>

namespace korvanel::test {

class FormH16Fixture : public ReportTest
{
protected:
    FormH16Fixture() { window.RegisterDialog(kDialogPrintMachines, BuildDialog<FormH16>); }

    void OpenProjectOfBoth(int sets = 70, int netConf = 2)
    {
        OpenReportProject(netConf, sets);
        TakeSecondMachine();
        App().bProjectDirty = false;
    }
    void Open()
    {
        dialog = std::make_unique<FormH16>(nullptr);
        dialog->show();
        QApplication::processEvents();
    }
    void OpenBoth(int sets = 70)
    {
        OpenProjectOfBoth(sets);
        Open();
    }

    template <typename Control>
    Control& Numbered(const char* name, int index)
    {
        return ControlOf<Control>(*dialog, (QByteArray(name) + '_' + QByteArray::number(index)).constData());
    }
    QCheckBox& Box(int index) { return Numbered<QCheckBox>("chkMotor", index); }
    QLineEdit& Number(int index) { return Numbered<QLineEdit>("txtSatz", index); }
    QTableWidget& Grid(int index) { return Numbered<QTableWidget>("flxMotor", index); }
    QScrollBar& Bar(int index) { return Numbered<QScrollBar>("scrMotor", index); }
    QPushButton& Button(const char* name) { return ControlOf<QPushButton>(*dialog, name); }
    QStringList Heads(int index)
    {
        QStringList heads;
        for (int i = 0; i < Grid(index).columnCount(); ++i)
            heads << Grid(index).horizontalHeaderItem(i)->text();
        return heads;
    }
    int ColumnOf(int index, const QString& head) { return static_cast<int>(Heads(index).indexOf(head)); }
    QString Cell(int index, int row, const QString& head)
    {
        return Grid(index).item(row, ColumnOf(index, head))->text();
    }
    bool IsCellGrey(int index, int row, const QString& head)
    {
        return Grid(index).item(row, ColumnOf(index, head))->foreground().color() == Grey(QPalette::Text);
    }
    bool IsHeadGrey(int index, const QString& head)
    {
        return Grid(index).horizontalHeaderItem(ColumnOf(index, head))->foreground().color() ==
               Grey(QPalette::ButtonText);
    }
    QColor Grey(QPalette::ColorRole role) { return dialog->palette().color(QPalette::Disabled, role); }
    void ClickHead(int index, const QString& head)
    {
        QHeaderView& heads = *Grid(index).horizontalHeader();
        const int section = ColumnOf(index, head);
        Grid(index).horizontalScrollBar()->setValue(heads.sectionPosition(section));
        const QPoint middle(heads.sectionViewportPosition(section) + heads.sectionSize(section) / 2,
                            heads.height() / 2);
        QTest::mouseClick(heads.viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    }
    void Type(int index, const QString& text)
    {
        Number(index).setText(text);
        emit Number(index).editingFinished();
    }
    static void TurnOff(std::initializer_list<int> columns)
    {
        for (const int column : columns)
            App().PrChecks.at(static_cast<std::size_t>(column)) = 0;
    }

    /// Prints into a file and reads it, without a word to the user.
    PdfDocument Printed()
    {
        const QString name = QStringLiteral("beide.pdf");
        ControlOf<QComboBox>(*dialog, "cboPrinters").setCurrentText(texts::printPdf);
        shell.savePaths = {PathOf(name)};
        Button("cmdPrint").click();
        EXPECT_EQ(shell.BoxTexts(), QStringList());
        KeepForPeople(name);
        return ReadPdf(PathOf(name));
    }
    /// The sections in the order of their pages.
    static QStringList SectionsOf(const PdfDocument& report)
    {
        QStringList sections;
        for (const PdfPage& page : report.pages)
            for (const char* title : {"Übersicht Motor/Generator I und II", "Auslastung Motor/Generator I und II",
                                      "Messtabelle (Motor/Generator I)", "Messtabelle (Motor/Generator II)"})
                if (page.text.contains(QString::fromUtf8(title)) &&
                    (sections.isEmpty() || sections.back() != QString::fromUtf8(title)))
                    sections << QString::fromUtf8(title);
        return sections;
    }
    /// A table of sets in the file: the cells of a set by the heads of their columns, from all pages of the table.
    struct PaperTable
    {
        QStringList heads;
        std::map<int, QStringList> rows;
        QString Cell(int set, const QString& head) const { return rows.at(set).value(heads.indexOf(head)); }
    };
    static PaperTable TableOf(const PdfDocument& report, const QString& title)
    {
        static const QRegularExpression head(QStringLiteral("t Sample|\\S+ \\[[^\\]]+\\]|\\S+"));
        PaperTable table;
        for (const PdfPage& page : report.pages) {
            if (!page.text.contains(title))
                continue;
            bool isInTable = false;
            for (const QString& line : page.text.split(u'\n')) {
                const QStringList cells = line.split(u' ', Qt::SkipEmptyParts);
                if (cells.value(0) == QStringLiteral("Satz")) {
                    isInTable = true;
                    QStringList ofPage;
                    for (const QRegularExpressionMatch& match : head.globalMatch(line))
                        ofPage << match.captured();
                    if (!table.heads.endsWith(ofPage.last()) && !table.heads.contains(ofPage.last()))
                        table.heads << (table.heads.isEmpty() ? ofPage : ofPage.mid(2));
                } else if (const int set = QString(cells.value(0)).remove(u'*').toInt(); isInTable && set > 0) {
                    QStringList& row = table.rows[set];
                    row << (row.isEmpty() ? cells : cells.mid(2));
                }
            }
        }
        return table;
    }
    /// A value of the file as people read it.
    QString Stored(const char* table, const char* column, int set, double factor, double divisor = 1)
    {
        return RoundValue(Query(QStringLiteral("SELECT [%1] FROM %2 WHERE [Set]=%3")
                                    .arg(QLatin1String(column), QLatin1String(table))
                                    .arg(set))
                                  .toDouble() /
                              divisor,
                          factor);
    }

    std::unique_ptr<FormH16> dialog;
};

} // namespace korvanel::test
