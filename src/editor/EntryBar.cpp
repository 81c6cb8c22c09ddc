#include "editor/EntryBar.h"

#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/texts/FormF5Texts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace korvanel {

namespace {

constexpr int kLongestNumber = 40;
constexpr double kMostStep = 1'000'000'000;

QLineEdit* MakeBox(const QString& name, int width, const QString& spokenName)
{
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setMaxLength(kLongestNumber);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(width);
    box->setAccessibleName(spokenName);
    return box;
}

} // namespace

EntryBar::EntryBar() : label(new PlainLabel), enterButton(new QPushButton(texts::editorApply))
{
    constexpr int kLabelWidth = 130;
    constexpr int kValueWidth = 110;
    constexpr int kStepWidth = 70;
    label->setObjectName(QStringLiteral("lblEdit"));
    label->setMinimumWidth(kLabelWidth);
    valueBox = MakeBox(QStringLiteral("txtEdit_0"), kValueWidth, texts::editorValue);
    stepBox = MakeBox(QStringLiteral("txtEdit_1"), kStepWidth, texts::editorStep);
    stepBox->setText(QString::number(1));
    upButton = AddTool(QStringLiteral("cmdStep_0"), QStringLiteral("▲"), texts::editorUpTip);
    downButton = AddTool(QStringLiteral("cmdStep_1"), QStringLiteral("▼"), texts::editorDownTip);
    signButton = AddTool(QStringLiteral("cmdPlusMinus"), QStringLiteral("±"), texts::editorSignTip);
    enterButton->setObjectName(QStringLiteral("cmdEnter"));
    auto* stepLabel = new PlainLabel(texts::editorStep);
    stepLabel->setBuddy(stepBox);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    for (QWidget* part :
         std::initializer_list<QWidget*>{label, valueBox, upButton, downButton, signButton, enterButton})
        row->addWidget(part);
    row->addStretch(1);
    row->addWidget(stepLabel);
    row->addWidget(stepBox);

    connect(upButton, &QToolButton::clicked, this, [this] { Step(1); });
    connect(downButton, &QToolButton::clicked, this, [this] { Step(-1); });
    connect(signButton, &QToolButton::clicked, this, [this] { ChangeSign(); });
    connect(enterButton, &QPushButton::clicked, this, &EntryBar::Accepted);
    valueBox->installEventFilter(this);
}

QToolButton* EntryBar::AddTool(const QString& name, const QString& sign, const QString& tip)
{
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setText(sign);
    button->setToolTip(PlainToolTip(tip));
    button->setAccessibleName(tip);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void EntryBar::Show(const QString& name, const QString& value, bool isEditable)
{
    label->setText(name);
    shown = value;
    valueBox->setText(value);
    for (QWidget* part : std::initializer_list<QWidget*>{valueBox, upButton, downButton, signButton, enterButton})
        part->setEnabled(isEditable);
}

void EntryBar::Begin(const QString& typed)
{
    if (!valueBox->isEnabled())
        return;
    valueBox->setFocus();
    if (typed.isEmpty())
        valueBox->selectAll();
    else
        valueBox->setText(typed);
}

bool EntryBar::HasPendingText() const
{
    return valueBox->isEnabled() && valueBox->text() != shown;
}

QString EntryBar::Text() const
{
    return valueBox->text();
}

void EntryBar::SetText(const QString& text)
{
    valueBox->setText(text);
}

void EntryBar::Drop()
{
    valueBox->setText(shown);
}

void EntryBar::LookAt()
{
    valueBox->setFocus();
    valueBox->selectAll();
}

void EntryBar::Step(int by)
{
    if (QApplication::activeModalWidget())
        return;
    QString step = stepBox->text();
    const bool isNumber = CheckNumberRange(step, 0, kMostStep);
    stepBox->setText(step);
    if (!isNumber) {
        stepBox->setFocus();
        stepBox->selectAll();
        return;
    }
    valueBox->setText(NumberText(TypedNumber(valueBox->text()) + by * TypedNumber(step)));
}

void EntryBar::ChangeSign()
{
    const QString text = valueBox->text().trimmed();
    valueBox->setText(text.startsWith(u'-') ? text.mid(1) : u'-' + (text.startsWith(u'+') ? text.mid(1) : text));
}

/// Enter takes the value, Esc leaves the box, the arrows count.
bool EntryBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit Accepted();
        return true;
    case Qt::Key_Escape:
        Drop();
        emit Left();
        return true;
    case Qt::Key_Up:
        Step(1);
        return true;
    case Qt::Key_Down:
        Step(-1);
        return true;
    default:
        return false;
    }
}

} // namespace korvanel
