// Program settings of the user, independent of any project. The store is read once, by the constructor; every change
// goes through to it at once. A value that can't be read as its type counts as absent.
#pragma once

#include <QString>
#include <QtGlobal>

#include <array>

namespace korvanel {

class clsProgSettings
{
public:
    /// `programDir` is the base of the default paths.
    explicit clsProgSettings(const QString& programDir);

    const QString& LanguageFile() const { return languageFile; }
    void SetLanguageFile(const QString& value);
    const QString& ExportPath() const { return exportPath; }
    void SetExportPath(const QString& value);
    const QString& MotorDatabase() const { return motorDatabase; }
    void SetMotorDatabase(const QString& value);
    /// Size of the evaluation's time window.
    double TWindowSize() const { return windowSize; }
    void SetTWindowSize(double value);
    double TWindowFactor() const { return windowFactor; }
    void SetTWindowFactor(double value);
    qint16 TWindowSelection() const { return windowSelection; }
    void SetTWindowSelection(qint16 value);
    /// Number of measuring cycles in the cost calculation.
    qint32 Cycles() const { return cycles; }
    void SetCycles(qint32 value);
    const QString& UsedCurrency() const { return currency; }
    void SetUsedCurrency(const QString& value);
    /// Price of a kilowatt hour; an index outside 0 to 2 throws std::out_of_range.
    double EnergyCosts(std::size_t index) const { return energyCosts.at(index); }
    void SetEnergyCosts(std::size_t index, double value);

private:
    QString languageFile = QStringLiteral("standard");
    QString exportPath;
    QString motorDatabase;
    double windowSize = 900;
    double windowFactor = 3;
    qint16 windowSelection = 0;
    qint32 cycles = 10;
    QString currency = QStringLiteral("€");
    std::array<double, 3> energyCosts{0.15, 0.07, 0.03};
};

} // namespace korvanel
