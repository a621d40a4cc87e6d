#include <QApplication>
#include <QWidget>

#include <cstdlib>

// empty_window WIDTH HEIGHT [LEFT TOP] shows a window with nothing in it: what the toolkit alone costs.
int main(int count, char** words) {
    const QApplication application(count, words);
    const auto number = [&](int index, int otherwise) {
        return index < count ? std::atoi(words[index]) : otherwise;
    };
    QWidget window;
    window.setWindowFlags(Qt::FramelessWindowHint);
    window.setGeometry(number(3, 0), number(4, 0), number(1, 320), number(2, 640));
    window.show();
    return QApplication::exec();
}
