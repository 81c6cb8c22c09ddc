// The schedule tab on its own, with the hands of a user.
#pragma once

#include "acquisition/ScheduleGrid.h"
#include "acquisition/ScheduleTab.h"
#include "support/Fixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimeEdit>

#include <stdexcept>

namespace korvanel::test {

inline constexpr int kManual = 0;
inline constexpr int kTimed = 1;
inline constexpr int kDuration = 2;

class ScheduleTabTest : public BlockTest
{
protected:
    ScheduleTabTest()
    {
        App().TimeSchedule = &schedule;
        Open();
    }

    // While it is shown its boxes still hear of the focus.
    ~ScheduleTabTest() override { tab->hide(); }

    /// A tab as the page makes it each time it is shown.
    void Open()
    {
        if (tab)
            tab->hide();
        tab = std::make_unique<ScheduleTab>();
        tab->resize(720, 380);
        tab->Refresh();
        tab->show();
        QApplication::setActiveWindow(tab.get());
    }

    template <typename Control>
    Control& Find(const QString& name) const
    {
        auto* control = tab->findChild<Control*>(name);
        if (!control)
            throw std::runtime_error("no control " + name.toStdString());
        return *control;
    }
    QLineEdit& Period(int index) const { return Find<QLineEdit>(QStringLiteral("txtPeriod_%1").arg(index)); }
    QStringList Periods(int first) const
    {
        return {Period(first).text(), Period(first + 1).text(), Period(first + 2).text()};
    }
    ScheduleGrid& Grid() const { return Find<ScheduleGrid>("flxTimeControl"); }
    bool IsEnabled(const QString& name) const { return Find<QWidget>(name).isEnabled(); }
    void Press(const char* name) const { Find<QPushButton>(name).click(); }

    void SetModes(int start, int stop) const
    {
        Find<QComboBox>("cboMode_0").setCurrentIndex(start);
        Find<QComboBox>("cboMode_1").setCurrentIndex(stop);
    }
    void SetMoment(int index, const QDateTime& moment) const
    {
        Find<QDateEdit>(QStringLiteral("dtpDate_%1").arg(index)).setDate(moment.date());
        Find<QTimeEdit>(QStringLiteral("dtpTime_%1").arg(index)).setTime(moment.time());
    }
    QDateTime Moment(int index) const
    {
        return {Find<QDateEdit>(QStringLiteral("dtpDate_%1").arg(index)).date(),
                Find<QTimeEdit>(QStringLiteral("dtpTime_%1").arg(index)).time(), Qt::UTC};
    }
    /// Types over what stands in a box, without leaving it.
    static void Type(QLineEdit& box, const QString& text)
    {
        box.setFocus();
        box.selectAll();
        if (text.isEmpty())
            QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }
    static void TypeAndEnter(QLineEdit& box, const QString& text)
    {
        Type(box, text);
        QTest::keyClick(&box, Qt::Key_Return);
    }
    /// A recording of an hour from 16:00 on, every two hours.
    void SetCycle(const QString& cycles) const
    {
        SetModes(kTimed, kTimed);
        SetMoment(0, At(16));
        SetMoment(1, At(17));
        Find<QCheckBox>("chkCycle").setChecked(true);
        TypeAndEnter(Period(3), "2");
        TypeAndEnter(Period(5), "0");
        TypeAndEnter(Find<QLineEdit>("txtCycle"), cycles);
    }
    void PlanThree() const
    {
        SetCycle("3");
        Press("cmdSaveDates");
    }
    void ClickRow(int row) const
    {
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().visualItemRect(Grid().item(row, 1)).center());
    }
    /// A moment of the test's day; its clock stands at 15:09:26.
    static QDateTime At(int hour, int minute = 0, int second = 0)
    {
        return {QDate(2026, 3, 14), QTime(hour, minute, second), Qt::UTC};
    }

    clsTimeSchedule schedule;
    std::unique_ptr<ScheduleTab> tab;
};

} // namespace korvanel::test
