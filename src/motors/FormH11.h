// "Motor/Generator Datenbank wechseln": picks the file of the machines that the program works with from now on.
#pragma once

#include <QDialog>
#include <QString>

class QComboBox;
class QLabel;
class QLayout;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace korvanel {

class FormH11 : public QDialog
{
    Q_OBJECT

public:
    explicit FormH11(QWidget* parent);
    /// Asks the user; true unless he cancels.
    static bool ChangeDatabase(QWidget* parent);

private:
    QWidget* BuildCurrent();
    QWidget* BuildBrowser();
    QLayout* BuildButtons();

    void FillDrives();
    /// Shows folders and databases of a folder; one that can't be read leaves everything as it is.
    void ShowFolder(const QString& path);
    void EnterFolder(const QListWidgetItem* item);
    QString ChosenPath() const;
    void TakeOver();

    QString folder;
    QComboBox* driveBox = nullptr;
    QLabel* folderLabel = nullptr;
    QListWidget* folders = nullptr;
    QListWidget* files = nullptr;
    QPushButton* okButton = nullptr;
};

} // namespace korvanel
