#include "core/window/FormLater.h"

#include "core/Texts.h"

#include <QLabel>
#include <QVBoxLayout>

namespace korvanel {

FormLater::FormLater(MainWindow& window, const PageEntry& entry) : Page(window, entry)
{
    auto* note = new QLabel(Texts().laterVersion);
    note->setObjectName(QStringLiteral("lblLater"));
    note->setAlignment(Qt::AlignCenter);
    Body().addWidget(note);
}

} // namespace korvanel
