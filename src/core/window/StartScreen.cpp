#include "core/window/StartScreen.h"

#include "core/Common.h"
#include "core/window/PlainLabel.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QVBoxLayout>

namespace korvanel {

namespace {

constexpr int kShownMs = 3000;

} // namespace

StartScreen::StartScreen(const QPixmap& logo) : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    constexpr int kMargin = 24;
    constexpr double kLarge = 2.2;
    setObjectName(QStringLiteral("FormStart"));
    setWindowTitle(QStringLiteral("KORVANEL"));
    setAutoFillBackground(true);
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    white.setColor(QPalette::WindowText, QColor(0x1b, 0x2a, 0x41));
    setPalette(white);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    const auto add = [column](const char* name) {
        auto* label = new PlainLabel;
        label->setObjectName(QLatin1String(name));
        label->setAlignment(Qt::AlignCenter);
        column->addWidget(label);
        return label;
    };
    if (!logo.isNull())
        add("imgLogo")->setPixmap(logo);
    QLabel* name = add("lblStart_0");
    name->setText(QStringLiteral("KORVANEL"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * kLarge);
    large.setBold(true);
    name->setFont(large);
    add("lblStart_1")->setText(QStringLiteral("KORVANEL ") + App().sVersion);
}

void StartScreen::ShowInFront()
{
    adjustSize();
    if (const QScreen* display = QGuiApplication::primaryScreen())
        move(display->availableGeometry().center() - rect().center());
    show();
    raise();
    if (timer != 0)
        killTimer(timer);
    timer = startTimer(kShownMs);
}

void StartScreen::mousePressEvent(QMouseEvent*)
{
    close();
}
void StartScreen::keyPressEvent(QKeyEvent*)
{
    close();
}

void StartScreen::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != timer)
        return;
    killTimer(timer);
    timer = 0;
    close();
}

} // namespace korvanel
