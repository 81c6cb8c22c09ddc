#include "project/FormF1.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/Shell.h"
#include "core/TableDb.h"
#include "core/texts/FormF1Texts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "project/ProjectCommands.h"

#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace korvanel {

FormF1::FormF1(PageFrame& host, const PageEntry& entry) : Page(host, entry), form(new QFormLayout), frame(new QGroupBox)
{
    frame->setObjectName(QStringLiteral("fraProject"));
    frame->setLayout(form);
    Body().addWidget(frame, 1);
    nameBox = AddLine("txtName", texts::labelProjectName, App().sProjectName);
    connect(nameBox, &QLineEdit::textChanged, this, [this] { RefreshCaptions(); });
    firmBox = AddLine("txtFirm", texts::labelCompany, App().sCompany);
    whoBox = AddLine("txtWho", texts::labelEditor, App().sEditor);
    AddDescription();
    AddDates();
    AddPath();
}

QLineEdit* FormF1::AddLine(const char* name, const QString& caption, QString& field)
{
    auto* line = new QLineEdit;
    line->setObjectName(QLatin1String(name));
    line->setMaxLength(kLongestTypedText);
    line->installEventFilter(this);
    connect(line, &QLineEdit::textChanged, this, [this, &field](const QString& text) { TakeText(text, field); });
    AddRow(*form, caption, line);
    return line;
}

void FormF1::AddDescription()
{
    descriptionBox = new QPlainTextEdit;
    descriptionBox->setObjectName(QStringLiteral("txtDescr"));
    descriptionBox->setTabChangesFocus(true);
    descriptionBox->installEventFilter(this);
    connect(descriptionBox, &QPlainTextEdit::textChanged, this, [this] {
        QString text = descriptionBox->toPlainText();
        if (text.size() > kLongestTypedText) {
            text.truncate(kLongestTypedText);
            const QSignalBlocker quiet(descriptionBox);
            descriptionBox->setPlainText(text);
        }
        TakeText(text, App().sDescription);
        shownDescription = text;
    });
    AddRow(*form, texts::labelDescription, descriptionBox);
}

void FormF1::AddDates()
{
    const auto addDate = [this](const char* name, const QString& caption) {
        auto* label = new PlainLabel;
        label->setObjectName(QLatin1String(name));
        AddRow(*form, caption, label);
        return label;
    };
    createdLabel = addDate("lblDate_0", texts::labelCreated);
    savedLabel = addDate("lblDate_1", texts::labelSaved);
}

void FormF1::AddPath()
{
    pathLabel = new PlainLabel;
    pathLabel->setObjectName(QStringLiteral("lblDBPath"));
    pathLabel->setSizePolicy(QSizePolicy::Ignored,
                             QSizePolicy::Preferred); // the text is cut to the label, not vice versa
    pathLabel->installEventFilter(this);
    AddRow(*form, texts::labelFile, pathLabel);
    auto* saveAs = new QPushButton(texts::saveUnderOtherName);
    saveAs->setObjectName(QStringLiteral("cmdEdit"));
    connect(saveAs, &QPushButton::clicked, this, [this] {
        Guarded([this] {
            SaveProjectAsFromPage();
            Refresh();
        });
    });
    auto* row = new QHBoxLayout;
    row->addWidget(saveAs);
    row->addStretch(1);
    AddRow(*form, QString(), row);
}

void FormF1::Refresh()
{
    const auto show = [](auto* box, const QString& text, const QString& shown, auto set) {
        if (shown == text)
            return; // keeps the cursor where the user types
        const QSignalBlocker quiet(box);
        (box->*set)(text);
    };
    show(nameBox, App().sProjectName, nameBox->text(), &QLineEdit::setText);
    show(firmBox, App().sCompany, firmBox->text(), &QLineEdit::setText);
    show(whoBox, App().sEditor, whoBox->text(), &QLineEdit::setText);
    if (App().sDescription != shownDescription) {
        const QSignalBlocker quiet(descriptionBox);
        descriptionBox->setPlainText(shownDescription = App().sDescription);
    }
    createdLabel->setText(GeneralDateText(App().dtProjectCreated));
    savedLabel->setText(GeneralDateText(App().dtProjectSaved));
    pathLabel->setToolTip(PlainToolTip(App().sProjectPath));
    pathLabel->setText(pathLabel->fontMetrics().elidedText(App().sProjectPath, Qt::ElideMiddle, pathLabel->width()));
    RefreshCaptions();
}

void FormF1::RefreshCaptions()
{
    frame->setTitle(texts::currentProject + u' ' + QString(App().sProjectName).replace(u'&', QStringLiteral("&&")));
    App().TheShell->RefreshCaption();
}

void FormF1::TakeText(const QString& text, QString& field)
{
    if (text == field)
        return;
    field = text;
    App().bProjectDirty = true;
}

bool FormF1::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == pathLabel)
        pathLabel->setText(
            pathLabel->fontMetrics().elidedText(App().sProjectPath, Qt::ElideMiddle, pathLabel->width()));
    else if (event->type() == QEvent::KeyPress && watched != pathLabel)
        App().bProjectDirty = true;
    return Page::eventFilter(watched, event);
}

} // namespace korvanel
