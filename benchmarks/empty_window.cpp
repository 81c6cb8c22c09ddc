// An empty main window with its menu bar and status bar, as every program of the toolkit begins.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.menuBar();
    window.statusBar();
    window.show();
    return QApplication::exec();
}
