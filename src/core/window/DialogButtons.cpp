#include "core/window/DialogButtons.h"

#include "core/Messages.h"
#include "core/Texts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace korvanel {

DialogButtons BuildDialogButtons(QDialog& dialog, const char* aheadName, const QString& aheadText,
                                 const char* cancelName, const std::function<void()>& goAhead)
{
    auto* ahead = new QPushButton(aheadText);
    ahead->setObjectName(QLatin1String(aheadName));
    ahead->setDefault(true);
    QObject::connect(ahead, &QPushButton::clicked, &dialog,
                     [&dialog, goAhead] { RunGuarded(dialog.objectName(), goAhead); });
    auto* cancel = new QPushButton(Texts().buttonCancel);
    cancel->setObjectName(QLatin1String(cancelName));
    cancel->setAutoDefault(false);
    QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    constexpr int kGap = 6;
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap); // in a grid with two different spacings it would inherit none
    row->addStretch(1);
    row->addWidget(ahead);
    row->addWidget(cancel);
    return {row, ahead};
}

} // namespace korvanel
