#include <QApplication>
#include <QLabel>
#include <QTimer>

#include <cstdio>

namespace {

/// A window with one line of text, which says so when it is painted.
class EmptyWindow final : public QLabel {
  public:
    EmptyWindow() : QLabel("An empty window.") {}

  protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        QTimer::singleShot(0, [] {
            std::puts("up");
            std::fflush(stdout);
            QApplication::quit();
        });
    }
};

} // namespace

/// The least that a program with a window does until the window stands there, as a clerk sees it, and it can say so.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    EmptyWindow window;
    window.resize(1000, 600);
    window.show();
    return QApplication::exec();
}
