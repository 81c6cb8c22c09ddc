#include "evaluation/FormH10.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/clsProgSettings.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH10Texts.h"
#include "core/window/DialogButtons.h"
#include "core/window/PlainLabel.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <cmath>
#include <limits>

namespace korvanel {

namespace {

constexpr int kLongestText = 40;
constexpr int kBoxWidth = 120;

constexpr std::array<TextRef, 3> kPriceCaptions{&texts::optionsDrawnEnergy, &texts::optionsDeliveredEnergy,
                                                &texts::optionsReactiveEnergy};

} // namespace

FormH10::FormH10(QWidget* parent)
    : QDialog(parent), prices{App().ProgSettings->EnergyCosts(0), App().ProgSettings->EnergyCosts(1),
                              App().ProgSettings->EnergyCosts(2)},
      cycles(App().ProgSettings->Cycles())
{
    setObjectName(QStringLiteral("FormH10"));
    setWindowTitle(texts::optionsTitle);
    auto* column = new QVBoxLayout(this);
    column->addWidget(BuildCosts());
    column->addWidget(BuildOther());
    column->addStretch(1);
    column->addLayout(BuildButtons());
}

QGroupBox* FormH10::BuildCosts()
{
    auto* group = new QGroupBox(texts::optionsCosts);
    auto* form = new QFormLayout(group);
    for (std::size_t i = 0; i < prices.size(); ++i) {
        priceBoxes.at(i) = AddNumberBox(QStringLiteral("txtKosten_%1").arg(i), prices.at(i));
        AddRow(*form, TextOf(kPriceCaptions.at(i)), priceBoxes.at(i));
    }
    return group;
}

QGroupBox* FormH10::BuildOther()
{
    auto* group = new QGroupBox(texts::optionsOther);
    auto* form = new QFormLayout(group);
    currencyBox = new QLineEdit(App().ProgSettings->UsedCurrency());
    currencyBox->setObjectName(QStringLiteral("txtWaehrung"));
    currencyBox->setMaxLength(kLongestText);
    currencyBox->setMinimumWidth(kBoxWidth);
    AddRow(*form, texts::optionsCurrency, currencyBox);
    cyclesBox = AddNumberBox(QStringLiteral("txtZyklen"), cycles);
    AddRow(*form, texts::optionsCycles, cyclesBox);
    return group;
}

QHBoxLayout* FormH10::BuildButtons()
{
    return BuildDialogButtons(*this, "cmdOK", texts::buttonOk, "cmdAbort", [this] { Store(); }).row;
}

QLineEdit* FormH10::AddNumberBox(const QString& name, double& number)
{
    auto* box = new QLineEdit(NumberText(number));
    box->setObjectName(name);
    box->setMaxLength(kLongestText);
    box->setMinimumWidth(kBoxWidth);
    box->setAlignment(Qt::AlignRight);
    connect(box, &QLineEdit::editingFinished, this, [this, box, &number] { TakeNumber(*box, number); });
    return box;
}

void FormH10::TakeNumber(QLineEdit& box, double& number)
{
    if (box.text() == NumberText(number)) // what was not touched keeps the digits that the text leaves out
        return;
    number = TypedNumber(box.text());
    box.setText(NumberText(number));
}

/// Also for a box that still has the focus.
void FormH10::TakeAll()
{
    for (std::size_t i = 0; i < prices.size(); ++i)
        TakeNumber(*priceBoxes.at(i), prices.at(i));
    TakeNumber(*cyclesBox, cycles);
}

void FormH10::Store()
{
    using Limits = std::numeric_limits<qint32>;
    TakeAll();
    const double whole = std::nearbyint(cycles); // halves to the even number
    QString text = NumberText(whole);
    if (!CheckNumberRange(text, Limits::min(), Limits::max())) {
        cyclesBox->setFocus();
        cyclesBox->selectAll();
        return;
    }
    clsProgSettings& settings = *App().ProgSettings;
    settings.SetCycles(static_cast<qint32>(whole));
    settings.SetUsedCurrency(currencyBox->text());
    for (std::size_t i = 0; i < prices.size(); ++i)
        settings.SetEnergyCosts(i, prices.at(i));
    RecordingChanged();
    accept();
}

} // namespace korvanel
