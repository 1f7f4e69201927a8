#include <QApplication>
#include <QLabel>
#include <QTimer>

#include <cstdio>

/// The least that a program with a window does until the window stands there and it can say so.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QLabel window("An empty window.");
    window.resize(1000, 600);
    window.show();
    QTimer::singleShot(0, [] {
        std::puts("up");
        std::fflush(stdout);
        QApplication::quit();
    });
    return QApplication::exec();
}
