#include "core/window/FormLater.h"

#include "core/texts/DefaultTexts.h"
#include "core/window/PlainLabel.h"

#include <QLabel>
#include <QVBoxLayout>

namespace korvanel {

FormLater::FormLater(PageFrame& host, const PageEntry& entry) : Page(host, entry)
{
    auto* note = new PlainLabel(texts::laterVersion);
    note->setObjectName(QStringLiteral("lblLater"));
    note->setAlignment(Qt::AlignCenter);
    Body().addWidget(note);
}

} // namespace korvanel
