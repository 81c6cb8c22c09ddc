// The box of a number on the machine page. What is typed is tested when the box is left, by whatever way; a number out
// of range is told and keeps the focus.
#pragma once

#include <QLineEdit>

#include <functional>

namespace korvanel {

class NumberBox : public QLineEdit
{
    Q_OBJECT

public:
    /// `mode` tells whether the machine is a generator.
    NumberBox(std::size_t field, std::function<bool()> mode);

    std::size_t Field() const { return field; }
    /// Shows a value that needs no test.
    void ShowNumber(const QString& text);
    /// Lets the sign follow the mode.
    void FollowMode();
    /// Tests what is pending. False if it is out of range.
    bool Commit();
    /// Tests what stands in the box, pending or not.
    bool Check();

signals:
    /// What stands in the box is out of range, which has been told.
    void Refused();

protected:
    void focusOutEvent(QFocusEvent* event) override;

private:
    std::size_t field;
    std::function<bool()> isGenerator;
    QString shownText;
    bool isChecking = false;
};

} // namespace korvanel
