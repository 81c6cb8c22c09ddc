#include "output/PrintRun.h"

#include "core/Clock.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/Printers.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF9Texts.h"
#include "output/Print.h"

#include <QProgressDialog>
#include <QPushButton>

namespace korvanel {

bool RunPrint(QWidget& parent, ReportOutput& output, bool (*print)(ReportOutput& output, const ReportWatch& watch))
{
    if (output.IsPrinter() && !HasDefaultPrinter()) {
        ShowInformation(texts::printNoPrinter);
        return false;
    }
    constexpr int kSteps = 1000;
    constexpr int kQuietMilliseconds = 400;
    clsWaitCursor cursor;
    cursor.Show();
    App().dtPrinted = PresentMoment();
    QProgressDialog dialog(texts::printProgress, {}, 0, kSteps, parent.window());
    auto* stop = new QPushButton(texts::buttonCancel);
    stop->setObjectName(QStringLiteral("cmdAbort"));
    dialog.setCancelButton(stop);
    dialog.setObjectName(QStringLiteral("dlgPrinting"));
    dialog.setWindowTitle(parent.windowTitle());
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(kQuietMilliseconds);
    dialog.setAutoClose(false);
    const auto goOn = [&dialog](double share) {
        dialog.setValue(static_cast<int>(share * (kSteps - 1)));
        return !dialog.wasCanceled();
    };
    return print(output, {.progress = goOn, .atEnd = [&dialog] { dialog.reset(); }});
}

} // namespace korvanel
