#include "remote/RemoteReading.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTableWidget>

#include <algorithm>

namespace korvanel::remote {

namespace {

/// What a model of a list or table shows, headings before rows. Long ones are cut short.
QStringList ModelTexts(const QAbstractItemModel& model)
{
    constexpr int kMostRows = 200;
    QStringList shown;
    const int rows = std::min(model.rowCount(), kMostRows);
    for (int column = 0; column < model.columnCount(); ++column)
        shown << model.headerData(column, Qt::Horizontal).toString();
    for (int row = 0; row < rows; ++row) {
        shown << model.headerData(row, Qt::Vertical).toString();
        for (int column = 0; column < model.columnCount(); ++column)
            for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole)})
                shown << model.index(row, column).data(role).toString();
    }
    return shown;
}

/// Every text of a control: what it shows, its title and hints, what it offers to choose from, its menu entries.
QStringList TextsOf(QWidget* widget)
{
    QStringList shown{TextOfControl(widget), widget->windowTitle(), widget->toolTip(), widget->accessibleName()};
    for (const QAction* action : widget->actions())
        shown << action->text() << action->toolTip();
    if (auto* line = qobject_cast<QLineEdit*>(widget))
        shown << line->placeholderText();
    if (auto* combo = qobject_cast<QComboBox*>(widget))
        shown << ModelTexts(*combo->model());
    if (auto* view = qobject_cast<QAbstractItemView*>(widget); view && view->model())
        shown << ModelTexts(*view->model());
    if (auto* tabs = qobject_cast<QTabWidget*>(widget))
        for (int i = 0; i < tabs->count(); ++i)
            shown << tabs->tabText(i) << tabs->tabToolTip(i);
    shown.removeAll(QString());
    return shown;
}

} // namespace

QJsonArray Items(QWidget* widget)
{
    QJsonArray items;
    if (auto* combo = qobject_cast<QComboBox*>(widget))
        for (int i = 0; i < combo->count(); ++i)
            items.append(combo->itemText(i));
    else if (auto* list = qobject_cast<QListWidget*>(widget))
        for (int i = 0; i < list->count(); ++i)
            items.append(list->item(i)->text());
    else if (auto* tabs = qobject_cast<QTabWidget*>(widget))
        for (int i = 0; i < tabs->count(); ++i)
            items.append(tabs->tabText(i));
    return items;
}

QJsonArray RowHeads(QWidget* widget)
{
    QJsonArray heads;
    const auto* table = qobject_cast<QTableWidget*>(widget);
    for (int r = 0; table && r < table->rowCount(); ++r)
        heads.append(table->verticalHeaderItem(r) ? table->verticalHeaderItem(r)->text() : QString());
    return heads;
}

QJsonArray Cells(QWidget* widget)
{
    QJsonArray rows;
    const auto* table = qobject_cast<QTableWidget*>(widget);
    for (int r = 0; table && r < table->rowCount(); ++r) {
        QJsonArray row;
        for (int c = 0; c < table->columnCount(); ++c)
            row.append(table->item(r, c) ? table->item(r, c)->text() : QString());
        rows.append(row);
    }
    return rows;
}

QJsonArray Headings(QWidget* widget)
{
    QJsonArray headings;
    const auto* table = qobject_cast<QTableWidget*>(widget);
    for (int c = 0; table && c < table->columnCount(); ++c)
        headings.append(table->horizontalHeaderItem(c) ? table->horizontalHeaderItem(c)->text() : QString());
    return headings;
}

QString TextOfControl(QWidget* widget)
{
    if (auto* line = qobject_cast<QLineEdit*>(widget))
        return line->text();
    if (auto* box = qobject_cast<QPlainTextEdit*>(widget))
        return box->toPlainText();
    if (auto* label = qobject_cast<QLabel*>(widget))
        return label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(widget))
        return button->text();
    if (auto* group = qobject_cast<QGroupBox*>(widget))
        return group->title();
    if (auto* combo = qobject_cast<QComboBox*>(widget))
        return combo->currentText();
    if (auto* tabs = qobject_cast<QTabWidget*>(widget))
        return tabs->tabText(tabs->currentIndex());
    if (auto* message = qobject_cast<QMessageBox*>(widget))
        return message->text();
    return {};
}

QJsonObject AllTexts()
{
    QJsonArray controls;
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->window()->isVisible() || qobject_cast<QMenu*>(widget))
            for (const QString& text : TextsOf(widget))
                controls.append(QJsonObject{{"name", widget->objectName()}, {"text", text}});
    return {{"ok", true}, {"texts", controls}};
}

} // namespace korvanel::remote
