#include "simulation/FormH12.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH12Texts.h"
#include "core/texts/FormH6Texts.h"
#include "core/window/DialogButtons.h"
#include "core/window/PlainLabel.h"
#include "motors/MachineGrid.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <limits>

namespace korvanel {

namespace {

enum SearchField
{
    kSearchPolePairs,
    kSearchPower,
    kSearchVoltage,
    kSearchFrequency
};

struct SearchWords
{
    TextRef caption;
    TextRef request; ///< shown for a text that is no number
};

constexpr std::array<SearchWords, 4> kSearchWords{{
    {&texts::choicePolePairs, &texts::searchEnterPolePairs},
    {&texts::choicePower, &texts::searchEnterPower},
    {&texts::choiceVoltage, &texts::searchEnterVoltage},
    {&texts::choiceFrequency, &texts::choiceEnterFrequency},
}};
constexpr int kCommentPlace = 4;

bool IsCount(double number)
{
    return std::floor(number) == number && std::abs(number) <= std::numeric_limits<int>::max();
}

} // namespace

FormH12::FormH12(QWidget* parent)
    : QDialog(parent), isForGenerator(App().MachineI.record.Pmech.value_or(0) < 0),
      grid(new MachineGrid([this](int first, int count) { return machines.Machines(first, count); }))
{
    constexpr QSize kSize(820, 520);
    setObjectName(QStringLiteral("FormH12"));
    setWindowTitle(texts::choiceTitle);
    resize(kSize);
    const DialogButtons buttons =
        BuildDialogButtons(*this, "cmdOK", texts::buttonOk, "cmdAbort", [this] { TakeOver(); });
    okButton = buttons.ahead;
    connect(grid, &QTableWidget::cellDoubleClicked, okButton, &QPushButton::click);

    auto* column = new QVBoxLayout(this);
    column->addWidget(grid, 1);
    column->addWidget(BuildSearch());
    column->addLayout(buttons.row);
    RunGuarded(windowTitle(), [this] { machines.Load(); });
    ShowList(machines.PresentRow());
    grid->setFocus();
}

QWidget* FormH12::BuildSearch()
{
    auto* frame = new QGroupBox(texts::choiceSearch);
    frame->setObjectName(QStringLiteral("fraSearch"));
    auto* places = new QGridLayout(frame);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const int place = static_cast<int>(i);
        fields.at(i) =
            AddField(*places, place, QStringLiteral("txtSearch_%1").arg(i), TextOf(kSearchWords.at(i).caption),
                     place != kSearchPower ? texts::searchEqual
                     : isForGenerator      ? texts::searchAtMost
                                           : texts::searchAtLeast);
    }
    commentField =
        AddField(*places, kCommentPlace, QStringLiteral("txtComment"), texts::choiceComment, texts::searchEqual);
    searchButton = new QPushButton(texts::choiceSearch);
    searchButton->setObjectName(QStringLiteral("cmdSearch"));
    connect(searchButton, &QPushButton::clicked, this, [this] { RunGuarded(windowTitle(), [this] { Search(); }); });
    places->addWidget(searchButton, 1, 3 * kCommentPlace, 1, 3, Qt::AlignRight);
    return frame;
}

/// Four numbers side by side, the remark below them.
QLineEdit* FormH12::AddField(QGridLayout& places, int place, const QString& name, const QString& text,
                             const QString& relation)
{
    constexpr int kLongestEntry = 20;
    const bool isComment = place == kCommentPlace;
    auto* field = new QLineEdit;
    field->setObjectName(name);
    field->setMaxLength(isComment ? kLongestTypedText : kLongestEntry);
    field->installEventFilter(this);
    auto* caption = new PlainLabel(text);
    caption->setBuddy(field);
    const int row = isComment ? 1 : 0;
    const int column = isComment ? 0 : 3 * place;
    places.addWidget(caption, row, column);
    places.addWidget(new PlainLabel(relation), row, column + 1);
    places.addWidget(field, row, column + 2, 1, isComment ? 3 * kCommentPlace - 3 : 1);
    return field;
}

/// Enter in a field searches; everywhere else it takes the machine.
bool FormH12::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        searchButton->setDefault(true);
    else if (event->type() == QEvent::FocusOut)
        okButton->setDefault(true);
    return QDialog::eventFilter(watched, event);
}

void FormH12::ShowList(int row)
{
    grid->Fill(machines.Count());
    grid->ShowRow(row);
    okButton->setEnabled(machines.Count() > 0);
}

bool FormH12::TakeNumber(int index, std::optional<double>& number)
{
    QLineEdit& field = *fields.at(static_cast<std::size_t>(index));
    if (field.text().trimmed().isEmpty())
        return true;
    number = LocalNumber(ToLocalDecimal(field.text()));
    if (number && (index != kSearchPolePairs || IsCount(*number)))
        return true;
    ShowError(TextOf(kSearchWords.at(static_cast<std::size_t>(index)).request));
    field.setFocus();
    field.selectAll();
    return false;
}

void FormH12::Search()
{
    MachineFilter filter{.isGenerator = isForGenerator};
    std::optional<double> polePairs;
    if (!TakeNumber(kSearchPolePairs, polePairs) || !TakeNumber(kSearchPower, filter.Pmech) ||
        !TakeNumber(kSearchVoltage, filter.U) || !TakeNumber(kSearchFrequency, filter.f))
        return;
    if (polePairs)
        filter.polePairs = static_cast<int>(*polePairs);
    if (!commentField->text().trimmed().isEmpty())
        filter.Hersteller = commentField->text();
    if (machines.Search(filter))
        ShowList(machines.PresentRow());
}

void FormH12::TakeOver()
{
    clsWaitCursor cursor;
    cursor.Show();
    const int version = machines.Version();
    const std::optional<MachineRecord> machine = machines.Read(grid->currentRow());
    if (machines.Version() != version)
        ShowList(machines.PresentRow());
    if (machine)
        SubstituteMachine(*machine, [this] { accept(); });
}

} // namespace korvanel
