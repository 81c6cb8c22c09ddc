#include "core/LocalFormats.h"

#include <QRegularExpression>

#include <algorithm>
#include <vector>

namespace korvanel {

QLocale FormatLocale()
{
    const QLocale system = QLocale::system();
    return system.language() == QLocale::C ? QLocale(QLocale::German, QLocale::Germany) : system;
}

QChar SystemDecimalChar()
{
    const QString point = FormatLocale().decimalPoint();
    return point.isEmpty() ? QChar(u',') : point.front();
}

QChar OtherDecimalCharOf(QChar decimalChar)
{
    return decimalChar == u',' ? u'.' : u',';
}

QDateTime ZeroDate()
{
    static const QDateTime zero(QDate(1899, 12, 30), QTime(0, 0, 0), Qt::UTC);
    return zero;
}

namespace {

/// The local short formats with a four-digit year and with seconds. Asked of the system once.
struct Formats
{
    QLocale locale = FormatLocale();
    QString date = locale.dateFormat(QLocale::ShortFormat);
    QString time = locale.timeFormat(QLocale::ShortFormat);

    Formats()
    {
        static const QRegularExpression shortYear(QStringLiteral("(?<!y)yy(?!y)"));
        date.replace(shortYear, QStringLiteral("yyyy"));
        if (!time.contains(QStringLiteral("ss")))
            time.replace(QStringLiteral("mm"), QStringLiteral("mm:ss"));
    }
};

const Formats& LocalFormats()
{
    static const Formats formats;
    return formats;
}

QString DateText(const QDate& date)
{
    return LocalFormats().locale.toString(date, LocalFormats().date);
}
QString TimeText(const QTime& time)
{
    return LocalFormats().locale.toString(time, LocalFormats().time);
}

/// A piece of the stored text, or a character between.
struct Piece
{
    std::size_t position = 0; ///< within the stored text
    std::size_t length = 0;   ///< 0: the literal
    bool dropsZero = false;
    std::string literal = {}; ///< in UTF-8
};

/// The local formats as a rearrangement of the stored text. Empty where they hold names of months or the like.
std::vector<Piece> Rearrangement()
{
    struct Token
    {
        const char* text;
        Piece piece;
    };
    static const Token tokens[] = {{"yyyy", {0, 4}},     {"MM", {5, 2}},      {"M", {5, 2, true}},
                                   {"dd", {8, 2}},       {"d", {8, 2, true}}, {"HH", {11, 2}},
                                   {"H", {11, 2, true}}, {"mm", {14, 2}},     {"ss", {17, 2}}};
    const QString format = LocalFormats().date + u' ' + LocalFormats().time;
    if (format.contains(QStringLiteral("MMM")) || format.contains(QStringLiteral("ddd")))
        return {};
    std::vector<Piece> pieces;
    for (qsizetype i = 0; i < format.size();) {
        const auto* token = std::find_if(std::begin(tokens), std::end(tokens), [&](const Token& t) {
            return QStringView(format).mid(i).startsWith(QLatin1String(t.text));
        });
        if (token != std::end(tokens)) {
            pieces.push_back(token->piece);
            i += static_cast<qsizetype>(qstrlen(token->text));
        } else if (format[i].isLetter() || format[i] == u'\'') {
            return {};
        } else {
            pieces.push_back({.literal = QString(format[i]).toStdString()});
            ++i;
        }
    }
    return pieces;
}

/// "YYYY-MM-DD HH:MM:SS" with digits in their places.
bool IsStoredForm(std::string_view text)
{
    constexpr std::string_view kForm = "0000-00-00 00:00:00";
    if (text.size() != kForm.size())
        return false;
    for (std::size_t i = 0; i < kForm.size(); ++i)
        if (kForm[i] == '0' ? text[i] < '0' || text[i] > '9' : text[i] != kForm[i])
            return false;
    return true;
}

} // namespace

QString DateTimeText(const QDateTime& moment)
{
    return DateText(moment.date()) + QLatin1Char(' ') + TimeText(moment.time());
}

QString DateFormat()
{
    return LocalFormats().date;
}

QString TimeFormat()
{
    return LocalFormats().time;
}

bool AppendDateTimeTextOfStored(std::string& out, std::string_view stored)
{
    static const std::vector<Piece> pieces = Rearrangement();
    if (pieces.empty() || !IsStoredForm(stored)) {
        const QDateTime moment =
            DateFromStoredText(QString::fromUtf8(stored.data(), static_cast<qsizetype>(stored.size())));
        if (moment.isValid())
            out += DateTimeText(moment).toStdString();
        return moment.isValid();
    }
    for (const Piece& piece : pieces) {
        const std::size_t left = piece.dropsZero && stored[piece.position] == '0' ? 1 : 0;
        if (piece.length == 0)
            out += piece.literal;
        else
            out += stored.substr(piece.position + left, piece.length - left);
    }
    return true;
}

QString DateTimeTextOfStored(const QString& stored)
{
    std::string text;
    return AppendDateTimeTextOfStored(text, stored.toStdString()) ? QString::fromStdString(text) : stored;
}

QString GeneralDateText(const QDateTime& moment)
{
    if (moment.date() == ZeroDate().date())
        return TimeText(moment.time());
    if (moment.time() == QTime(0, 0, 0))
        return DateText(moment.date());
    return DateTimeText(moment);
}

QString StoredDateText(const QDateTime& moment)
{
    return moment.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QDateTime DateFromStoredText(const QString& text)
{
    constexpr qsizetype kDateLength = 10;
    const QDate date = QDate::fromString(text.left(kDateLength), QStringLiteral("yyyy-MM-dd"));
    const QTime time = QTime::fromString(text.mid(kDateLength), QStringLiteral(" HH:mm:ss"));
    return date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

} // namespace korvanel
