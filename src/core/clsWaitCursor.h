// The hourglass: shown from Show onward, gone with the instance, so that every way out of a routine ends the waiting.
#pragma once

namespace korvanel {

class clsWaitCursor
{
public:
    clsWaitCursor() = default;
    clsWaitCursor(const clsWaitCursor&) = delete;
    clsWaitCursor& operator=(const clsWaitCursor&) = delete;
    ~clsWaitCursor();
    void Show();

private:
    bool isShown = false;
};

} // namespace korvanel
