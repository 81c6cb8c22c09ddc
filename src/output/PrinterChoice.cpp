#include "output/PrinterChoice.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/Printers.h"
#include "core/Shell.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF9Texts.h"
#include "core/texts/PrintExportTexts.h"
#include "core/window/PlainLabel.h"
#include "output/OwnFiles.h"
#include "output/PrinterOutput.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace korvanel {

namespace {

class ComboList : public ListControl
{
public:
    explicit ComboList(QComboBox& ofBox) : box(ofBox) {}
    void AddItem(const QString& text) override { box.addItem(text); }
    void SelectItem(int index) override { box.setCurrentIndex(index); }

private:
    QComboBox& box;
};

QString AskPdfPath()
{
    const QString ending = QStringLiteral(".pdf");
    const QFileInfo project(App().sProjectPath);
    const QString suggestion = JoinPath(project.absolutePath(), project.completeBaseName() + ending);
    const std::optional<QString> path =
        App().TheShell->AskSavePath({texts::printSaveTitle, suggestion, texts::printPdfFilter, {}, ending});
    if (!path || path->isEmpty())
        return {};
    if (!IsOwnFile(*path))
        return FileNameOf(*path).contains(u'.') ? *path : *path + ending;
    ShowError(*path + u'\n' + texts::exportOwnFile);
    return {};
}

} // namespace

PrinterChoice::PrinterChoice(const char* setupName, const QString& setupText)
    : box(new QComboBox), setupButton(new QPushButton(setupText))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    auto* caption = new PlainLabel(texts::printPrinter);
    caption->setObjectName(QStringLiteral("lblPrinter"));
    caption->setBuddy(box);
    box->setObjectName(QStringLiteral("cboPrinters"));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setupButton->setObjectName(QLatin1String(setupName));
    row->addWidget(caption);
    row->addWidget(box, 1);
    row->addWidget(setupButton);
    Fill();
    connect(box, &QComboBox::currentIndexChanged, this, [this] { TakeChoice(); });
}

PrinterChoice::~PrinterChoice() = default;

/// The default printer is chosen unless the user has chosen another one before.
void PrinterChoice::Fill()
{
    ComboList list(*box);
    FillPrinterList(list);
    box->addItem(texts::printPdf);
    const int former = box->findText(App().sPrinter);
    if (App().isReportToFile || box->count() == 1)
        box->setCurrentIndex(box->count() - 1);
    else if (former >= 0)
        box->setCurrentIndex(former);
    else if (!HasDefaultPrinter())
        box->setCurrentIndex(-1);
    setupButton->setEnabled(!IsFile() && box->currentIndex() >= 0);
}

bool PrinterChoice::IsFile() const
{
    return box->currentIndex() == box->count() - 1;
}

void PrinterChoice::TakeChoice()
{
    App().isReportToFile = IsFile();
    if (!IsFile())
        SelectPrinter(box->currentText());
    setupButton->setEnabled(!IsFile() && box->currentIndex() >= 0);
}

QString PrinterChoice::Target() const
{
    const QString target = FillPlaceholders(texts::printTarget, {box->currentText()});
    if (HasDefaultPrinter())
        return box->currentIndex() < 0 ? QString() : target;
    return IsFile() ? texts::printNoPrinter + u'\n' + target : texts::printNoPrinter;
}

QPrinter& PrinterChoice::Printer()
{
    if (!printer)
        printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *printer;
}

std::unique_ptr<ReportOutput> PrinterChoice::AskOutput()
{
    if (!IsFile())
        return std::make_unique<PrinterOutput>(Printer(), box->currentText());
    const QString path = AskPdfPath();
    return path.isEmpty() ? nullptr : std::make_unique<PdfOutput>(path);
}

void PrinterChoice::SetUp()
{
    if (!ChoosePrinter(Printer(), box->currentText())) {
        ShowError(FillPlaceholders(texts::reportPrinterGone, {box->currentText()}));
        return;
    }
    QPrintDialog dialog(printer.get(), this);
    dialog.setObjectName(QStringLiteral("dlgPrinter"));
    dialog.setOptions(QAbstractPrintDialog::PrintCollateCopies);
    dialog.setWindowTitle(QString(setupButton->text()).remove(u'&'));
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>()) // nothing is printed here
        if (QPushButton* ok = buttons->button(QDialogButtonBox::Ok))
            ok->setText(texts::buttonOk);
    if (dialog.exec() == QDialog::Accepted)
        box->setCurrentIndex(box->findText(printer->printerName()));
}

} // namespace korvanel
