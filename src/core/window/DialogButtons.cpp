#include "core/window/DialogButtons.h"

#include "core/Messages.h"
#include "core/texts/DefaultTexts.h"

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
                     [&dialog, goAhead] { RunGuarded(dialog.windowTitle(), goAhead); });
    auto* cancel = new QPushButton(texts::buttonCancel);
    cancel->setObjectName(QLatin1String(cancelName));
    cancel->setAutoDefault(false);
    QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    constexpr int kGap = 6; // whatever the layout around it has
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addStretch(1);
    row->addWidget(ahead);
    row->addWidget(cancel);
    return {row, ahead};
}

} // namespace korvanel
