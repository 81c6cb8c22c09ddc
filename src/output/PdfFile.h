// A PDF file that takes its place when it is complete, with the name of its author, which the toolkit's writer doesn't
// set.
#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>

#include <memory>

namespace korvanel {

/// What a reader shows of a document.
struct PdfProperties
{
    QString title;
    QString author;
    QString creator;
};

/// What is appended to a PDF whose last bytes are `tail`, so that it has these properties: its description anew, as a
/// later version of the file. `length` is that of the whole file. Empty if the end is none of the kind that is known.
QByteArray PdfPropertiesUpdate(const QByteArray& tail, qint64 length, const PdfProperties& properties);

class PdfFile
{
public:
    /// Throws ReportFailed with path and reason, as all that follows; without `Finish` no file is left.
    explicit PdfFile(const QString& toPath);
    PdfFile(const PdfFile&) = delete;
    PdfFile& operator=(const PdfFile&) = delete;
    ~PdfFile();

    /// To be written to.
    QIODevice& Device();
    /// Throws if something couldn't be written.
    void RequireWritten();
    /// Completes the file and puts it in its place.
    void Finish(const PdfProperties& properties);

private:
    class Tail;
    [[noreturn]] void Fail(const QString& reason) const;

    QString path;
    QSaveFile file;
    std::unique_ptr<Tail> tail;
};

} // namespace korvanel
