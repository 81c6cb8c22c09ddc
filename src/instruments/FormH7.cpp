#include "instruments/FormH7.h"

#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH7Texts.h"
#include "instruments/WiringView.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace korvanel {

FormH7::FormH7(QWidget* parent) : QDialog(parent)
{
    constexpr int kWidth = 540;
    setObjectName(QStringLiteral("FormH7"));
    setWindowTitle(texts::wiringTitle);
    setMinimumWidth(kWidth);
    auto* wiring = new WiringView;
    wiring->Refresh();
    auto* ok = new QPushButton(texts::buttonOk);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* column = new QVBoxLayout(this);
    column->addWidget(wiring);
    column->addStretch(1);
    column->addWidget(ok, 0, Qt::AlignRight);
}

} // namespace korvanel
