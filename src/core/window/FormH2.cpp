#include "core/window/FormH2.h"

#include "core/Common.h"
#include "core/Paths.h"
#include "core/texts/DefaultTexts.h"
#include "core/window/Picture.h"
#include "core/window/PlainLabel.h"

#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

namespace korvanel {

FormH2::FormH2(QWidget* parent) : QDialog(parent)
{
    constexpr double kLarge = 1.6;
    setObjectName(QStringLiteral("FormH2"));
    setWindowTitle(texts::aboutTitle);
    auto* column = new QVBoxLayout(this);
    const auto add = [column](const char* name, const QString& text) {
        auto* label = new PlainLabel(text);
        label->setObjectName(QLatin1String(name));
        label->setAlignment(Qt::AlignCenter);
        column->addWidget(label);
        return label;
    };
    const QPixmap logo = LoadPicture(QStringLiteral("LOGO.BMP"));
    if (!logo.isNull())
        add("imgLogo", {})->setPixmap(logo);
    QLabel* name = add("lblAbout_0", QStringLiteral("KORVANEL"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * kLarge);
    large.setBold(true);
    name->setFont(large);
    add("lblAbout_1", App().sVersion);
    add("lblAbout_2", texts::aboutText);
    auto* ok = new QPushButton(texts::buttonOk);
    ok->setObjectName(QStringLiteral("cmdOK"));
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    column->addWidget(ok, 0, Qt::AlignCenter);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace korvanel
