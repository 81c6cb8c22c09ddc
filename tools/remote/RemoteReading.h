// What can be read of the program's controls.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QWidget>

namespace korvanel::remote {

/// What a list, a box or a row of tabs offers to choose from.
QJsonArray Items(QWidget* widget);
/// What stands before the rows of a table.
QJsonArray RowHeads(QWidget* widget);
/// Texts of a table, row by row.
QJsonArray Cells(QWidget* widget);
/// Headings of a table's columns.
QJsonArray Headings(QWidget* widget);
QString TextOfControl(QWidget* widget);
/// All texts of the windows on show, also of tabs that lie behind others and of menus that aren't open.
QJsonObject AllTexts();

} // namespace korvanel::remote
