#include "motors/FormH8.h"

#include "core/Common.h"
#include "core/texts/DefaultTexts.h"
#include "motors/ModelListing.h"

#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace korvanel {

namespace {

constexpr QSize kUsualSize(340, 520);

QStringList LinesOf(MachineInfo info)
{
    switch (info) {
    case MachineInfo::MachineII:
        return SecondMachineListing(App().MachineII.record, App().MachineII.model);
    case MachineInfo::MachineI:
        return ModelListing(App().MachineI.status, App().MachineI.model);
    }
    return {};
}

} // namespace

FormH8::FormH8(QWidget* parent, MachineInfo info) : QDialog(parent)
{
    setObjectName(QStringLiteral("FormH8"));
    setWindowTitle(texts::modelInfoTitle);
    resize(kUsualSize);
    auto* list = new QListWidget;
    list->setObjectName(QStringLiteral("lstInfo"));
    list->setAccessibleName(texts::modelInfoTitle);
    list->addItems(LinesOf(info));
    auto* ok = new QPushButton(texts::buttonOk);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* column = new QVBoxLayout(this);
    column->addWidget(list, 1);
    column->addWidget(ok, 0, Qt::AlignRight);
}

} // namespace korvanel
