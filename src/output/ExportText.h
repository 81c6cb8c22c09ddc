// A tab-separated text on its way to a file: fields that end in a tab, lines that end as the platform's do, UTF-8 with
// a byte order mark. It is collected in blocks, so that a pass over a recording costs little more than its digits.
#pragma once

#include <QFile>
#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace korvanel {

/// A text within one field: a line break, a tab and any other control character become one blank each.
QString FieldText(const QString& text);

/// `FieldText` of what a user has typed. One blank goes in front of what a spreadsheet would take for a formula or for
/// the begin of a quoted field.
QString TypedFieldText(const QString& text);

class ExportText
{
public:
    /// Creates the file or replaces its content. Throws std::runtime_error with path and reason, as every writing here.
    explicit ExportText(const QString& path);
    ExportText(const ExportText&) = delete;
    ExportText& operator=(const ExportText&) = delete;
    /// After a failure elsewhere what has been added so far still reaches the file, if it can.
    ~ExportText();

    /// As `ExactNumberText`.
    void AddNumber(double value);
    void AddWhole(qint64 value);
    /// Hours, minutes and seconds without a fraction.
    void AddTime(double seconds);
    /// A stored time stamp in the local format; any other text as it is.
    void AddStoredDate(std::string_view stored);
    /// A text, as `FieldText`.
    void AddText(const QString& text);
    /// A text in UTF-8 that is known to fit into a field.
    void AddFitting(std::string_view utf8);

    /// Ends the line, with `rest` as what stands behind the last tab.
    void EndLine(const QString& rest = {});
    /// Brings everything to the file and closes it.
    void Finish();

private:
    /// Where so many characters can be put, at most `kLongestNumber` and one more.
    char* Room(std::size_t characters);
    /// Ends a field that was put into the room.
    void EndField(char* last);
    void Append(std::string_view utf8);
    void WriteBlock();
    [[noreturn]] void Fail() const;

    QFile file;
    std::vector<char> block;
    char* at;                 ///< where the text goes on within the block
    std::string decimalPoint; ///< the local one
    std::string date;         ///< kept for its memory
};

} // namespace korvanel
