// The baseline of the start-up measurement: a Qt Widgets window with one label.
// With a width and a height it opens at that size: the picture a window keeps of
// itself grows with its area, so a baseline of Parlex's size holds what any window
// of that size holds. Usage: minimal-window [WIDTH HEIGHT]
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QLabel label("minimal");
    label.setWindowTitle("MINIMAL");
    if (const QStringList args = QApplication::arguments(); args.size() == 3)
        label.resize(args[1].toInt(), args[2].toInt());
    label.show();
    return QApplication::exec();
}
