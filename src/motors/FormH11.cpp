#include "motors/FormH11.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH11Texts.h"
#include "core/window/DialogButtons.h"
#include "core/window/PlainLabel.h"
#include "motors/MotorDatabase.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace korvanel {

namespace {

const QString kParent = QStringLiteral("..");
const QString kPattern = QStringLiteral("*.mdb");

/// Drives where the system has such, and the folder of the user.
QStringList StartingPoints()
{
    QStringList paths;
    for (const QFileInfo& drive : QDir::drives())
        paths << drive.absoluteFilePath();
    paths << QDir::homePath();
    return paths;
}

QLabel* PathLabel(const char* name)
{
    auto* label = new PlainLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

bool IsWithin(const QString& path, const QString& ancestor)
{
    return (path + u'/').startsWith(ancestor.endsWith(u'/') ? ancestor : ancestor + u'/');
}

bool IsUsable(const QString& path)
{
    clsWaitCursor cursor;
    cursor.Show();
    return IsMotorDatabase(path);
}

QListWidget* List(const char* name)
{
    auto* list = new QListWidget;
    list->setObjectName(QLatin1String(name));
    return list;
}

QLabel* Caption(const QString& text, QWidget* buddy)
{
    auto* label = new PlainLabel(text);
    label->setBuddy(buddy);
    return label;
}

} // namespace

FormH11::FormH11(QWidget* parent) : QDialog(parent)
{
    constexpr QSize kSize(560, 420);
    setObjectName(QStringLiteral("FormH11"));
    setWindowTitle(texts::databaseTitle);
    resize(kSize);
    auto* column = new QVBoxLayout(this);
    column->addWidget(BuildCurrent());
    column->addWidget(BuildBrowser(), 1);
    column->addLayout(BuildButtons());
    FillDrives();
    const QFileInfo current(App().sMotorDbPath);
    for (const QString& path : {current.absolutePath(), App().sProgramDir, QDir::homePath(), QDir::rootPath()})
        if (folder.isEmpty())
            ShowFolder(path);
    for (QListWidgetItem* item : files->findItems(current.fileName(), Qt::MatchExactly | Qt::MatchCaseSensitive))
        files->setCurrentItem(item);
}

bool FormH11::ChangeDatabase(QWidget* parent)
{
    return FormH11(parent).exec() == QDialog::Accepted;
}

QWidget* FormH11::BuildCurrent()
{
    auto* top = new QWidget;
    auto* column = new QVBoxLayout(top);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new PlainLabel(texts::databaseCurrent));
    QLabel* path = PathLabel("lblDatabase");
    path->setText(App().sMotorDbPath);
    column->addWidget(path);
    return top;
}

QWidget* FormH11::BuildBrowser()
{
    driveBox = new QComboBox;
    driveBox->setObjectName(QStringLiteral("drvDB"));
    connect(driveBox, &QComboBox::activated, this, [this] { ShowFolder(driveBox->currentText()); });
    folderLabel = PathLabel("lblFolder");
    folders = List("dirDB");
    connect(folders, &QListWidget::itemActivated, this, &FormH11::EnterFolder);
    files = List("fileDB");
    connect(files, &QListWidget::currentItemChanged, this, [this] { okButton->setEnabled(!ChosenPath().isEmpty()); });
    connect(files, &QListWidget::itemActivated, this, [this] { okButton->click(); });

    auto* browser = new QWidget;
    auto* grid = new QGridLayout(browser);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(Caption(texts::databaseDrive, driveBox), 0, 0);
    grid->addWidget(driveBox, 1, 0);
    grid->addWidget(folderLabel, 1, 1);
    grid->addWidget(Caption(texts::databaseFolders, folders), 2, 0);
    grid->addWidget(Caption(texts::databaseFiles, files), 2, 1);
    grid->addWidget(folders, 3, 0);
    grid->addWidget(files, 3, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    return browser;
}

QLayout* FormH11::BuildButtons()
{
    const DialogButtons buttons =
        BuildDialogButtons(*this, "cmdOK", texts::buttonOk, "cmdAbort", [this] { TakeOver(); });
    okButton = buttons.ahead;
    okButton->setEnabled(false);
    okButton->setDefault(false); // Enter in a list opens what is marked there
    okButton->setAutoDefault(false);
    return buttons.row;
}

void FormH11::FillDrives()
{
    for (const QString& path : StartingPoints())
        driveBox->addItem(QDir::toNativeSeparators(path));
}

void FormH11::ShowFolder(const QString& path)
{
    const QDir directory(path);
    if (path.isEmpty() || !directory.exists() || !directory.isReadable())
        return;
    folder = directory.absolutePath();
    folderLabel->setText(QDir::toNativeSeparators(folder));
    for (int i = 0; i < driveBox->count(); ++i) // the last one that fits is the closest
        if (IsWithin(folder, QDir::fromNativeSeparators(driveBox->itemText(i))))
            driveBox->setCurrentIndex(i);
    folders->clear();
    if (!directory.isRoot())
        folders->addItem(kParent);
    folders->addItems(directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase));
    files->clear();
    files->addItems(directory.entryList({kPattern}, QDir::Files, QDir::Name | QDir::IgnoreCase));
    okButton->setEnabled(false);
}

void FormH11::EnterFolder(const QListWidgetItem* item)
{
    QDir directory(folder);
    if (item && directory.cd(item->text()))
        ShowFolder(directory.absolutePath());
}

QString FormH11::ChosenPath() const
{
    const QListWidgetItem* item = files->currentItem();
    return item ? QDir::toNativeSeparators(QDir(folder).absoluteFilePath(item->text())) : QString();
}

void FormH11::TakeOver()
{
    const QString path = ChosenPath();
    if (path.isEmpty())
        return;
    if (QFileInfo(path) != QFileInfo(App().sMotorDbPath)) {
        if (!IsUsable(path)) {
            if (IsDatabaseInUse(path))
                ShowFileInUse(path);
            else
                ShowError(texts::databaseIncompatible + u'\n' + texts::databaseOther);
            files->setFocus();
            return;
        }
        UseMotorDatabase(path);
    }
    accept();
}

} // namespace korvanel
