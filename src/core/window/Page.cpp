#include "core/window/Page.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Shell.h"
#include "core/Texts.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "core/window/ActionName.h"
#include "core/window/PageFrame.h"
#include "core/window/PageTable.h"
#include "core/window/PendingInput.h"
#include "core/window/PlainLabel.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

namespace korvanel {

Page::Page(PageFrame& host, const PageEntry& entry) : pageFrame(host), pageEntry(entry), body(new QVBoxLayout)
{
    setObjectName(QLatin1String(entry.name));
    setWindowTitle(TextOf(entry.title));
    setFixedSize(kPageWidth, kPageHeight);
    auto* all = new QVBoxLayout(this);
    all->addLayout(body, 1);
}

void Page::AddBottomRow()
{
    auto* row = new QHBoxLayout;
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    if (pageEntry.showsDeviceId)
        AddDeviceLabel(*row);
    row->addStretch(1);
    QPushButton* back = AddButton(*row, "cmdBack", texts::buttonBack);
    connect(back, &QPushButton::clicked, this, [this] {
        Guarded([this] {
            if (TakeInput(InputUse::Leaving))
                pageFrame.UnloadAndOpen(PageBefore(pageEntry, App().iNetConfIndex));
        });
    });
    QPushButton* forward = AddButton(*row, "cmdForw", texts::buttonForward);
    forward->setEnabled(pageEntry.forward != kNoPageOnShow);
    connect(forward, &QPushButton::clicked, this, [this] {
        Guarded([this] {
            if (TakeInput(InputUse::Leaving) && MayGoForward())
                pageFrame.UnloadAndOpen(PageBehind(pageEntry, App().iNetConfIndex));
        });
    });
}

QPushButton* Page::AddButton(QHBoxLayout& row, const char* name, const QString& text)
{
    auto* button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    row.addWidget(button);
    return button;
}

void Page::AddDeviceLabel(QHBoxLayout& row)
{
    constexpr double kSmall = 0.85;
    auto* label = new PlainLabel(App().sDeviceId);
    label->setObjectName(QStringLiteral("lblDeviceID"));
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * kSmall);
    label->setFont(font);
    row.addWidget(label);
}

void Page::Guarded(const std::function<void()>& routine)
{
    if (QApplication::activeModalWidget()) // what is asked has to be answered first
        return;
    const QString action = ActionName(sender());
    RunGuarded(action.isEmpty() ? windowTitle() : action, routine);
}

void Page::Locked(const std::function<void()>& routine, const std::function<void()>& atEnd)
{
    const QPointer<QWidget> focus = focusWidget();
    setEnabled(false);
    const auto unlocked = qScopeGuard([&] {
        DropPendingInput();
        setEnabled(true);
        if (atEnd)
            atEnd();
        if (focus)
            focus->setFocus();
    });
    routine();
}

void Page::LockedAndBusy(const std::function<void()>& routine, const std::function<void()>& atEnd)
{
    clsWaitCursor cursor;
    cursor.Show();
    App().TheShell->SetBusyMenus(false);
    Locked(
        [&] {
            repaint();
            routine();
        },
        [&] {
            App().TheShell->SetBusyMenus(true);
            atEnd();
        });
}

} // namespace korvanel
